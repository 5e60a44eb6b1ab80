#include "host/trace/traced_setting_store.h"

#include "host/trace/traced_connection.h"

namespace kt7::trace {

namespace {

Step settingStep(std::string_view operation, std::string_view key, std::int32_t user = 0,
                 std::string_view on = kOnOwn) {
  Step step = stepOf(StepKind::Setting, on);
  step.operation = operation;
  step.key = key;
  step.user = user;
  return step;
}

}  // namespace

double TracedSettingStore::GetNumberSetting(const std::string& key,
                                            const std::string& connectionString) {
  return observed(observer_, settingStep("GetNumberSetting", key),
                  [&] { return inner_->GetNumberSetting(key, connectionString); });
}

std::string TracedSettingStore::ReadSettingText(const std::string& key,
                                                const ado::ActiveConnection& on,
                                                std::int16_t reserved) {
  return observed(observer_, settingStep("ReadSettingText", key, 0, onOf(on)),
                  [&] { return inner_->ReadSettingText(key, on, reserved); });
}

std::string TracedSettingStore::GetHeadOfficeBranchCode(DataObj& dataObj) {
  return observed(observer_, settingStep("GetHeadOfficeBranchCode", "HeadOfficeBranchCode"),
                  [&] { return inner_->GetHeadOfficeBranchCode(dataObj); });
}

bool TracedSettingStore::IsAdministrator(std::int32_t userID, const std::string& connectionString) {
  return observed(observer_, settingStep("IsAdministrator", "", userID),
                  [&] { return inner_->IsAdministrator(userID, connectionString); });
}

bool TracedSettingStore::IsModuleAdministrator(const std::string& module, std::int32_t userID,
                                               const std::string& connectionString) {
  return observed(observer_, settingStep("IsModuleAdministrator", module, userID),
                  [&] { return inner_->IsModuleAdministrator(module, userID, connectionString); });
}

bool TracedSettingStore::UserHasRight(std::int32_t userID, const std::string& rightKey,
                                      const std::string& dataConnectionString,
                                      const std::string& appConnectionString,
                                      std::int16_t reserved) {
  return observed(observer_, settingStep("UserHasRight", rightKey, userID), [&] {
    return inner_->UserHasRight(userID, rightKey, dataConnectionString, appConnectionString,
                                reserved);
  });
}

}  // namespace kt7::trace
