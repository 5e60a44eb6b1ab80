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
  StatusRun(Platform& platform, DataTool& dataTool, UtilityObject& utility, DataObj& dataObj,
            ado::Connection& connection)
      : platform_(platform),
        dataTool_(dataTool),
        utility_(utility),
        dataObj_(dataObj),
        connection_(connection) {}

  void moveStatuses() {
    execute("UPDATE KT7TEmployee set TEmpFlag3=" + now() + ",TempStatus=4 WHERE TEmpResignDate<" +
            today() + " and TEmpStatus=3");
    execute("UPDATE KT7TEmployee set TEmpFlag3=" + now() +
            ",TempStatus=3 WHERE TEmpResignDate>=" + today() + " and TEmpStatus=4");
  }

  void refreshGroups() {
    OpenRecordset employees(
        platform_,
        prepared("SELECT * FROM Kt7TEmployee WHERE (TEmpStatus <=3 or (TEmpStatus>3 AND "
                 "TEmpResignDate>" +
                 today() + ")) ORDER BY TEmpCode"),
        connection_);
    for (; !employees->Eof(); employees->MoveNext()) {
      refreshGroup(employees->get("TEmpCode").joinedText());
    }
    employees.close();
  }

 private:
  void refreshGroup(const std::string& employee) {
    std::string group = dataTool_.LookupFieldText("", 0, 0, "TEmpCode", employee, "TEmGCode",
                                                  assignments(), connection_);
    if (dataTool_.LookupNumber("", 0, 0, "TEmpCode", employee, "TEgmStatus", assignments(),
                               connection_) == kNotToBeAssigned) {
      group.clear();
    }
    execute("UPDATE KT7TEmployee Set TEmpFlag3=" + now() + ",TEmpTEMGCode='" + group +
            "'  WHERE TEmpCode='" + employee + "'");
  }

  std::string assignments() {
    return prepared("KT7VEmployeeGroup WHERE TEGdDate<=" +
                    dateLiteral(utility_.SqlShortDateText(platform_.now().datePart())) +
                    " AND TEgdApproveStatus=1 AND TEgdCancelStatus=0 ORDER BY TEgdTime DESC");
  }

  std::string now() { return dateLiteral(utility_.SqlDateTimeText(platform_.now(), 0)); }
  std::string today() { return dateLiteral(utility_.SqlDateText(platform_.now().datePart())); }
  std::string prepared(const std::string& sql) {
    return dataTool_.PrepareSql(sql, dataObj_.DatabaseType());
  }
  void execute(const std::string& sql) { connection_.Execute(prepared(sql)); }

  Platform& platform_;
  DataTool& dataTool_;
  UtilityObject& utility_;
  DataObj& dataObj_;
  ado::Connection& connection_;
};

}  // namespace

void HRObject::UpdateEmployeeStatus(DataObj& dataObj) {
  inOwnTransaction(platform_, dataObj, [&](ado::Connection& connection) {
    StatusRun run(platform_, dataTool(), utility(), dataObj, connection);
    run.moveStatuses();
    run.refreshGroups();
  });
}

}  // namespace kt7
