#pragma once

#include <kt7/contract/data_tool.h>
#include <kt7/roles/picker.h>
#include <kt7/value.h>
#include "roles/data/sessions.h"

namespace kt7::roles {

/// Lookups, queries and pickers. The key of a lookup is bound, so that a
/// quote in it finds no row; a text where a number is asked for is a type mismatch. The picker is
/// looked at with each call and outlives the tool.
class StandardDataTool : public DataTool {
 public:
  StandardDataTool(data::Sessions& sessions, const Picker& picker)
      : sessions_(sessions), picker_(picker) {}

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

  std::string PrepareSql(const std::string& sql, const std::string& databaseType) override;

  std::string ShowPicker(const PickerRequest& request,
                         const std::string& connectionString) override;
  std::string ShowMultiPicker(const PickerRequest& request, const std::string& connectionString,
                              bool multiSelect) override;

 private:
  Value lookUp(std::string_view resultColumn, const std::string& keyColumn,
               const std::string& keyValue, const std::string& table,
               const ado::ActiveConnection& on);

  Value firstRowField(const std::string& field, const std::string& sql,
                      const ado::ActiveConnection& on);

  data::Sessions& sessions_;
  const Picker& picker_;
  std::string sql_;  // memory of the last lookup's statement, used again
};

}  // namespace kt7::roles
