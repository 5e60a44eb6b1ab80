#include <stdexcept>

#include "host/schema/description/table.h"

namespace kt7::schema {
namespace {

void appendColumns(std::vector<std::string>& names, std::string_view tableName) {
  const Table* table = findTable(tableName);
  if (table == nullptr) throw std::logic_error("a view over an unknown table");
  for (const Column& column : table->columns) names.push_back(column.name);
}

std::vector<std::string> columnsOf(std::initializer_list<std::string_view> tableNames,
                                   std::initializer_list<const char*> more = {}) {
  std::vector<std::string> names;
  for (std::string_view table : tableNames) appendColumns(names, table);
  names.insert(names.end(), more.begin(), more.end());
  return names;
}

View employees() {
  return {"KT7VEmployee",
          columnsOf({"KT7TEmployee", "KT7TEmployee2"},
                    {"TBraName", "TDivName", "TDepName", "TSecName", "TPstName"}),
          "KT7TEmployee"
          " LEFT JOIN KT7TEmployee2 ON TEm2TEmpCode = TEmpCode"
          " LEFT JOIN KT7TBranch ON TBraCode = TEmpTBraCode"
          " LEFT JOIN KT7TDivision ON TDivCode = TEmpTDivCode"
          " LEFT JOIN KT7TDepartment ON TDEPCode = TEmpTDepCode"
          " LEFT JOIN KT7TSection ON TSecCode = TEmpTSecCode"
          " LEFT JOIN KT7TPosition ON TPSTCode = TEmpTPstCode"};
}

View employees2() {
  return {"KT7VEmployee2", columnsOf({"KT7TEmployee2", "KT7TEmployee"}),
          "KT7TEmployee2 INNER JOIN KT7TEmployee ON TEmpCode = TEm2TEmpCode"};
}

View slipItems() {
  return {"KT7VEmployeeSlip", columnsOf({"KT7TEmpSlipDoc", "KT7TEmpSlipItem"}),
          "KT7TEmpSlipDoc INNER JOIN KT7TEmpSlipItem ON TSmbTEPSNo = TEPSNo"};
}

/// The employee code is the one of the assignment row, which renaming an employee rewrites.
View groupAssignments() {
  return {"KT7VEmployeeGroup",
          {"TEGMTEmpCode AS TEmpCode", "TEGMTEmGCode AS TEmGCode", "TEgmStatus", "TEGMTEGdNo",
           "TEGMLn", "TEGdDate", "TEgdTime", "TEgdApproveStatus", "TEgdCancelStatus", "TEmGName"},
          "KT7TEmployeeGrpMB"
          " INNER JOIN KT7TEmployeeGrpDoc ON TEGdNo = TEGMTEGdNo"
          " LEFT JOIN KT7TEmployeeGrp ON TEmGCode = TEGMTEmGCode"};
}

View leaveTaken() {
  return {"KT7VEmpLeave", columnsOf({"KT7TEmpLeaveMB", "KT7TEmpLeaveDoc"}, {"TLvtName"}),
          "KT7TEmpLeaveMB"
          " INNER JOIN KT7TEmpLeaveDoc ON TEpaNo = TElbTEpaNo"
          " LEFT JOIN KT7TEmpLeaveType ON TLvtCode = TElbTLvtCode"};
}

View yearIncome() {
  return {"KT7VRevenue1A",
          columnsOf({"KT7TEmpAmassType"}, {"TEmpCode", "TEmpPrefix", "TEmpFirstName",
                                           "TEmpMiddleName", "TEmpLastName", "TEmpTBraCode"}),
          "KT7TEmpAmassType LEFT JOIN KT7TEmployee ON TEmpCode = TEATTEmpCode"};
}

}  // namespace

std::span<const View> views() {
  static const std::vector<View> all{employees(),        employees2(), slipItems(),
                                     groupAssignments(), leaveTaken(), yearIncome()};
  return all;
}

}  // namespace kt7::schema
