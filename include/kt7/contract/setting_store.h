#pragma once

#include <cstdint>
#include <string>

#include <kt7/contract/data_obj.h>
#include <kt7/export.h>

namespace kt7 {

/// Named company settings and user rights kept in the host's database. A setting that is missing
/// or null answers 0 or "".
class KT7_API SettingStore {
 public:
  virtual ~SettingStore() = default;

  virtual double GetNumberSetting(const std::string& key, const std::string& connectionString) = 0;
  virtual std::string ReadSettingText(const std::string& key, const ado::ActiveConnection& on,
                                      std::int16_t reserved) = 0;
  virtual std::string GetHeadOfficeBranchCode(DataObj& dataObj) = 0;
  /// True for a user without restrictions.
  virtual bool IsAdministrator(std::int32_t userID, const std::string& connectionString) = 0;
  /// True for an administrator of the module ("HR").
  virtual bool IsModuleAdministrator(const std::string& module, std::int32_t userID,
                                     const std::string& connectionString) = 0;
  virtual bool UserHasRight(std::int32_t userID, const std::string& rightKey,
                            const std::string& dataConnectionString,
                            const std::string& appConnectionString, std::int16_t reserved) = 0;
};

}  // namespace kt7
