#include "session.h"

#include <algorithm>
#include <array>

#include <kt7/error.h>
#include "fronts/calls/operation_calls.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/common/nearest_name.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

namespace {

struct DataObjMethod {
  std::string_view name;
  void (*call)(host::HostDataObj& dataObj);
  void (*callTraced)(trace::TracedDataObj& dataObj);
};

template <typename Act>
constexpr DataObjMethod dataObjMethod(std::string_view name, Act act) {
  return {name, act, act};
}

constexpr std::string_view kRollback = "DataObj.RollbackTransaction";

constexpr std::array kDataObjMethods{
    dataObjMethod("DataObj.BeginTransaction", [](auto& data) { data.BeginTransaction(); }),
    dataObjMethod("DataObj.CommitTransaction", [](auto& data) { data.CommitTransaction(); }),
    dataObjMethod(kRollback, [](auto& data) { data.RollbackTransaction(); }),
    dataObjMethod("DataObj.OpenConnection", [](auto& data) { data.OpenConnection(); }),
    dataObjMethod("DataObj.CloseConnection", [](auto& data) { data.CloseConnection(); }),
};

template <typename Rows>
auto findByName(const Rows& rows, std::string_view name) -> decltype(&*rows.begin()) {
  const auto at =
      std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
  return at != rows.end() ? &*at : nullptr;
}

[[noreturn]] void raiseUnknown(const std::string& method) {
  std::vector<std::string_view> names;
  const auto add = [&](const auto& rows) {
    for (const auto& row : rows) names.push_back(row.name);
  };
  add(operationCalls());
  add(ProfileCalls::methods());
  add(kDataObjMethods);
  throw ProtocolError(ProtocolError::kMethodNotFound,
                      "no operation '" + method + "'" + didYouMean(method, names));
}

template <typename Wrapper, typename Inner>
std::optional<Wrapper> traced(const SessionOptions& options, Inner& inner, TraceLog& log) {
  return options.trace ? std::make_optional<Wrapper>(inner, log) : std::nullopt;
}

}  // namespace

Session::Session(const SessionOptions& options)
    : dataObj_(options.connectionString),
      tracedPlatform_(traced<trace::TracedPlatform>(options, platform_, traceLog_)),
      tracedDataObj_(traced<trace::TracedDataObj>(options, dataObj_, traceLog_)),
      appObj_(options.connectionString),
      clientObj_(options.user, options.branch),
      hrObject_(platform()),
      profiles_(platform(), dataObj()) {
  platform_.setNow(options.now);
  if (options.pick) {
    platform_.setPicker(host::pickAlways(*options.pick));
  } else if (options.picker) {
    platform_.setPicker(options.picker);
  }
  if (options.showMessage) platform_.setMessageView(options.showMessage);
  dataObj_.OpenConnection();
  schema::requireCompany(dataObj_.Connection(), schema::SchemaOwner::Any);
  opens_ = dataObj_.opens();
}

Platform& Session::platform() {
  if (tracedPlatform_) return *tracedPlatform_;
  return platform_;
}

DataObj& Session::dataObj() {
  if (tracedDataObj_) return *tracedDataObj_;
  return dataObj_;
}

Json Session::call(const std::string& method, const Json& params) {
  // A transaction that cannot be rolled back is lost with its connection.
  const bool transactionStands = dataObj_.inTransaction() && method != kRollback;
  // A connection that was lost and could not be taken again when it failed is tried anew.
  if (dataObj_.opens() < opens_) dataObj_.reset(opens_);
  try {
    Json result = dispatch(method, params);
    opens_ = dataObj_.opens();
    return result;
  } catch (...) {
    recover(transactionStands, opens_);
    throw;
  }
}

Json Session::dispatch(const std::string& method, const Json& params) {
  if (const OperationCall* operation = findOperation(method)) {
    return operation->call(params, {hrObject_, dataObj(), appObj_, clientObj_});
  }
  if (const auto* profileMethod = findByName(ProfileCalls::methods(), method)) {
    return profiles_.call(*profileMethod, params);
  }
  if (const auto* played = findByName(kDataObjMethods, method)) {
    Parameters(params, {});
    if (tracedDataObj_) {
      played->callTraced(*tracedDataObj_);
    } else {
      played->call(dataObj_);
    }
    return Json{{"value", nullptr}, {"out", Json::object()}};
  }
  raiseUnknown(method);
}

void Session::recover(bool transactionStands, int opens) {
  if (transactionStands) {
    dataObj_.closeDownTo(opens);
    return;
  }
  try {
    dataObj_.reset(opens);
  } catch (const Error&) {
    // The caller hears of the failure that came first; the next call tries again.
  }
}

}  // namespace kt7::cli
