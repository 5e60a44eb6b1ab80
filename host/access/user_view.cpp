#include "host/access/user_view.h"

#include <algorithm>

#include <kt7/hr_object.h>
#include "host/access/user_rights.h"
#include "support/opened.h"
#include "support/permission_token.h"

namespace kt7::host {

namespace {

/// The questions about one user, on one database.
class UserQuestions {
 public:
  UserQuestions(Platform& platform, const std::string& connectionString, std::int32_t user)
      : platform_(platform), connectionString_(connectionString), user_(user), hr_(platform) {}

  UserView answer();

 private:
  template <typename Read>
  void forEach(const std::string& sql, Read read) {
    OpenRecordset rows(platform_, sql, connectionString_);
    for (; !rows->Eof(); rows->MoveNext()) read(*rows);
    rows.close();
  }
  std::string ofUser(const char* column) const { return column + ("=" + std::to_string(user_)); }
  std::string filter(const char* typeColumn, KT7HRAccessLevel level) {
    return hr_.HRFilterAccessLevel4(user_, "", connectionString_, connectionString_, typeColumn,
                                    level);
  }
  std::int64_t count(const std::string& source) {
    std::int64_t number = 0;
    forEach("SELECT COUNT(*) AS A FROM " + source, [&](ado::Recordset& row) {
      number = static_cast<std::int64_t>(row.get("A").toDouble());
    });
    return number;
  }

  void readUser(UserView& view);
  void readRights(UserView& view);
  void readBranches(UserView& view);
  std::vector<NamedCode> typesAt(KT7HRAccessLevel level);
  std::vector<NamedCode> salariesOneByOne();
  void readTokens(UserView& view);
  void findOwner(const std::string& token, DeadToken& dead);

  Platform& platform_;
  std::string connectionString_;
  std::int32_t user_;
  HRObject hr_;
};

constexpr const char* kEveryType = "SELECT TEmTCode,TEmTName FROM KT7TEmployeeType";

NamedCode typeIn(ado::Recordset& row) {
  return {row.get("TEmTCode").joinedText(), row.get("TEmTName").joinedText()};
}

void UserQuestions::readUser(UserView& view) {
  view.user = user_;
  forEach("SELECT TUsrName FROM KT7TUser WHERE " + ofUser("TUsrID"), [&](ado::Recordset& row) {
    view.registered = true;
    view.name = row.get("TUsrName").joinedText();
  });
  const auto settings = platform_.createSettingStore();
  view.administrator = settings->IsAdministrator(user_, connectionString_);
  view.moduleAdministrator =
      settings->IsModuleAdministrator(kModuleAlias, user_, connectionString_);
  const auto holds = [&](const char* key) {
    return settings->UserHasRight(user_, key, connectionString_, connectionString_, 0);
  };
  view.allTypes = holds(kSeesAllTypes);
  view.allBranches = holds(kSeesAllBranches);
}

void UserQuestions::readRights(UserView& view) {
  forEach("SELECT TUsRKey FROM KT7TUserRight WHERE " + ofUser("TUsRTUsrID") + " ORDER BY TUsRKey",
          [&](ado::Recordset& row) {
            view.hasRights = true;
            const std::string key = row.get("TUsRKey").joinedText();
            if (key != kSeesAllTypes && key != kSeesAllBranches) view.otherRights.push_back(key);
          });
}

void UserQuestions::readBranches(UserView& view) {
  forEach(
      "SELECT TUsBTBraCode,TBraName FROM KT7TUserBranch LEFT JOIN KT7TBranch ON "
      "TBraCode=TUsBTBraCode WHERE TUsBTCmGAlias='HR' AND " +
          ofUser("TUsBTUsrID") + " ORDER BY TUsBTBraCode",
      [&](ado::Recordset& row) {
        view.hasRights = true;
        view.branches.push_back(
            {row.get("TUsBTBraCode").joinedText(), row.get("TBraName").joinedText()});
      });
}

std::vector<NamedCode> UserQuestions::typesAt(KT7HRAccessLevel level) {
  const std::string allowed = filter("", level);
  std::vector<NamedCode> types;
  forEach(kEveryType + (allowed.empty() ? "" : " WHERE" + allowed) + " ORDER BY TEmTCode",
          [&](ado::Recordset& row) { types.push_back(typeIn(row)); });
  return types;
}

std::vector<NamedCode> UserQuestions::salariesOneByOne() {
  std::vector<NamedCode> types;
  forEach(kEveryType + std::string(" ORDER BY TEmTCode"), [&](ado::Recordset& row) {
    const NamedCode type = typeIn(row);
    if (hr_.HRFilterAccessSalary(user_, connectionString_, connectionString_, type.code)) {
      types.push_back(type);
    }
  });
  return types;
}

void UserQuestions::readTokens(UserView& view) {
  const auto utility = platform_.createUtilityObject();
  forEach(
      "SELECT TUETTEmTCode,TUETWelfare,TUETSalary FROM KT7TUserEmpType WHERE "
      "TUETTCmGAlias='HR' AND " +
          ofUser("TUETTUsrID") + " ORDER BY TUETTEmTCode",
      [&](ado::Recordset& row) {
        view.hasRights = true;
        const std::string type = row.get("TUETTEmTCode").joinedText();
        const std::string valid = permissionToken(user_, type, *utility);
        for (const bool ofSalary : {false, true}) {
          const std::string token = row.get(ofSalary ? "TUETSalary" : "TUETWelfare").joinedText();
          if (token.empty() || token == valid) continue;
          view.deadTokens.push_back({type, ofSalary, false, 0, ""});
          findOwner(token, view.deadTokens.back());
        }
      });
}

void UserQuestions::findOwner(const std::string& token, DeadToken& dead) {
  const auto utility = platform_.createUtilityObject();
  std::vector<std::int32_t> users;
  for (const char* sql : {"SELECT TUsrID AS A FROM KT7TUser WHERE TUsrID IS NOT NULL",
                          "SELECT DISTINCT TUETTUsrID AS A FROM KT7TUserEmpType WHERE "
                          "TUETTUsrID IS NOT NULL"}) {
    forEach(sql, [&](ado::Recordset& row) { users.push_back(row.get("A").toInt32()); });
  }
  std::vector<std::string> types;
  for (const char* sql : {"SELECT TEmTCode AS A FROM KT7TEmployeeType",
                          "SELECT DISTINCT TUETTEmTCode AS A FROM KT7TUserEmpType"}) {
    forEach(sql, [&](ado::Recordset& row) { types.push_back(row.get("A").joinedText()); });
  }
  for (const std::int32_t user : users) {
    for (const std::string& type : types) {
      if (permissionToken(user, type, *utility) != token) continue;
      dead.ownerKnown = true;
      dead.ownerUser = user;
      dead.ownerType = type;
      return;
    }
  }
}

UserView UserQuestions::answer() {
  UserView view;
  readUser(view);
  readRights(view);
  readBranches(view);
  readTokens(view);
  view.types = typesAt(KT7HRAccessLevelUser);
  view.welfareTypes = typesAt(KT7HRAccessLevelWelfare);
  view.salaryTypes = typesAt(KT7HRAccessLevelAdmin);
  view.openSalaries = salariesOneByOne();
  const std::string allowed = filter("TEmpTEmTCode", KT7HRAccessLevelUser);
  view.employeesSeen = count("KT7TEmployee" + (allowed.empty() ? "" : " WHERE" + allowed));
  view.employees = count("KT7TEmployee");
  return view;
}

}  // namespace

UserView readUserView(Platform& platform, const std::string& connectionString, std::int32_t user) {
  return UserQuestions(platform, connectionString, user).answer();
}

}  // namespace kt7::host
