#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/hr_object.h>
#include "host/data/contract/database.h"
#include "host/schema/state/schema.h"
#include "host/trace/fault_injector.h"
#include "host/trace/traced_data_obj.h"
#include "host/trace/traced_platform.h"
#include "support/engine.h"

namespace kt7::test {

/// Makes the tables and views of an empty company.
void makeEmptyCompany(const TemporaryDatabase& database);
/// Makes the sample company.
void makeSampleCompany(const TemporaryDatabase& database);

/// Runs a statement on a connection of its own.
void execute(const std::string& connectionString, const std::string& sql);
/// The column "line" of every row as text, null as "-".
std::vector<std::string> linesOf(const std::string& connectionString, const std::string& query);

/// An empty company in a database of its own, the library on it, and every step it takes.
class Company {
 public:
  explicit Company(const char* now = "2026-01-15T10:00:00");

  void run(const std::string& sql);
  /// The rows of a query as text: fields joined by "|", null as "-", rows in order.
  std::vector<std::string> rows(const std::string& sql);
  void setNow(const char* now) { host_.setNow(Date::fromIsoText(now)); }

  const std::string& connectionString() const { return database_.connectionString(); }
  DataObj& data() { return tracedData_; }
  host::HostDataObj& hostData() { return hostData_; }
  HRObject& hr() { return hr_; }
  Platform& platform() { return traced_; }
  trace::FaultInjector& steps() { return steps_; }
  std::vector<std::string>& messages() { return messages_; }

 private:
  TemporaryDatabase database_;
  host::HostPlatform host_;
  trace::FaultInjector steps_;
  trace::TracedPlatform traced_{host_, steps_};
  host::HostDataObj hostData_;
  trace::TracedDataObj tracedData_{hostData_, steps_};
  HRObject hr_{traced_};
  std::vector<std::string> messages_;
};

}  // namespace kt7::test
