#pragma once

#include <memory>

#include <kt7/contract/data_tool.h>
#include "host/trace/step.h"

namespace kt7::trace {

/// A data tool whose lookups, queries and pickers are observed. Preparing a text is no step.
class TracedDataTool : public DataTool {
 public:
  TracedDataTool(std::unique_ptr<DataTool> inner, StepObserver& observer)
      : inner_(std::move(inner)), observer_(observer) {}

  std::string LookupText(const std::string& defaultText, std::int16_t reserved1,
                         std::int16_t reserved2, const std::string& keyColumn,
                         const std::string& keyValue, const std::string& resultColumn,
                         const std::string& table, const ado::ActiveConnection& on) override;
  double LookupDouble(const std::string& defaultText, std::int16_t reserved1,
                      std::int16_t reserved2, const std::string& keyColumn,
                      const std::string& keyValue, const std::string& resultColumn,
                      const std::string& table, const ado::ActiveConnection& on) override;
  double LookupNumber(const std::string& defaultText, std::int16_t reserved1,
                      std::int16_t reserved2, const std::string& keyColumn,
                      const std::string& keyValue, const std::string& resultColumn,
                      const std::string& table, const ado::ActiveConnection& on) override;
  std::string LookupFieldText(const std::string& defaultText, std::int16_t reserved1,
                              std::int16_t reserved2, const std::string& keyColumn,
                              const std::string& keyValue, const std::string& resultColumn,
                              const std::string& table, const ado::ActiveConnection& on) override;
  Date LookupDate(const std::string& defaultText, std::int16_t reserved1, std::int16_t reserved2,
                  const std::string& keyColumn, const std::string& keyValue,
                  const std::string& resultColumn, const std::string& table,
                  const ado::ActiveConnection& on) override;
  bool RecordExists(const std::string& keyColumn, std::int16_t reserved,
                    const std::string& keyValue, const std::string& table,
                    const ado::ActiveConnection& on, const std::string& resultColumn,
                    const std::string& defaultText, bool flag) override;

  double QueryNumber(const std::string& field, const std::string& sql,
                     const ado::ActiveConnection& on) override;
  double QueryDouble(const std::string& field, const std::string& sql,
                     const ado::ActiveConnection& on) override;
  double QueryValue(const std::string& field, const std::string& sql,
                    const ado::ActiveConnection& on) override;
  std::string QueryText(const std::string& field, const std::string& sql,
                        const ado::ActiveConnection& on) override;
  Date QueryDate(const std::string& field, const std::string& sql,
                 const ado::ActiveConnection& on) override;

  std::string PrepareSql(const std::string& sql, const std::string& databaseType) override {
    return inner_->PrepareSql(sql, databaseType);
  }

  std::string ShowPicker(const PickerRequest& request,
                         const std::string& connectionString) override;
  std::string ShowMultiPicker(const PickerRequest& request, const std::string& connectionString,
                              bool multiSelect) override;

 private:
  std::unique_ptr<DataTool> inner_;
  StepObserver& observer_;
};

}  // namespace kt7::trace
