#pragma once

#include <array>
#include <string_view>

namespace kt7::schema {

struct EmployeeCodeColumn {
  std::string_view table;
  std::string_view column;
};

/// Every table that stores an employee's code, in the order in which a renaming rewrites them.
inline constexpr auto kEmployeeCodeColumns = std::to_array<EmployeeCodeColumn>({
    {"KT7TEmployee", "TEmpCode"},          {"KT7TEmployee2", "TEm2TEmpCode"},
    {"KT7TEmpPunish", "TEPNCode"},         {"KT7TEmpParent", "TEpPTEmpCode"},
    {"KT7TEmpBuddy", "TEBuTEmpCode"},      {"KT7TEmployeeBank", "TEmBTEmpCode"},
    {"KT7TEmpSalary", "TSalTEmpCode"},     {"KT7TEmpCollateFund", "TECFTEmpCode"},
    {"KT7TEmpCollateral", "TEClTEmpCode"}, {"KT7TEmpChild", "TECdTEmpCode"},
    {"KT7TEmpHisEdu", "THEdTEmpCode"},     {"KT7TEmpSpecial", "TSplTEmpCode"},
    {"KT7TEmployeeSub", "TEMSTEmpCode"},   {"KT7TEmpContact", "TCttTEmpCode"},
    {"KT7TEmpHisWork", "THwkTEmpCode"},    {"KT7TEmpHisPunish", "TEHUTEmpCode"},
    {"KT7TEmpHisProduce", "TEHSTEmpCode"}, {"KT7TEmpHisPosition", "TEHPTEmpCode"},
    {"KT7TEmpLeaveAllow", "TELATEmpCode"}, {"KT7TEmpActiveAmass", "TEAATEmpCode"},
    {"KT7TEmpRevenue91", "TER9TEmpCode"},  {"KT7TEmpTimeFill", "TTGMTEmpCode"},
    {"KT7TEmpLeaveMB", "TELBTEmpCode"},    {"KT7TEmpOTMB", "TOTMTEmpCode"},
    {"KT7TEmpTrainingMB", "TETMTEmpCode"}, {"KT7TEmpUpSalaryMB", "TEUMTEmpCode"},
    {"KT7TEmpSlipDoc", "TEpSTEmpCode"},    {"KT7TEmployeeGrpMB", "TEGMTEmpCode"},
    {"KT7TEmpIncomeMB", "TEwoTEmpCode"},   {"KT7TEmpInOutNote", "TEIOTEmpCode"},
    {"KT7TTimeInput", "TTIPCode"},         {"KT7TEmpWorkCountMB", "TECMTEmpCode"},
    {"KT7TSwitchTimeMB", "TSTMTEmpCode"},  {"KT7TEmpTimeChk", "TETcTEmpCode"},
    {"KT7TGLTransSub", "TGTSTEmpCode"},
});
static_assert(kEmployeeCodeColumns.size() == 35);

}  // namespace kt7::schema
