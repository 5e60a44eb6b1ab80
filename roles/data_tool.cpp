#include "roles/data_tool.h"

#include <span>

#include "roles/data/connection.h"
#include "roles/data/recordset.h"
#include "roles/texts/date_text.h"
#include "roles/texts/lookup_statement.h"

namespace kt7::roles {

namespace {

double numberOf(const Value& value) { return value.isNull() ? 0 : value.toDouble(); }
Date dateOf(const Value& value) { return value.isNull() ? Date() : value.toDate(); }

}  // namespace

Value StandardDataTool::firstRowField(const std::string& field, const std::string& sql,
                                      const ado::ActiveConnection& on) {
  data::Recordset rows(sessions_);
  rows.Open(sql, on, ado::kStatic, ado::kReadOnly, ado::kUnspecified);
  return rows.Eof() ? Value() : rows.get(field);
}

Value StandardDataTool::lookUp(std::string_view resultColumn, const std::string& keyColumn,
                               const std::string& keyValue, const std::string& table,
                               const ado::ActiveConnection& on) {
  writeLookupStatement(sql_, resultColumn, keyColumn, table);
  return data::askOne(sessions_, on, sql_, std::span(&keyValue, 1));
}

std::string StandardDataTool::LookupText(const std::string& defaultText, std::int16_t, std::int16_t,
                                         const std::string& keyColumn, const std::string& keyValue,
                                         const std::string& resultColumn, const std::string& table,
                                         const ado::ActiveConnection& on) {
  const Value value = lookUp(resultColumn, keyColumn, keyValue, table, on);
  return value.isNull() ? defaultText : value.toText();
}

double StandardDataTool::LookupDouble(const std::string&, std::int16_t, std::int16_t,
                                      const std::string& keyColumn, const std::string& keyValue,
                                      const std::string& resultColumn, const std::string& table,
                                      const ado::ActiveConnection& on) {
  return numberOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

double StandardDataTool::LookupNumber(const std::string&, std::int16_t, std::int16_t,
                                      const std::string& keyColumn, const std::string& keyValue,
                                      const std::string& resultColumn, const std::string& table,
                                      const ado::ActiveConnection& on) {
  return numberOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

std::string StandardDataTool::LookupFieldText(
    const std::string& defaultText, std::int16_t reserved1, std::int16_t reserved2,
    const std::string& keyColumn, const std::string& keyValue, const std::string& resultColumn,
    const std::string& table, const ado::ActiveConnection& on) {
  return LookupText(defaultText, reserved1, reserved2, keyColumn, keyValue, resultColumn, table,
                    on);
}

Date StandardDataTool::LookupDate(const std::string&, std::int16_t, std::int16_t,
                                  const std::string& keyColumn, const std::string& keyValue,
                                  const std::string& resultColumn, const std::string& table,
                                  const ado::ActiveConnection& on) {
  return dateOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

bool StandardDataTool::RecordExists(const std::string& keyColumn, std::int16_t,
                                    const std::string& keyValue, const std::string& table,
                                    const ado::ActiveConnection& on, const std::string&,
                                    const std::string&, bool) {
  // A row whose result column is null exists all the same.
  return !lookUp("1", keyColumn, keyValue, table, on).isNull();
}

double StandardDataTool::QueryNumber(const std::string& field, const std::string& sql,
                                     const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

double StandardDataTool::QueryDouble(const std::string& field, const std::string& sql,
                                     const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

double StandardDataTool::QueryValue(const std::string& field, const std::string& sql,
                                    const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

std::string StandardDataTool::QueryText(const std::string& field, const std::string& sql,
                                        const ado::ActiveConnection& on) {
  return firstRowField(field, sql, on).joinedText();
}

Date StandardDataTool::QueryDate(const std::string& field, const std::string& sql,
                                 const ado::ActiveConnection& on) {
  return dateOf(firstRowField(field, sql, on));
}

std::string StandardDataTool::PrepareSql(const std::string& sql, const std::string&) {
  // Every engine reads a date written as a quoted yyyy-mm-dd.
  return resolveDateMarkers(sql);
}

std::string StandardDataTool::ShowPicker(const PickerRequest& request,
                                         const std::string& connectionString) {
  return picker_(request, connectionString, false);
}

std::string StandardDataTool::ShowMultiPicker(const PickerRequest& request,
                                              const std::string& connectionString,
                                              bool multiSelect) {
  return picker_(request, connectionString, multiSelect);
}

}  // namespace kt7::roles
