#pragma once

#include <optional>
#include <string>
#include <vector>

#include <kt7/host/application.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/hr_object.h>
#include "fronts/calls/json_values.h"
#include "fronts/calls/profile_calls.h"
#include "host/trace/traced_data_obj.h"
#include "host/trace/traced_platform.h"
#include "trace_log.h"

namespace kt7::cli {

struct SessionOptions {
  std::string connectionString;
  /// The moment that the session takes for now; without one the machine's clock goes.
  std::optional<Date> now;
  std::int32_t user = 0;
  std::string branch;
  /// What pickers answer; without it the picker is asked, and without that one too it is an error.
  std::optional<std::vector<std::string>> pick;
  host::Picker picker;
  /// Takes what the library shows as a message; without it one line on standard error.
  host::HostPlatform::MessageView showMessage;
  bool trace = false;
};

/// One caller's work on a database: an HRObject and the caller's profiles, a data object whose
/// connection is open, and the transaction that the caller plays with DataObj.BeginTransaction.
/// Making one opens the database; a database error where that fails.
class Session {
 public:
  explicit Session(const SessionOptions& options);

  /// One method by its published name with named parameters; {"value": ..., "out": {...}}.
  /// Raises ProtocolError for an unknown method and for parameters that do not fit, and what the
  /// method raises. After a failure outside the caller's transaction everything begun is rolled
  /// back; inside it the transaction stands.
  Json call(const std::string& method, const Json& params);

  bool traces() const { return tracedDataObj_.has_value(); }
  /// The steps since the last taking.
  Json takeTrace() { return traceLog_.take(); }

 private:
  Json dispatch(const std::string& method, const Json& params);
  void recover(bool transactionStands, int opens);

  Platform& platform();
  DataObj& dataObj();

  TraceLog traceLog_;
  host::HostPlatform platform_;
  host::HostDataObj dataObj_;
  std::optional<trace::TracedPlatform> tracedPlatform_;
  std::optional<trace::TracedDataObj> tracedDataObj_;
  host::HostAppObj appObj_;
  host::HostClientObj clientObj_;
  HRObject hrObject_;
  ProfileCalls profiles_;
  int opens_ = 0;
};

}  // namespace kt7::cli
