#include <kt7/hr_object.h>
#include "base/text.h"
#include "support/opened.h"
#include "support/permission_token.h"

namespace kt7 {

namespace {

constexpr int16_t kReserved = 0;

/// Joins an alternative to a list of conditions.
void orElse(std::string& list, const std::string& condition) {
  if (!list.empty()) list += " OR ";
  list += condition;
}

/// Joins a list of alternatives to the filter.
void also(std::string& filter, const std::string& list) {
  if (list.empty()) return;
  filter += (filter.empty() ? " (" : " AND (") + list + ")";
}

/// The column that carries the token of a level; null where every row counts.
const char* tokenColumn(KT7HRAccessLevel level) {
  if (level == KT7HRAccessLevelWelfare) return "TUETWelfare";
  return level == KT7HRAccessLevelAdmin ? "TUETSalary" : nullptr;
}

std::string visibleTypes(int32_t userID, const std::string& connectionString,
                         const char* neededToken, Platform& platform, Collaborators& with) {
  const auto counts = [&](ado::Recordset& row, const std::string& typeCode) {
    if (neededToken == nullptr) return true;
    const std::string token = row.get(neededToken).joinedText();
    return token == permissionToken(userID, typeCode, with.utility());
  };
  std::string list = " TEmTCode=''";  // never true: a user without rows sees nothing
  OpenRecordset rows(
      platform,
      "SELECT TUETTEmTCode,TUETSalary,TUETWelfare FROM KT7TUserEmpType WHERE TUETTCmGAlias='HR' "
      "AND TUETTUsrID=" +
          std::to_string(userID),
      connectionString);
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string typeCode = rows->get("TUETTEmTCode").joinedText();
    if (counts(*rows, typeCode)) orElse(list, " TEmTCode='" + typeCode + "'");
  }
  rows.close();
  return list;
}

std::string visibleBranches(int32_t userID, const std::string& connectionString,
                            Platform& platform) {
  std::string list = " TEmpTBraCode=''";
  OpenRecordset rows(
      platform,
      "SELECT TUsBTBraCode FROM KT7TUserBranch WHERE TUsBTCmGAlias='HR' AND TUsBTUsrID=" +
          std::to_string(userID),
      connectionString);
  for (; !rows->Eof(); rows->MoveNext()) {
    orElse(list, " TEmpTBraCode='" + rows->get("TUsBTBraCode").joinedText() + "'");
  }
  rows.close();
  return list;
}

}  // namespace

std::string HRObject::HRFilterAccessLevel(int32_t UserID, const std::string& DataconnectionString,
                                          const std::string& AppConnectionString,
                                          const std::string& FieldTypeName, bool CheckAdminLevel) {
  return self().HRFilterAccessLevel2(UserID, "", DataconnectionString, AppConnectionString,
                                     FieldTypeName, CheckAdminLevel);
}

std::string HRObject::HRFilterAccessLevel2(int32_t UserID, const std::string& BranchCode,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName, bool CheckAdminLevel) {
  return self().HRFilterAccessLevel3(UserID, BranchCode, DataconnectionString, AppConnectionString,
                                     FieldTypeName, CheckAdminLevel);
}

std::string HRObject::HRFilterAccessLevel3(int32_t UserID, const std::string& BranchCode,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName, bool CheckAdminLevel) {
  return self().HRFilterAccessLevel4(
      UserID, BranchCode, DataconnectionString, AppConnectionString, FieldTypeName,
      CheckAdminLevel ? KT7HRAccessLevelAdmin : KT7HRAccessLevelUser);
}

std::string HRObject::HRFilterAccessLevel4(int32_t UserID, const std::string& /*BranchCode*/,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName,
                                           KT7HRAccessLevel CheckAdminLevel) {
  const auto hasRight = [&](const char* key) {
    return settings().UserHasRight(UserID, key, DataconnectionString, AppConnectionString,
                                   kReserved);
  };
  if (settings().IsAdministrator(UserID, DataconnectionString)) return "";

  std::string filter;
  const char* neededToken = tokenColumn(CheckAdminLevel);
  if (!hasRight("HRMASTERALLTYPE") || neededToken != nullptr) {
    also(filter,
         visibleTypes(UserID, DataconnectionString, neededToken, platform_, collaborators_));
  }
  const std::string typeColumn = upperCase(FieldTypeName);
  if (!typeColumn.empty()) filter = replaceAll(filter, "TEmTCode", typeColumn);
  if (typeColumn == "TEMPTEMTCODE" && !hasRight("HRMASTERALLBRANCH")) {
    also(filter, visibleBranches(UserID, DataconnectionString, platform_));
  }
  return filter;
}

bool HRObject::HRFilterAccessSalary(int32_t UserID, const std::string& DataconnectionString,
                                    const std::string& /*AppConnectionString*/,
                                    const std::string& EmployeeType) {
  if (settings().IsAdministrator(UserID, DataconnectionString)) return true;
  if (settings().IsModuleAdministrator("HR", UserID, DataconnectionString)) return true;

  const std::string user = std::to_string(UserID);
  std::string typeCode = EmployeeType;
  std::string anyEntry;
  if (typeCode.empty()) {
    anyEntry = " AND TUETSalary<>''";
    typeCode = dataTool().QueryText(
        "TUETTEmTCode",
        "SELECT TUETTEmTCode FROM KT7TUserEmpType Where TUETTUsrID=" + user + anyEntry,
        DataconnectionString);
  }
  const std::string token =
      dataTool().QueryText("TUeTSalary",
                           "SELECT TUeTSalary FROM KT7TUserEmpType Where TUETTEmTCode='" +
                               typeCode + "' AND TUETTUsrID=" + user + anyEntry,
                           DataconnectionString);
  return !token.empty() && token == permissionToken(UserID, typeCode, utility());
}

}  // namespace kt7
