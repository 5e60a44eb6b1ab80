#include "host/schema/description/table_groups.h"

namespace kt7::schema {
namespace {

Table employee() {
  return marked(
      "KT7TEmployee", "TEmp", {code("TEmpCode"),       code("TEmpNo"),
                               text("TEmpPrefix"),     text("TEmpFirstName"),
                               text("TEmpMiddleName"), text("TEmpLastName"),
                               text("TEmpSex", 1),     date("TEmpBirthDate"),
                               date("TEmpSignDate"),   date("TEmpProbationDate"),
                               date("TEmpResignDate"), small("TEmpStatus"),
                               code("TEmpTEmTCode"),   code("TEmpTBraCode"),
                               code("TEmpTDivCode"),   code("TEmpTDepCode"),
                               code("TEmpTSecCode"),   code("TEmpTPstCode"),
                               money("TEmpSalary"),    date("TEmpLastSalaryDate"),
                               money("TEmpCustom"),    small("TEmpCostGroup"),
                               code("TEmpTEMGCode"),   code("TEmpBarcode")},
      {unique("TEmpCode"), index("TEmpTSecCode, TEmpCode"), index("TEmpTEmTCode, TEmpCode")});
}

Table employee2() {
  return table(
      "KT7TEmployee2", "TEm2",
      {code("TEm2TEmpCode"), small("TEm2SkipSlip"), small("TEm2BonusAmass"),
       number("TEm2LastBonusAmass"), text("TEm2IDCard", 20), small("TEm2SocialInsured"),
       small("TEm2FundMember"), number("TEm2FundRate"), date("TEm2FundSignDate"),
       small("TEm2SpouseNoIncome"), small("TEm2Children"), small("TEm2ChildrenSecondSince2018"),
       small("TEm2Parents"), money("TEm2LifeInsurance"), money("TEm2HomeInterest"),
       money("TEm2CutWaive"), money("TEm2CutStudySup")},
      {unique("TEm2TEmpCode")});
}

Table positionHistory() {
  return marked("KT7TEmpHisPosition", "TEHP",
                {whole("TEHPLn"), code("TEHPTEmpCode"), date("TEHPStartDate"), text("TEHPPosition"),
                 code("TEHPTPstCode"), text("TEHPBranch"), text("TEHPDivision"),
                 text("TEHPDepartment"), text("TEHPSection"), number("TEHPSalary"),
                 number("TEHPCustom"), code("TEHPDependCode"), text("TEHPDependOn")},
                {unique("TEHPTEmpCode, TEHPLn"), index("TEHPTEmpCode, TEHPStartDate")});
}

/// Groups of employees: the group, the dated document that assigns it, and its rows of employees.
std::vector<Table> groupTables() {
  return {
      marked("KT7TEmployeeGrp", "TEmG", {code("TEmGCode"), text("TEmGName")}, {unique("TEmGCode")}),
      table("KT7TEmployeeGrpDoc", "TEGd",
            {code("TEGdNo"), date("TEGdDate"), moment("TEgdTime"), small("TEgdApproveStatus"),
             small("TEgdCancelStatus")},
            {unique("TEGdNo")}),
      table("KT7TEmployeeGrpMB", "TEGM",
            {code("TEGMTEGdNo"), whole("TEGMLn"), code("TEGMTEmpCode"), code("TEGMTEmGCode"),
             small("TEgmStatus")},
            {index("TEGMTEmpCode"), unique("TEGMTEGdNo, TEGMLn")})};
}

}  // namespace

std::vector<Table> employeeTables() {
  std::vector<Table> result{employee(), employee2(), positionHistory()};
  for (Table& group : groupTables()) result.push_back(std::move(group));
  return result;
}

}  // namespace kt7::schema
