#pragma once

#include <string>

#include <kt7/contract/data_tool.h>
#include <kt7/contract/setting_store.h>
#include <kt7/contract/utility_object.h>
#include "fronts/com/automation/late_object.h"

/// The host's collaborators, reached by the names of their members with the arguments in the order
/// of the contract. The pickers' four option flags follow the connection string one by one, and
/// ShowMultiPicker's multiSelect is last.
namespace kt7::adapters {

using automation::LateObject;

class LateUtilityObject : public UtilityObject {
 public:
  explicit LateUtilityObject(LateObject object) : object_(std::move(object)) {}

  double TextToNumber(const std::string& text) override;
  std::int16_t TextToInteger(const std::string& text, bool flag) override;
  double RoundToDigits(double value, std::int16_t digits) override;
  double RoundValue(double value, std::int16_t digits, std::int16_t mode) override;
  std::string SqlDateText(Date date) override;
  std::string SqlShortDateText(Date date) override;
  std::string SqlDateTimeText(Date date, std::int16_t form) override;
  bool IsBlankDate(Date date) override;
  bool IsValidDateText(const std::string& text) override;
  Date TextToDate(const std::string& text) override;
  Date AddMonths(Date date, std::int16_t count) override;
  std::int16_t CurrentYear() override;
  std::string MonthNumberText(std::int16_t month, std::int16_t form,
                              std::int16_t language) override;
  Date FallbackDate() override;
  std::string EncodeWithKey(const std::string& text, const std::string& key) override;
  std::string EncodeToken(const std::string& text) override;

 private:
  LateObject object_;
};

class LateDataTool : public DataTool {
 public:
  explicit LateDataTool(LateObject object) : object_(std::move(object)) {}

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
  LateObject object_;
};

class LateSettingStore : public SettingStore {
 public:
  explicit LateSettingStore(LateObject object) : object_(std::move(object)) {}

  double GetNumberSetting(const std::string& key, const std::string& connectionString) override;
  std::string ReadSettingText(const std::string& key, const ado::ActiveConnection& on,
                              std::int16_t reserved) override;
  std::string GetHeadOfficeBranchCode(DataObj& dataObj) override;
  bool IsAdministrator(std::int32_t userID, const std::string& connectionString) override;
  bool IsModuleAdministrator(const std::string& module, std::int32_t userID,
                             const std::string& connectionString) override;
  bool UserHasRight(std::int32_t userID, const std::string& rightKey,
                    const std::string& dataConnectionString, const std::string& appConnectionString,
                    std::int16_t reserved) override;

 private:
  LateObject object_;
};

}  // namespace kt7::adapters
