#include "fronts/com/adapters/host_objects.h"

namespace kt7::adapters {

namespace {

std::string textOf(const LateObject& object, const wchar_t* property) {
  return automation::fromVariant<std::string>(object.call(property).raw());
}

}  // namespace

ado::Connection& LateDataObj::Connection() {
  // Asked each time: the host may open another one between two uses.
  connection_ = LateConnection(object_.child(object_.call(L"Connection"), "Connection"));
  return connection_;
}

std::string LateDataObj::DatabaseType() { return textOf(object_, L"DatabaseType"); }
std::string LateDataObj::ConnectionString() { return textOf(object_, L"ConnectionString"); }

std::string LateAppObj::AppDatabaseConnectionString() {
  return textOf(object_, L"AppDatabaseConnectionString");
}

std::int32_t LateClientObj::CurrentUserID() {
  return automation::fromVariant<std::int32_t>(object_.call(L"CurrentUserID").raw());
}
std::string LateClientObj::CurrentBranchCode() { return textOf(object_, L"CurrentBranchCode"); }

}  // namespace kt7::adapters
