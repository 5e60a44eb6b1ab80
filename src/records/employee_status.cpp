#include <kt7/hr_object.h>
#include "support/opened.h"
#include "support/own_transaction.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr double kNotToBeAssigned = 1;

/// The statements of one status run, on its own connection.
class StatusRun {
 public:
  StatusRun(Platform& platform, Collaborators& with, DataObj& dataObj, ado::Connection& connection)
      : platform_(platform), with_(with), dataObj_(dataObj), connection_(connection) {}

  void moveStatuses() {
    std::string moment = now();
    std::string day = today();
    execute("UPDATE KT7TEmployee set TEmpFlag3=" + moment + ",TempStatus=4 WHERE TEmpResignDate<" +
            day + " and TEmpStatus=3");
    moment = now();
    day = today();
    execute("UPDATE KT7TEmployee set TEmpFlag3=" + moment +
            ",TempStatus=3 WHERE TEmpResignDate>=" + day + " and TEmpStatus=4");
  }

  void refreshGroups() {
    const std::string sql = prepared(
        "SELECT * FROM Kt7TEmployee WHERE (TEmpStatus <=3 or (TEmpStatus>3 AND TEmpResignDate>" +
        today() + ")) ORDER BY TEmpCode");
    OpenRecordset employees(platform_, sql, connection_);
    for (; !employees->Eof(); employees->MoveNext()) {
      refreshGroup(employees->get("TEmpCode").joinedText());
    }
    employees.close();
  }

 private:
  void refreshGroup(const std::string& employee) {
    const std::string groups = assignments();
    std::string group = with_.dataTool().LookupFieldText("", 0, 0, "TEmpCode", employee, "TEmGCode",
                                                         groups, connection_);
    const std::string groupsAgain = assignments();
    const double status = with_.dataTool().LookupNumber("", 0, 0, "TEmpCode", employee,
                                                        "TEgmStatus", groupsAgain, connection_);
    if (status == kNotToBeAssigned) group.clear();
    execute("UPDATE KT7TEmployee Set TEmpFlag3=" + now() + ",TEmpTEMGCode='" + group +
            "'  WHERE TEmpCode='" + employee + "'");
  }

  std::string assignments() {
    const Date day = platform_.now().datePart();
    return prepared(
        "KT7VEmployeeGroup WHERE TEGdDate<=" + dateLiteral(with_.utility().SqlShortDateText(day)) +
        " AND TEgdApproveStatus=1 AND TEgdCancelStatus=0 ORDER BY TEgdTime DESC");
  }

  std::string now() {
    const Date moment = platform_.now();
    return dateLiteral(with_.utility().SqlDateTimeText(moment, 0));
  }
  std::string today() {
    const Date day = platform_.now().datePart();
    return dateLiteral(with_.utility().SqlDateText(day));
  }
  std::string prepared(const std::string& sql) {
    return with_.dataTool().PrepareSql(sql, dataObj_.DatabaseType());
  }
  void execute(const std::string& sql) { connection_.Execute(prepared(sql)); }

  Platform& platform_;
  Collaborators& with_;
  DataObj& dataObj_;
  ado::Connection& connection_;
};

}  // namespace

void HRObject::UpdateEmployeeStatus(DataObj& dataObj) {
  inOwnTransaction(platform_, dataObj, [&](ado::Connection& connection) {
    StatusRun run(platform_, collaborators_, dataObj, connection);
    run.moveStatuses();
    run.refreshGroups();
  });
}

}  // namespace kt7
