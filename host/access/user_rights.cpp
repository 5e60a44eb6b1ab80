#include "host/access/user_rights.h"

#include <array>
#include <utility>

#include "host/data/contract/database.h"
#include "support/permission_token.h"

namespace kt7::host {

namespace {

/// The row of that condition in a table, open for writing; a new one where there is none yet.
class WritableRow {
 public:
  using Keys = std::vector<std::pair<std::string, Value>>;

  WritableRow(ado::Connection& connection, const std::string& table, const Keys& keys)
      : rows_(data::createRecordset()) {
    std::string where;
    for (const auto& [column, value] : keys) {
      where += (where.empty() ? " WHERE " : " AND ") + column + "=" + literal(value);
    }
    rows_->Open("SELECT * FROM " + table + where, connection, ado::kStatic, ado::kOptimistic);
    if (!rows_->Eof()) return;
    rows_->AddNew();
    for (const auto& [column, value] : keys) rows_->set(column, value);
    isNew_ = true;
  }
  bool isNew() const { return isNew_; }
  void set(const char* column, const Value& value) { rows_->set(column, value); }
  void write() {
    rows_->Update();
    rows_->Close();
  }

 private:
  static std::string literal(const Value& value) {
    const bool isText = std::holds_alternative<std::string>(value.storage());
    return isText ? "'" + value.toText() + "'" : value.toText();
  }

  std::unique_ptr<ado::Recordset> rows_;
  bool isNew_ = false;
};

constexpr std::int16_t kYes = 1;
constexpr std::int16_t kNo = 0;

bool isThere(ado::Connection& connection, const std::string& sql, const std::string& key) {
  const std::array parameters{key};
  return !data::askOne(connection, sql, parameters).isNull();
}

void requireRow(ado::Connection& connection, const std::string& sql, const std::string& key,
                const std::string& complaint) {
  if (!isThere(connection, sql, key)) throw UnknownEntry(complaint);
}

void requireEntries(ado::Connection& connection, const Grant& grant) {
  const std::string user = std::to_string(grant.user);
  if (!isThere(connection, "SELECT TUsrID FROM KT7TUser WHERE TUsrID=?", user)) {
    throw UnknownUser(grant.user);
  }
  for (const std::string& type : grant.types) {
    requireRow(connection, "SELECT TEmTCode FROM KT7TEmployeeType WHERE TEmTCode=?", type,
               "there is no employee type '" + type + "'");
  }
  for (const std::string& branch : grant.branches) {
    requireRow(connection, "SELECT TBraCode FROM KT7TBranch WHERE TBraCode=?", branch,
               "there is no branch '" + branch + "'");
  }
}

}  // namespace

void addUser(ado::Connection& connection, const UserEntry& entry) {
  WritableRow user(connection, "KT7TUser", {{"TUsrID", entry.user}});
  if (entry.name) user.set("TUsrName", *entry.name);
  if (user.isNew() || entry.administrator) {
    user.set("TUsrIsAdministrator", entry.administrator ? kYes : kNo);
  }
  user.write();
  if (!entry.moduleAdministrator) return;
  WritableRow module(connection, "KT7TUserModule",
                     {{"TUMdTUsrID", entry.user}, {"TUMdTCmGAlias", kModuleAlias}});
  module.set("TUMdIsAdministrator", kYes);
  module.write();
}

void grantRights(ado::Connection& connection, const Grant& grant, UtilityObject& utility) {
  requireEntries(connection, grant);
  for (const std::string& key : grant.rights) {
    WritableRow(connection, "KT7TUserRight", {{"TUsRTUsrID", grant.user}, {"TUsRKey", key}})
        .write();
  }
  for (const std::string& type : grant.types) {
    WritableRow row(
        connection, "KT7TUserEmpType",
        {{"TUETTCmGAlias", kModuleAlias}, {"TUETTUsrID", grant.user}, {"TUETTEmTCode", type}});
    const std::string token = permissionToken(grant.user, type, utility);
    if (grant.welfare) row.set("TUETWelfare", token);
    if (grant.salary) row.set("TUETSalary", token);
    row.write();
  }
  for (const std::string& branch : grant.branches) {
    WritableRow(
        connection, "KT7TUserBranch",
        {{"TUsBTCmGAlias", kModuleAlias}, {"TUsBTUsrID", grant.user}, {"TUsBTBraCode", branch}})
        .write();
  }
}

namespace {

/// A right that a user holds: the rows that say so, and what takes it away.
struct HeldRight {
  std::string name;
  std::string rows;  // " FROM table WHERE ..."
  std::string taking;
};

HeldRight rowsOf(const std::string& name, const std::string& table, const std::string& condition) {
  const std::string rows = " FROM " + table + " WHERE " + condition;
  return {name, rows, "DELETE" + rows};
}

HeldRight valueOf(const std::string& name, const std::string& table, const std::string& condition,
                  const std::string& column, const std::string& none) {
  return {name, " FROM " + table + " WHERE " + condition + " AND " + column + "<>" + none,
          "UPDATE " + table + " SET " + column + "=" + none + " WHERE " + condition};
}

/// A code: the door has refused those with quotes.
std::string inQuotes(const std::string& code) { return "'" + code + "'"; }

void appendTypes(std::vector<HeldRight>& held, const Grant& rights, const std::string& ofModule) {
  const std::string rows = "TUETTCmGAlias=" + ofModule +
                           " AND TUETTUsrID=" + std::to_string(rights.user) + " AND TUETTEmTCode=";
  for (const std::string& type : rights.types) {
    const std::string row = rows + inQuotes(type);
    if (rights.welfare) {
      held.push_back(
          valueOf("the welfare of type " + type, "KT7TUserEmpType", row, "TUETWelfare", "''"));
    }
    if (rights.salary) {
      held.push_back(
          valueOf("the salaries of type " + type, "KT7TUserEmpType", row, "TUETSalary", "''"));
    }
    if (!rights.welfare && !rights.salary) {
      held.push_back(rowsOf("employee type " + type, "KT7TUserEmpType", row));
    }
  }
}

std::vector<HeldRight> heldRights(const Revocation& revocation) {
  const Grant& rights = revocation.rights;
  const std::string user = std::to_string(rights.user);
  const std::string ofModule = "'" + std::string(kModuleAlias) + "'";
  std::vector<HeldRight> held;
  const std::string rightsOfUser = "TUsRTUsrID=" + user + " AND TUsRKey=";
  for (const std::string& key : rights.rights) {
    held.push_back(rowsOf("the right " + key, "KT7TUserRight", rightsOfUser + inQuotes(key)));
  }
  appendTypes(held, rights, ofModule);
  const std::string branchesOfUser =
      "TUsBTCmGAlias=" + ofModule + " AND TUsBTUsrID=" + user + " AND TUsBTBraCode=";
  for (const std::string& branch : rights.branches) {
    held.push_back(rowsOf("branch " + branch, "KT7TUserBranch", branchesOfUser + inQuotes(branch)));
  }
  if (revocation.administrator) {
    held.push_back(
        valueOf("administration", "KT7TUser", "TUsrID=" + user, "TUsrIsAdministrator", "0"));
  }
  if (revocation.moduleAdministrator) {
    held.push_back(valueOf("administration of the module", "KT7TUserModule",
                           "TUMdTUsrID=" + user + " AND TUMdTCmGAlias=" + ofModule,
                           "TUMdIsAdministrator", "0"));
  }
  return held;
}

}  // namespace

void revokeRights(ado::Connection& connection, const Revocation& revocation) {
  const std::vector<HeldRight> held = heldRights(revocation);
  for (const HeldRight& right : held) {
    const Value rows = data::askOne(connection, "SELECT COUNT(*) AS A" + right.rows, {});
    if (rows.toDouble() == 0) {
      throw UnknownEntry("user " + std::to_string(revocation.rights.user) + " does not hold " +
                         right.name + "; nothing was taken away");
    }
  }
  for (const HeldRight& right : held) connection.Execute(right.taking);
}

}  // namespace kt7::host
