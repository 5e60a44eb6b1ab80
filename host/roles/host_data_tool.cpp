#include "host/roles/host_data_tool.h"

#include <span>

#include "host/data/contract/database.h"
#include "host/roles/date_text.h"
#include "host/roles/lookup_statement.h"

namespace kt7::host {

namespace {

double numberOf(const Value& value) { return value.isNull() ? 0 : value.toDouble(); }
Date dateOf(const Value& value) { return value.isNull() ? Date() : value.toDate(); }

Value firstRowField(const std::string& field, const std::string& sql,
                    const ado::ActiveConnection& on) {
  const auto rows = data::createRecordset();
  rows->Open(sql, on, ado::kStatic, ado::kReadOnly);
  Value value;
  if (!rows->Eof()) value = rows->get(field);
  rows->Close();
  return value;
}

}  // namespace

Value HostDataTool::lookUp(std::string_view resultColumn, const std::string& keyColumn,
                           const std::string& keyValue, const std::string& table,
                           const ado::ActiveConnection& on) {
  writeLookupStatement(sql_, resultColumn, keyColumn, table);
  return data::askOne(on, sql_, std::span(&keyValue, 1));
}

std::string HostDataTool::LookupText(const std::string& defaultText, std::int16_t, std::int16_t,
                                     const std::string& keyColumn, const std::string& keyValue,
                                     const std::string& resultColumn, const std::string& table,
                                     const ado::ActiveConnection& on) {
  const Value value = lookUp(resultColumn, keyColumn, keyValue, table, on);
  return value.isNull() ? defaultText : value.toText();
}

double HostDataTool::LookupDouble(const std::string&, std::int16_t, std::int16_t,
                                  const std::string& keyColumn, const std::string& keyValue,
                                  const std::string& resultColumn, const std::string& table,
                                  const ado::ActiveConnection& on) {
  return numberOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

double HostDataTool::LookupNumber(const std::string&, std::int16_t, std::int16_t,
                                  const std::string& keyColumn, const std::string& keyValue,
                                  const std::string& resultColumn, const std::string& table,
                                  const ado::ActiveConnection& on) {
  return numberOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

std::string HostDataTool::LookupFieldText(const std::string& defaultText, std::int16_t reserved1,
                                          std::int16_t reserved2, const std::string& keyColumn,
                                          const std::string& keyValue,
                                          const std::string& resultColumn, const std::string& table,
                                          const ado::ActiveConnection& on) {
  return LookupText(defaultText, reserved1, reserved2, keyColumn, keyValue, resultColumn, table,
                    on);
}

Date HostDataTool::LookupDate(const std::string&, std::int16_t, std::int16_t,
                              const std::string& keyColumn, const std::string& keyValue,
                              const std::string& resultColumn, const std::string& table,
                              const ado::ActiveConnection& on) {
  return dateOf(lookUp(resultColumn, keyColumn, keyValue, table, on));
}

bool HostDataTool::RecordExists(const std::string& keyColumn, std::int16_t,
                                const std::string& keyValue, const std::string& table,
                                const ado::ActiveConnection& on, const std::string&,
                                const std::string&, bool) {
  // A row whose result column is null exists all the same.
  return !lookUp("1", keyColumn, keyValue, table, on).isNull();
}

double HostDataTool::QueryNumber(const std::string& field, const std::string& sql,
                                 const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

double HostDataTool::QueryDouble(const std::string& field, const std::string& sql,
                                 const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

double HostDataTool::QueryValue(const std::string& field, const std::string& sql,
                                const ado::ActiveConnection& on) {
  return numberOf(firstRowField(field, sql, on));
}

std::string HostDataTool::QueryText(const std::string& field, const std::string& sql,
                                    const ado::ActiveConnection& on) {
  return firstRowField(field, sql, on).joinedText();
}

Date HostDataTool::QueryDate(const std::string& field, const std::string& sql,
                             const ado::ActiveConnection& on) {
  return dateOf(firstRowField(field, sql, on));
}

std::string HostDataTool::PrepareSql(const std::string& sql, const std::string&) {
  // Every engine reads a date written as a quoted yyyy-mm-dd.
  return resolveDateMarkers(sql);
}

std::string HostDataTool::ShowPicker(const PickerRequest& request,
                                     const std::string& connectionString) {
  return picker_(request, connectionString, false);
}

std::string HostDataTool::ShowMultiPicker(const PickerRequest& request,
                                          const std::string& connectionString, bool multiSelect) {
  return picker_(request, connectionString, multiSelect);
}

}  // namespace kt7::host
