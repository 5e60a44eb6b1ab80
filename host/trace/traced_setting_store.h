#pragma once

#include <memory>

#include <kt7/contract/setting_store.h>
#include "host/trace/step.h"

namespace kt7::trace {

/// A setting store whose readings are observed.
class TracedSettingStore : public SettingStore {
 public:
  TracedSettingStore(std::unique_ptr<SettingStore> inner, StepObserver& observer)
      : inner_(std::move(inner)), observer_(observer) {}

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
  std::unique_ptr<SettingStore> inner_;
  StepObserver& observer_;
};

}  // namespace kt7::trace
