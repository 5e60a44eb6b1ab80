#include "host/roles/host_setting_store.h"

#include <array>
#include <span>

#include "host/data/contract/database.h"

namespace kt7::host {

namespace {

const std::string kNumberSql = "SELECT TSetNumber FROM KT7TSetting WHERE TSetKey=?";
const std::string kTextSql = "SELECT TSetText FROM KT7TSetting WHERE TSetKey=?";
const std::string kAdministratorSql =
    "SELECT 1 FROM KT7TUser WHERE TUsrID=? AND TUsrIsAdministrator<>0";
const std::string kModuleAdministratorSql =
    "SELECT 1 FROM KT7TUserModule WHERE TUMdTUsrID=? AND TUMdTCmGAlias=? AND "
    "TUMdIsAdministrator<>0";
const std::string kRightSql = "SELECT 1 FROM KT7TUserRight WHERE TUsRTUsrID=? AND TUsRKey=?";

bool hasRow(const std::string& connectionString, const std::string& sql,
            std::span<const std::string> parameters) {
  return !data::askOne(connectionString, sql, parameters).isNull();
}

}  // namespace

double HostSettingStore::GetNumberSetting(const std::string& key,
                                          const std::string& connectionString) {
  const Value number = data::askOne(connectionString, kNumberSql, std::span(&key, 1));
  return number.isNull() ? 0 : number.toDouble();
}

std::string HostSettingStore::ReadSettingText(const std::string& key,
                                              const ado::ActiveConnection& on, std::int16_t) {
  return data::askOne(on, kTextSql, std::span(&key, 1)).joinedText();
}

std::string HostSettingStore::GetHeadOfficeBranchCode(DataObj& dataObj) {
  const std::string connectionString = dataObj.ConnectionString();
  return ReadSettingText("HeadOfficeBranchCode", connectionString, 0);
}

bool HostSettingStore::IsAdministrator(std::int32_t userID, const std::string& connectionString) {
  const std::array parameters{std::to_string(userID)};
  return hasRow(connectionString, kAdministratorSql, parameters);
}

bool HostSettingStore::IsModuleAdministrator(const std::string& module, std::int32_t userID,
                                             const std::string& connectionString) {
  const std::array parameters{std::to_string(userID), module};
  return hasRow(connectionString, kModuleAdministratorSql, parameters);
}

bool HostSettingStore::UserHasRight(std::int32_t userID, const std::string& rightKey,
                                    const std::string& dataConnectionString, const std::string&,
                                    std::int16_t) {
  const std::array parameters{std::to_string(userID), rightKey};
  return hasRow(dataConnectionString, kRightSql, parameters);
}

}  // namespace kt7::host
