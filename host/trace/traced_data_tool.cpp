#include "host/trace/traced_data_tool.h"

#include "host/trace/traced_connection.h"

namespace kt7::trace {

namespace {

Step lookupStep(std::string_view operation, const std::string& keyColumn,
                const std::string& keyValue, const std::string& resultColumn,
                const std::string& table, const ado::ActiveConnection& on) {
  Step step = stepOf(StepKind::Lookup, onOf(on));
  step.operation = operation;
  step.keyColumn = keyColumn;
  step.keyValue = keyValue;
  step.resultColumn = resultColumn;
  step.table = table;
  return step;
}

Step queryStep(std::string_view operation, const std::string& field, const std::string& sql,
               const ado::ActiveConnection& on) {
  Step step = stepOf(StepKind::Query, onOf(on), sql);
  step.operation = operation;
  step.resultColumn = field;
  return step;
}

Step pickerStep(std::string_view operation, const PickerRequest& request, bool multi) {
  Step step = stepOf(StepKind::Picker, {});
  step.operation = operation;
  step.picker = &request;
  step.multi = multi;
  return step;
}

}  // namespace

std::string TracedDataTool::LookupText(const std::string& defaultText, std::int16_t reserved1,
                                       std::int16_t reserved2, const std::string& keyColumn,
                                       const std::string& keyValue, const std::string& resultColumn,
                                       const std::string& table, const ado::ActiveConnection& on) {
  return observed(observer_, lookupStep("LookupText", keyColumn, keyValue, resultColumn, table, on),
                  [&] {
                    return inner_->LookupText(defaultText, reserved1, reserved2, keyColumn,
                                              keyValue, resultColumn, table, on);
                  });
}

double TracedDataTool::LookupDouble(const std::string& defaultText, std::int16_t reserved1,
                                    std::int16_t reserved2, const std::string& keyColumn,
                                    const std::string& keyValue, const std::string& resultColumn,
                                    const std::string& table, const ado::ActiveConnection& on) {
  return observed(observer_,
                  lookupStep("LookupDouble", keyColumn, keyValue, resultColumn, table, on), [&] {
                    return inner_->LookupDouble(defaultText, reserved1, reserved2, keyColumn,
                                                keyValue, resultColumn, table, on);
                  });
}

double TracedDataTool::LookupNumber(const std::string& defaultText, std::int16_t reserved1,
                                    std::int16_t reserved2, const std::string& keyColumn,
                                    const std::string& keyValue, const std::string& resultColumn,
                                    const std::string& table, const ado::ActiveConnection& on) {
  return observed(observer_,
                  lookupStep("LookupNumber", keyColumn, keyValue, resultColumn, table, on), [&] {
                    return inner_->LookupNumber(defaultText, reserved1, reserved2, keyColumn,
                                                keyValue, resultColumn, table, on);
                  });
}

std::string TracedDataTool::LookupFieldText(const std::string& defaultText, std::int16_t reserved1,
                                            std::int16_t reserved2, const std::string& keyColumn,
                                            const std::string& keyValue,
                                            const std::string& resultColumn,
                                            const std::string& table,
                                            const ado::ActiveConnection& on) {
  return observed(observer_,
                  lookupStep("LookupFieldText", keyColumn, keyValue, resultColumn, table, on), [&] {
                    return inner_->LookupFieldText(defaultText, reserved1, reserved2, keyColumn,
                                                   keyValue, resultColumn, table, on);
                  });
}

Date TracedDataTool::LookupDate(const std::string& defaultText, std::int16_t reserved1,
                                std::int16_t reserved2, const std::string& keyColumn,
                                const std::string& keyValue, const std::string& resultColumn,
                                const std::string& table, const ado::ActiveConnection& on) {
  return observed(observer_, lookupStep("LookupDate", keyColumn, keyValue, resultColumn, table, on),
                  [&] {
                    return inner_->LookupDate(defaultText, reserved1, reserved2, keyColumn,
                                              keyValue, resultColumn, table, on);
                  });
}

bool TracedDataTool::RecordExists(const std::string& keyColumn, std::int16_t reserved,
                                  const std::string& keyValue, const std::string& table,
                                  const ado::ActiveConnection& on, const std::string& resultColumn,
                                  const std::string& defaultText, bool flag) {
  return observed(observer_,
                  lookupStep("RecordExists", keyColumn, keyValue, resultColumn, table, on), [&] {
                    return inner_->RecordExists(keyColumn, reserved, keyValue, table, on,
                                                resultColumn, defaultText, flag);
                  });
}

double TracedDataTool::QueryNumber(const std::string& field, const std::string& sql,
                                   const ado::ActiveConnection& on) {
  return observed(observer_, queryStep("QueryNumber", field, sql, on),
                  [&] { return inner_->QueryNumber(field, sql, on); });
}

double TracedDataTool::QueryDouble(const std::string& field, const std::string& sql,
                                   const ado::ActiveConnection& on) {
  return observed(observer_, queryStep("QueryDouble", field, sql, on),
                  [&] { return inner_->QueryDouble(field, sql, on); });
}

double TracedDataTool::QueryValue(const std::string& field, const std::string& sql,
                                  const ado::ActiveConnection& on) {
  return observed(observer_, queryStep("QueryValue", field, sql, on),
                  [&] { return inner_->QueryValue(field, sql, on); });
}

std::string TracedDataTool::QueryText(const std::string& field, const std::string& sql,
                                      const ado::ActiveConnection& on) {
  return observed(observer_, queryStep("QueryText", field, sql, on),
                  [&] { return inner_->QueryText(field, sql, on); });
}

Date TracedDataTool::QueryDate(const std::string& field, const std::string& sql,
                               const ado::ActiveConnection& on) {
  return observed(observer_, queryStep("QueryDate", field, sql, on),
                  [&] { return inner_->QueryDate(field, sql, on); });
}

std::string TracedDataTool::ShowPicker(const PickerRequest& request,
                                       const std::string& connectionString) {
  return observed(observer_, pickerStep("ShowPicker", request, false),
                  [&] { return inner_->ShowPicker(request, connectionString); });
}

std::string TracedDataTool::ShowMultiPicker(const PickerRequest& request,
                                            const std::string& connectionString, bool multiSelect) {
  return observed(observer_, pickerStep("ShowMultiPicker", request, multiSelect),
                  [&] { return inner_->ShowMultiPicker(request, connectionString, multiSelect); });
}

}  // namespace kt7::trace
