#include <kt7/error.h>
#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "support/opened.h"
#include "support/sql_text.h"

namespace kt7 {

namespace {

constexpr int16_t kInUse = 1;

/// Lookups of one employee by code on the data object's connection.
class EmployeeLookups {
 public:
  EmployeeLookups(DataTool& dataTool, DataObj& dataObj, const std::string& employee)
      : dataTool_(dataTool), dataObj_(dataObj), employee_(employee) {}

  std::string text(const char* column, const char* table) {
    return dataTool_.LookupFieldText("", 0, 0, "TEmpCode", employee_, column, table,
                                     dataObj_.Connection());
  }
  std::string viewText(const char* column) { return text(column, "Kt7VEmployee"); }
  double number(const char* column) {
    return dataTool_.LookupNumber("", 0, 0, "TEmpCode", employee_, column, "Kt7TEmployee",
                                  dataObj_.Connection());
  }
  Date date(const char* column) {
    return dataTool_.LookupDate("", 0, 0, "TEmpCode", employee_, column, "Kt7TEmployee",
                                dataObj_.Connection());
  }

 private:
  DataTool& dataTool_;
  DataObj& dataObj_;
  const std::string& employee_;
};

/// Column by column: each is looked up and written before the next.
void copyOrganisation(ado::Recordset& history, EmployeeLookups& employee) {
  history.set("TEHPBranch", employee.viewText("TBraName"));
  history.set("TEHPDivision", employee.viewText("TDivName"));
  history.set("TEHPDepartment", employee.viewText("TDepName"));
  history.set("TEHPSection", employee.viewText("TSecName"));
}

void writeEnd(ado::Recordset& history, Platform& platform) {
  history.set("TEHPDependCode", "");
  history.set("TEHPDependOn", "");
  history.set("TEHPFlag1", kInUse);
  history.set("TEHPFlag3", platform.now());
  history.Update();
}

/// The snapshot of one employee: all of it is looked up before the first column is written.
void writeSnapshot(ado::Recordset& history, EmployeeLookups& employee) {
  const std::string position = employee.viewText("TPstName");
  const std::string positionCode = employee.viewText("TEmpTPstCode");
  const std::string branch = employee.viewText("TBraName");
  const std::string division = employee.viewText("TDivName");
  const std::string department = employee.viewText("TDepName");
  const std::string section = employee.viewText("TSecName");
  history.set("TEHPTPstCode", positionCode);
  history.set("TEHPPosition", position);
  history.set("TEHPBranch", branch);
  history.set("TEHPDivision", division);
  history.set("TEHPDepartment", department);
  history.set("TEHPSection", section);
}

int32_t nextLine(double highest) {
  const int32_t line = toInt32(highest);
  return toInt32(line + 1.0);
}

}  // namespace

int16_t HRObject::BackupBlankPostionTR(DataObj& dataObj, const std::string& TEmpCode) {
  const int32_t line = toInt32(dataTool().LookupNumber("", 0, 0, "TEHPTEmpCode", TEmpCode, "TEHPLn",
                                                       "Kt7TEmpHisPosition", dataObj.Connection()));
  EmployeeLookups employee(dataTool(), dataObj, TEmpCode);
  if (employee.text("TEmpCode", "Kt7TEmployee").empty() || line != 0) return narrow16(line);

  constexpr int32_t kFirstLine = 1;
  const std::string sql = dataTool().PrepareSql(
      "SELECT * FROM KT7TEmpHisPosition WHERE TEHPTEmpCode='" + TEmpCode + "'",
      dataObj.DatabaseType());
  OpenRecordset history(platform_, sql, dataObj.Connection(), ado::kOptimistic);
  history->AddNew();
  history->set("TEHPTEmpCode", TEmpCode);
  history->set("TEHPStartDate", employee.date("TEmpLastSalaryDate"));
  history->set("TEHPLn", kFirstLine);
  history->set("TEHPPosition", employee.viewText("TPstName"));
  history->set("TEHPTPstCode", employee.viewText("TEmpTPstCode"));
  copyOrganisation(*history, employee);
  history->set("TEHPSalary", employee.number("TEmpSalary"));
  history->set("TEHPCustom", employee.number("TEmpCustom"));
  writeEnd(*history, platform_);
  history.close();
  return kFirstLine;
}

int16_t HRObject::UpdatePostionTR(DataObj& dataObj, const std::string& TEmpCode, Date StartDate,
                                  const std::string& /*PositionCode*/,
                                  const std::string& /*Position*/, const std::string& /*Branch*/,
                                  const std::string& /*Division*/, std::string& /*Department*/,
                                  const std::string& /*Section*/, double Salary, double Custom) {
  const int32_t line = nextLine(dataTool().QueryValue(
      "A", "SELECT MAX(TEHPLn) as A FROM Kt7TEmpHisPosition WHERE TEHPTEmpCode='" + TEmpCode + "'",
      dataObj.Connection()));
  const std::string startDate = dateLiteral(utility().SqlDateText(StartDate));
  const std::string sql =
      dataTool().PrepareSql("SELECT * FROM KT7TEmpHisPosition WHERE TEHPTEmpCode='" + TEmpCode +
                                "' AND TEHPStartDate=" + startDate,
                            dataObj.DatabaseType());
  OpenRecordset history(platform_, sql, dataObj.Connection(), ado::kOptimistic);
  if (history->Eof()) {
    history->AddNew();
    history->set("TEHPLn", line);
  }
  history->set("TEHPTEmpCode", TEmpCode);
  history->set("TEHPStartDate", StartDate);
  // Intended 14: the snapshot is the employee's stored record; the text arguments have no effect.
  EmployeeLookups employee(dataTool(), dataObj, TEmpCode);
  writeSnapshot(*history, employee);
  history->set("TEHPSalary", Salary);
  history->set("TEHPCustom", Custom);
  writeEnd(*history, platform_);
  history.close();
  return narrow16(line);
}

}  // namespace kt7
