#include "fronts/com/adapters/answered.h"
#include "fronts/com/adapters/collaborators.h"
#include "fronts/com/adapters/late_connection.h"

namespace kt7::adapters {

std::string LateDataTool::LookupText(const std::string& defaultText, std::int16_t reserved1,
                                     std::int16_t reserved2, const std::string& keyColumn,
                                     const std::string& keyValue, const std::string& resultColumn,
                                     const std::string& table, const ado::ActiveConnection& on) {
  return answered<std::string>(object_, L"LookupText", defaultText, reserved1, reserved2, keyColumn,
                               keyValue, resultColumn, table, argumentOf(on).raw());
}
double LateDataTool::LookupDouble(const std::string& defaultText, std::int16_t reserved1,
                                  std::int16_t reserved2, const std::string& keyColumn,
                                  const std::string& keyValue, const std::string& resultColumn,
                                  const std::string& table, const ado::ActiveConnection& on) {
  return answered<double>(object_, L"LookupDouble", defaultText, reserved1, reserved2, keyColumn,
                          keyValue, resultColumn, table, argumentOf(on).raw());
}
double LateDataTool::LookupNumber(const std::string& defaultText, std::int16_t reserved1,
                                  std::int16_t reserved2, const std::string& keyColumn,
                                  const std::string& keyValue, const std::string& resultColumn,
                                  const std::string& table, const ado::ActiveConnection& on) {
  return answered<double>(object_, L"LookupNumber", defaultText, reserved1, reserved2, keyColumn,
                          keyValue, resultColumn, table, argumentOf(on).raw());
}
std::string LateDataTool::LookupFieldText(const std::string& defaultText, std::int16_t reserved1,
                                          std::int16_t reserved2, const std::string& keyColumn,
                                          const std::string& keyValue,
                                          const std::string& resultColumn, const std::string& table,
                                          const ado::ActiveConnection& on) {
  return answered<std::string>(object_, L"LookupFieldText", defaultText, reserved1, reserved2,
                               keyColumn, keyValue, resultColumn, table, argumentOf(on).raw());
}
Date LateDataTool::LookupDate(const std::string& defaultText, std::int16_t reserved1,
                              std::int16_t reserved2, const std::string& keyColumn,
                              const std::string& keyValue, const std::string& resultColumn,
                              const std::string& table, const ado::ActiveConnection& on) {
  return answered<Date>(object_, L"LookupDate", defaultText, reserved1, reserved2, keyColumn,
                        keyValue, resultColumn, table, argumentOf(on).raw());
}
bool LateDataTool::RecordExists(const std::string& keyColumn, std::int16_t reserved,
                                const std::string& keyValue, const std::string& table,
                                const ado::ActiveConnection& on, const std::string& resultColumn,
                                const std::string& defaultText, bool flag) {
  return answered<bool>(object_, L"RecordExists", keyColumn, reserved, keyValue, table,
                        argumentOf(on).raw(), resultColumn, defaultText, flag);
}

double LateDataTool::QueryNumber(const std::string& field, const std::string& sql,
                                 const ado::ActiveConnection& on) {
  return answered<double>(object_, L"QueryNumber", field, sql, argumentOf(on).raw());
}
double LateDataTool::QueryDouble(const std::string& field, const std::string& sql,
                                 const ado::ActiveConnection& on) {
  return answered<double>(object_, L"QueryDouble", field, sql, argumentOf(on).raw());
}
double LateDataTool::QueryValue(const std::string& field, const std::string& sql,
                                const ado::ActiveConnection& on) {
  return answered<double>(object_, L"QueryValue", field, sql, argumentOf(on).raw());
}
std::string LateDataTool::QueryText(const std::string& field, const std::string& sql,
                                    const ado::ActiveConnection& on) {
  return answered<std::string>(object_, L"QueryText", field, sql, argumentOf(on).raw());
}
Date LateDataTool::QueryDate(const std::string& field, const std::string& sql,
                             const ado::ActiveConnection& on) {
  return answered<Date>(object_, L"QueryDate", field, sql, argumentOf(on).raw());
}

std::string LateDataTool::PrepareSql(const std::string& sql, const std::string& databaseType) {
  return answered<std::string>(object_, L"PrepareSql", sql, databaseType);
}

std::string LateDataTool::ShowPicker(const PickerRequest& request,
                                     const std::string& connectionString) {
  const auto& options = request.options;
  return answered<std::string>(object_, L"ShowPicker", request.title, request.key, request.columns,
                               request.headers, request.widths, request.kinds, request.source,
                               connectionString, options[0], options[1], options[2], options[3]);
}
std::string LateDataTool::ShowMultiPicker(const PickerRequest& request,
                                          const std::string& connectionString, bool multiSelect) {
  const auto& options = request.options;
  return answered<std::string>(object_, L"ShowMultiPicker", request.title, request.key,
                               request.columns, request.headers, request.widths, request.kinds,
                               request.source, connectionString, options[0], options[1], options[2],
                               options[3], multiSelect);
}

}  // namespace kt7::adapters
