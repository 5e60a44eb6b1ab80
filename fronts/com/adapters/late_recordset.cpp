#include "fronts/com/adapters/late_recordset.h"

#include "base/text.h"
#include "fronts/com/adapters/late_connection.h"

namespace kt7::adapters {

kt7::Value LateField::Value() const { return automation::toValue(object_.call(L"Value").raw()); }

void LateField::Value(const kt7::Value& value) { object_.put(L"Value", Variant(value)); }

ado::Field& LateFields::Item(std::string_view name) {
  for (LateField& field : fetched_) {
    if (equalNoCase(field.name(), name)) return field;
  }
  std::string column(name);
  LateObject field =
      object_.child(object_.call(L"Item", column), "Item('" + column + "')", &fieldIds_);
  return fetched_.emplace_back(std::move(column), std::move(field));
}

void LateRecordset::Open(const std::string& source, const ado::ActiveConnection& activeConnection,
                         int cursorType, int lockType, int options) {
  const Variant on = argumentOf(activeConnection);
  object_.run(L"Open", source, on.raw(), cursorType, lockType, options);
  fields_.bind(object_.child(object_.call(L"Fields"), "Fields"));
}

bool LateRecordset::Eof() const {
  return automation::fromVariant<bool>(object_.call(L"EOF").raw());
}

void LateRecordset::MoveNext() {
  object_.run(L"MoveNext");
  fields_.forgetRow();
}

void LateRecordset::AddNew() {
  object_.run(L"AddNew");
  fields_.forgetRow();
}

void LateRecordset::Close() {
  fields_.bind({});
  object_.run(L"Close");
}

}  // namespace kt7::adapters
