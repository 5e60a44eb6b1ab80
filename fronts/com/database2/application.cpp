#include "fronts/com/database2/application.h"

#include <array>

#include <kt7/roles/picker.h>
#include "base/text.h"
#include "fronts/com/automation/message_line.h"
#include "fronts/com/automation/text.h"

namespace kt7::database2 {

SharedPlatform::SharedPlatform() {
  setPicker([this](const PickerRequest& request, const std::string& connectionString,
                   bool multiSelect) { return current()(request, connectionString, multiSelect); });
  setMessageView(
      [](const std::string& text) { automation::writeOneLine(automation::toWide(text)); });
}

void SharedPlatform::answerPickers(const std::vector<std::string>& keys) {
  host::Picker answer = host::pickAlways(keys);
  const std::lock_guard lock(guard_);
  answer_.swap(answer);
}

host::Picker SharedPlatform::current() {
  const std::lock_guard lock(guard_);
  return answer_;
}

SharedPlatform& platform() {
  static SharedPlatform shared;
  return shared;
}

void DataObject::setConnectionString(const std::string& text) {
  if (data_ && data_->opens() > 0) {
    raiseCollaborator(error_number::kCallFailed,
                      "the data object's connection is open: close it before naming another "
                      "database");
  }
  data_ = std::make_shared<host::HostDataObj>(text);
  connectionString_ = text;
}

host::HostDataObj& DataObject::data() {
  if (!data_) {
    raiseCollaborator(error_number::kCallFailed,
                      "the data object has no ConnectionString: set it first, such as "
                      "\"Driver=SQLite;Database=company.db\"");
  }
  return *data_;
}

Variant DataObject::Connection() {
  ado::Connection& open = data().Connection();
  return newObject<ConnectionObject>(std::shared_ptr<ado::Connection>(data_, &open));
}

void ClientObject::setPickerAnswer(const std::string& keys) {
  pickerAnswer_ = keys;
  platform().answerPickers(split(keys, ','));
}

Parameter<kt7::DataObj>::Parameter(const VARIANT& given) {
  auto* const own = targetIn<DataObject>(given);
  if (own == nullptr) raiseTypeMismatch("the data object is no KT7Database2.DataObj");
  data_ = &own->data();
}

namespace {

using Data = DataObject;
using Application = ApplicationObject;
using Client = ClientObject;

// clang-format off
constexpr std::array kDataMembers{
    property<Data, &Data::ConnectionString, &Data::setConnectionString>(L"ConnectionString"),
    answers<Data, &Data::Connection>(L"Connection"),
    answers<Data, &Data::OpenConnection>(L"OpenConnection"),
    answers<Data, &Data::CloseConnection>(L"CloseConnection"),
    answers<Data, &Data::BeginTransaction>(L"BeginTransaction"),
    answers<Data, &Data::CommitTransaction>(L"CommitTransaction"),
    answers<Data, &Data::RollbackTransaction>(L"RollbackTransaction"),
    answers<Data, &Data::ExecuteSql>(L"ExecuteSql"),
    answers<Data, &Data::ExecuteSqlEx>(L"ExecuteSqlEx"),
    answers<Data, &Data::DatabaseType>(L"DatabaseType"),
};
constexpr std::array kApplicationMembers{
    property<Application, &Application::AppDatabaseConnectionString, &Application::setAppDatabaseConnectionString>(L"AppDatabaseConnectionString"),
};
constexpr std::array kClientMembers{
    property<Client, &Client::CurrentUserID, &Client::setCurrentUserID>(L"CurrentUserID"),
    property<Client, &Client::CurrentBranchCode, &Client::setCurrentBranchCode>(L"CurrentBranchCode"),
    property<Client, &Client::PickerAnswer, &Client::setPickerAnswer>(L"PickerAnswer"),
};
// clang-format on

}  // namespace

template <>
std::span<const MemberOf<DataObject>> membersOf<DataObject>() {
  return kDataMembers;
}
template <>
std::span<const MemberOf<ApplicationObject>> membersOf<ApplicationObject>() {
  return kApplicationMembers;
}
template <>
std::span<const MemberOf<ClientObject>> membersOf<ClientObject>() {
  return kClientMembers;
}

}  // namespace kt7::database2
