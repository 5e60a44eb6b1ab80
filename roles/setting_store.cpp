#include "roles/setting_store.h"

#include <array>

#include "base/setting_names.h"
#include "roles/data/connection.h"

namespace kt7::roles {

namespace {

const std::string kNumberSql = "SELECT TSetNumber FROM KT7TSetting WHERE TSetKey=?";
const std::string kTextSql = "SELECT TSetText FROM KT7TSetting WHERE TSetKey=?";
const std::string kAdministratorSql =
    "SELECT 1 FROM KT7TUser WHERE TUsrID=? AND TUsrIsAdministrator<>0";
const std::string kModuleAdministratorSql =
    "SELECT 1 FROM KT7TUserModule WHERE TUMdTUsrID=? AND TUMdTCmGAlias=? AND "
    "TUMdIsAdministrator<>0";
const std::string kRightSql = "SELECT 1 FROM KT7TUserRight WHERE TUsRTUsrID=? AND TUsRKey=?";

}  // namespace

bool StandardSettingStore::hasRow(const std::string& connectionString, const std::string& sql,
                                  std::span<const std::string> parameters) {
  return !data::askOne(sessions_, connectionString, sql, parameters).isNull();
}

double StandardSettingStore::GetNumberSetting(const std::string& key,
                                              const std::string& connectionString) {
  const Value number = data::askOne(sessions_, connectionString, kNumberSql, std::span(&key, 1));
  return number.isNull() ? 0 : number.toDouble();
}

std::string StandardSettingStore::ReadSettingText(const std::string& key,
                                                  const ado::ActiveConnection& on, std::int16_t) {
  return data::askOne(sessions_, on, kTextSql, std::span(&key, 1)).joinedText();
}

std::string StandardSettingStore::GetHeadOfficeBranchCode(DataObj& dataObj) {
  const std::string connectionString = dataObj.ConnectionString();
  return ReadSettingText(setting_name::kHeadOfficeBranch, connectionString, 0);
}

bool StandardSettingStore::IsAdministrator(std::int32_t userID,
                                           const std::string& connectionString) {
  const std::array parameters{std::to_string(userID)};
  return hasRow(connectionString, kAdministratorSql, parameters);
}

bool StandardSettingStore::IsModuleAdministrator(const std::string& module, std::int32_t userID,
                                                 const std::string& connectionString) {
  const std::array parameters{std::to_string(userID), module};
  return hasRow(connectionString, kModuleAdministratorSql, parameters);
}

bool StandardSettingStore::UserHasRight(std::int32_t userID, const std::string& rightKey,
                                        const std::string& dataConnectionString, const std::string&,
                                        std::int16_t) {
  const std::array parameters{std::to_string(userID), rightKey};
  return hasRow(dataConnectionString, kRightSql, parameters);
}

}  // namespace kt7::roles
