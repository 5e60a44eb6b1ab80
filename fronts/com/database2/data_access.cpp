#include "fronts/com/database2/data_access.h"

#include <array>

#include "base/text.h"
#include "host/data/contract/database.h"

namespace kt7::database2 {

ConnectionObject::ConnectionObject() : connection_(data::createConnection()) {}

ConnectionObject::ConnectionObject(std::shared_ptr<ado::Connection> connection)
    : connection_(std::move(connection)), open_(true) {}

void ConnectionObject::Open(const std::optional<std::string>& connectionString,
                            const std::optional<std::string>& user,
                            const std::optional<std::string>& password,
                            const std::optional<std::int32_t>& options) {
  if (connectionString && !connectionString->empty()) connectionString_ = *connectionString;
  connection_->Open(connectionString_, user.value_or(""), password.value_or(""),
                    options.value_or(ado::kUnspecified));
  open_ = true;
}

void ConnectionObject::Close() {
  connection_->Close();
  open_ = false;
}

Variant ConnectionObject::Execute(const std::string& sql, const std::optional<std::int32_t>&,
                                  const std::optional<std::int32_t>&) {
  const std::string_view text = trimmedBlanks(sql);
  if (!equalNoCase(text.substr(0, 6), "SELECT")) {
    connection_->Execute(sql);
    return {};
  }
  Variant rows = newObject<RecordsetObject>();
  targetIn<RecordsetObject>(rows.raw())->Open(sql, *connection_, {}, {}, {});
  return rows;
}

RecordsetObject::RecordsetObject() : rows_(data::createRecordset()) {}

void RecordsetObject::Open(const std::string& source, const ado::ActiveConnection& activeConnection,
                           const std::optional<std::int32_t>& cursorType,
                           const std::optional<std::int32_t>& lockType,
                           const std::optional<std::int32_t>& options) {
  rows_->Open(source, activeConnection, cursorType.value_or(ado::kStatic),
              lockType.value_or(ado::kReadOnly), options.value_or(ado::kUnspecified));
  open_ = true;
}

void RecordsetObject::Close() {
  rows_->Close();
  open_ = false;
}

Variant RecordsetObject::Fields(const std::optional<std::string>& name) {
  if (name) return newObject<FieldObject>(rows_, *name);
  return newObject<FieldsObject>(rows_);
}

Variant FieldsObject::Item(const std::string& name) { return newObject<FieldObject>(rows_, name); }

FieldObject::FieldObject(std::shared_ptr<ado::Recordset> rows, std::string name)
    : rows_(std::move(rows)), name_(std::move(name)) {
  rows_->Fields().Item(name_);
}

Parameter<ado::ActiveConnection>::Parameter(const VARIANT& given) {
  const VARIANT* inner = &given;
  while (inner->vt == (VT_BYREF | VT_VARIANT)) inner = inner->pvarVal;
  const int type = inner->vt & ~VT_BYREF;
  if (type != VT_DISPATCH && type != VT_UNKNOWN) {
    connectionString_ = automation::fromVariant<std::string>(given);
    return;
  }
  const auto* const own = targetIn<ConnectionObject>(given);
  if (own == nullptr) {
    raiseTypeMismatch("the connection is neither a text nor a KT7Database2.Connection");
  }
  connection_ = own->connection();
}

ado::ActiveConnection Parameter<ado::ActiveConnection>::pass() const {
  if (connection_) return *connection_;
  return connectionString_;
}

namespace {

/// rows("TEmpCode") = value sets a field without naming its Value.
Variant fieldOfRows(ObjectOf<RecordsetObject>& object, const automation::MemberCall& given) {
  RecordsetObject& rows = object.target();
  if ((given.flags & DISPATCH_PROPERTYPUT) == 0) {
    return detail::call<&RecordsetObject::Fields>(rows, given.arguments);
  }
  const Variant field = rows.Fields(given.arguments.get<std::string>(0));
  return detail::put<&FieldObject::setValue>(*targetIn<FieldObject>(field.raw()), given);
}

using Connection = ConnectionObject;
using Rows = RecordsetObject;

// clang-format off
constexpr std::array kConnectionMembers{
    property<Connection, &Connection::CursorLocation, &Connection::setCursorLocation>(L"CursorLocation"),
    property<Connection, &Connection::ConnectionString, &Connection::setConnectionString>(L"ConnectionString"),
    answers<Connection, &Connection::State>(L"State"),
    answers<Connection, &Connection::Open>(L"Open"),
    answers<Connection, &Connection::Close>(L"Close"),
    answers<Connection, &Connection::Execute>(L"Execute"),
    answers<Connection, &Connection::BeginTrans>(L"BeginTrans"),
    answers<Connection, &Connection::CommitTrans>(L"CommitTrans"),
    answers<Connection, &Connection::RollbackTrans>(L"RollbackTrans"),
};
constexpr WORD kReadAndSet = detail::kAnswers | DISPATCH_PROPERTYPUT;
constexpr std::array kRecordsetMembers{
    answers<Rows, &Rows::Open>(L"Open"),
    answers<Rows, &Rows::Eof>(L"EOF"),
    answers<Rows, &Rows::MoveNext>(L"MoveNext"),
    answers<Rows, &Rows::AddNew>(L"AddNew"),
    answers<Rows, &Rows::Update>(L"Update"),
    answers<Rows, &Rows::Close>(L"Close"),
    answers<Rows, &Rows::State>(L"State"),
    MemberOf<Rows>{L"Fields", kReadAndSet, 1, fieldOfRows},
    MemberOf<Rows>{L"", kReadAndSet, 1, fieldOfRows},
};
constexpr std::array kFieldsMembers{
    answers<FieldsObject, &FieldsObject::Item>(L"Item"),
    answers<FieldsObject, &FieldsObject::Item>(L""),
};
constexpr std::array kFieldMembers{
    answers<FieldObject, &FieldObject::Name>(L"Name"),
    property<FieldObject, &FieldObject::Value, &FieldObject::setValue>(L"Value"),
    property<FieldObject, &FieldObject::Value, &FieldObject::setValue>(L""),
};
// clang-format on

}  // namespace

template <>
std::span<const MemberOf<ConnectionObject>> membersOf<ConnectionObject>() {
  return kConnectionMembers;
}
template <>
std::span<const MemberOf<RecordsetObject>> membersOf<RecordsetObject>() {
  return kRecordsetMembers;
}
template <>
std::span<const MemberOf<FieldsObject>> membersOf<FieldsObject>() {
  return kFieldsMembers;
}
template <>
std::span<const MemberOf<FieldObject>> membersOf<FieldObject>() {
  return kFieldMembers;
}

}  // namespace kt7::database2
