#include <kt7/hr_object.h>
#include "support/sql_text.h"

namespace kt7 {

namespace {

struct EmployeeLayout {
  const char* order;
  const char* columns;
  const char* headers;
  const char* widths;
  const char* kinds;
};

constexpr EmployeeLayout kByCode{
    " ORDER BY TEmpCode", "TEmpCode,TEmpNo,TEmpFirstName,TEmpMiddleName,TEmpLastName,TDivName",
    "รหัสพนักงาน,เลขที่พนักงาน,ชื่อ,ชื่อกลาง,นามสกุล,ฝ่าย", "1200,1200,2000,1000,2000,2000", "0,0,0,0,0,0"};
constexpr EmployeeLayout kByDivision{
    " ORDER BY TDivName,TEmpCode",
    "TDivName,TEmpCode,TEmpNo,TEmpFirstName,TEmpMiddleName,TEmpLastName",
    "ฝ่าย,รหัสพนักงาน,เลขที่พนักงาน,ชื่อ,ชื่อกลาง,นามสกุล", "2000,1200,1200,2000,1000,2000", "0,0,0,0,0,0"};
constexpr EmployeeLayout kByCost{
    " ORDER BY TEmpCostGroup,TEmpCode",
    "TEmpCostGroup,TEmpCode,TEmpNo,TEmpFirstName,TEmpMiddleName,TEmpLastName,TDivName",
    "บัญชีต้นทุน;Office;Service;Factory,รหัสพนักงาน,เลขที่พนักงาน,ชื่อ,ชื่อกลาง,นามสกุล,ฝ่าย",
    "1000,1200,1200,2000,1000,2000,2000", "13,0,0,0,0,0,0"};

const EmployeeLayout& layoutOf(KT7EmployeeSortType sortType) {
  if (sortType == KT7EmployeeSortTypeDivName) return kByDivision;
  return sortType == KT7EmployeeSortTypeCost ? kByCost : kByCode;
}

}  // namespace

std::string HRObject::SelectEmployee(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                     bool MultiSelect, bool ShowActiveOnly, bool DoFilterPermission,
                                     bool ShowDoSlipOnly, bool SortByDivision,
                                     bool UseDataFromSaleHolder) {
  return self().SelectEmployee2(dataObj, appObj, clientObj, MultiSelect, ShowActiveOnly,
                                DoFilterPermission, ShowDoSlipOnly, SortByDivision,
                                UseDataFromSaleHolder, "TEmpTEmTCode", true, "");
}

std::string HRObject::SelectEmployee2(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                      bool MultiSelect, bool ShowActiveOnly,
                                      bool DoFilterPermission, bool ShowDoSlipOnly,
                                      bool SortByDivision, bool UseDataFromSaleHolder,
                                      const std::string& /*FieldTypeName*/,
                                      bool /*CheckAdminLevel*/,
                                      const std::string& /*FilterEmployeeType*/) {
  // Intended 18: the last three arguments have no effect.
  return self().SelectEmployee3(
      dataObj, appObj, clientObj, MultiSelect, ShowActiveOnly, DoFilterPermission, ShowDoSlipOnly,
      SortByDivision ? KT7EmployeeSortTypeDivName : KT7EmployeeSortTypeCode, UseDataFromSaleHolder,
      "TEmpTEmTCode", true, "");
}

std::string HRObject::SelectEmployee3(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                      bool MultiSelect, bool ShowActiveOnly,
                                      bool DoFilterPermission, bool ShowDoSlipOnly,
                                      KT7EmployeeSortType SortType, bool UseDataFromSaleHolder,
                                      const std::string& FieldTypeName, bool CheckAdminLevel,
                                      const std::string& FilterEmployeeType) {
  return self().SelectEmployee4(dataObj, appObj, clientObj, MultiSelect, ShowActiveOnly,
                                DoFilterPermission, ShowDoSlipOnly, SortType, UseDataFromSaleHolder,
                                FieldTypeName, CheckAdminLevel, FilterEmployeeType, "");
}

std::string HRObject::SelectEmployee4(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                      bool MultiSelect, bool ShowActiveOnly,
                                      bool DoFilterPermission, bool ShowDoSlipOnly,
                                      KT7EmployeeSortType SortType, bool /*UseDataFromSaleHolder*/,
                                      const std::string& FieldTypeName, bool CheckAdminLevel,
                                      const std::string& FilterEmployeeType,
                                      const std::string& AdditionFilter) {
  std::string where;
  if (DoFilterPermission) {
    const int32_t user = clientObj.CurrentUserID();
    const std::string branch = clientObj.CurrentBranchCode();
    const std::string data = dataObj.ConnectionString();
    const std::string application = appObj.AppDatabaseConnectionString();
    const std::string allowed = self().HRFilterAccessLevel2(user, branch, data, application,
                                                            FieldTypeName, CheckAdminLevel);
    if (!allowed.empty()) where = " AND " + allowed;
  }
  if (ShowActiveOnly) {
    where += " AND (TEmpStatus<=3 or (TEmpStatus>3 AND TEmpResignDate>" +
             dateLiteral(utility().SqlDateText(platform_.now().datePart())) + ")) ";
  }
  if (ShowDoSlipOnly) where += " AND TEm2SkipSlip<>1 ";
  if (!FilterEmployeeType.empty()) {
    where += " AND " + FieldTypeName + "='" + FilterEmployeeType + "'";
  }
  if (!AdditionFilter.empty()) where += " AND " + AdditionFilter;

  const EmployeeLayout& layout = layoutOf(SortType);
  const PickerRequest request{"เลือกรายชื่อพนักงาน",
                              "TEmpCode",
                              layout.columns,
                              layout.headers,
                              layout.widths,
                              layout.kinds,
                              "KT7VEmployee WHERE TEmpFlag1=1 " + where + layout.order};
  return dataTool().ShowMultiPicker(request, dataObj.ConnectionString(), MultiSelect);
}

std::string HRObject::SelectSection(DataObj& dataObj, const std::string& BranchCode,
                                    std::string& DivisionCode, std::string& DepartmentCode,
                                    bool& ShowProductionOnly) {
  std::string where;
  if (!BranchCode.empty()) where += " AND TCBBTBraCode='" + BranchCode + "'";
  if (!DivisionCode.empty()) where += " AND TCBBTDivCode='" + DivisionCode + "'";
  if (!DepartmentCode.empty()) where += " AND TCBBTDepCode='" + DepartmentCode + "'";
  if (ShowProductionOnly) where += " AND TSecIsProduction=1";
  // Intended 19: the bracket of the title stays empty.
  const PickerRequest request{"เลือกหน่วยงาน จากแผนก []",
                              "TSecCode",
                              "TSecCode,TSecName,TSecTDepCode",
                              "รหัสหน่วยงาน,ชื่อหน่วยงาน,ฝ่าย",
                              "1600,2500,2500",
                              "0,0,0",
                              "KT7TSection Where TSecCode<>'' " + where + " ORDER BY TSecCode"};
  return dataTool().ShowPicker(request, dataObj.ConnectionString());
}

}  // namespace kt7
