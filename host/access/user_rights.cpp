#include "host/access/user_rights.h"

#include <array>
#include <utility>

#include "collab/permission_token.h"
#include "host/data/database.h"

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

void requireRow(ado::Connection& connection, const std::string& sql, const std::string& key,
                const std::string& complaint) {
  const std::array parameters{key};
  if (data::askOne(connection, sql, parameters).isNull()) throw UnknownEntry(complaint);
}

void requireEntries(ado::Connection& connection, const Grant& grant) {
  const std::string user = std::to_string(grant.user);
  requireRow(connection, "SELECT TUsrID FROM KT7TUser WHERE TUsrID=?", user,
             "there is no user " + user + "; kt7hr user add " + user + " makes one");
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

}  // namespace kt7::host
