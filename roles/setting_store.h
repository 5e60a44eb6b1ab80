#pragma once

#include <kt7/contract/setting_store.h>
#include "roles/data/sessions.h"

namespace kt7::roles {

/// Company settings in KT7TSetting, user rights in KT7TUser, KT7TUserModule and KT7TUserRight of
/// the company's database. Keys are exact; a user, module or right without a row has none.
class StandardSettingStore : public SettingStore {
 public:
  explicit StandardSettingStore(data::Sessions& sessions) : sessions_(sessions) {}

  double GetNumberSetting(const std::string& key, const std::string& connectionString) override;
  std::string ReadSettingText(const std::string& key, const ado::ActiveConnection& on,
                              std::int16_t reserved) override;
  /// The text setting "HeadOfficeBranchCode" of the data object's database, read on a connection
  /// of its own.
  std::string GetHeadOfficeBranchCode(DataObj& dataObj) override;
  bool IsAdministrator(std::int32_t userID, const std::string& connectionString) override;
  bool IsModuleAdministrator(const std::string& module, std::int32_t userID,
                             const std::string& connectionString) override;
  bool UserHasRight(std::int32_t userID, const std::string& rightKey,
                    const std::string& dataConnectionString, const std::string& appConnectionString,
                    std::int16_t reserved) override;

 private:
  bool hasRow(const std::string& connectionString, const std::string& sql,
              std::span<const std::string> parameters);

  data::Sessions& sessions_;
};

}  // namespace kt7::roles
