#pragma once

#include <array>
#include <string_view>
#include <tuple>
#include <type_traits>

#include <kt7/hr_interface.h>

namespace kt7 {

/// A parameter by its published name.
struct Parameter {
  constexpr Parameter(const char* publishedName, bool isOptional = false)
      : name(publishedName), optional(isOptional) {}
  std::string_view name;
  bool optional;
};

constexpr Parameter optional(const char* name) { return {name, true}; }

template <typename Member>
struct MemberTraits;

template <typename R, typename... Args>
struct MemberTraits<R (_HRObject::*)(Args...)> {
  using Result = R;
  using Arguments = std::tuple<Args...>;
};

/// One row of the table of operations: published name, dispatch id and parameters. Types, direction
/// (a non-const reference is an in/out parameter) and result come from the member itself.
template <auto Member>
struct Operation {
  using Result = typename MemberTraits<decltype(Member)>::Result;
  using Arguments = typename MemberTraits<decltype(Member)>::Arguments;
  static constexpr auto kMember = Member;
  static constexpr std::size_t kArity = std::tuple_size_v<Arguments>;

  std::string_view name;
  int dispatchId;
  std::array<Parameter, kArity> parameters;
};

template <auto Member, typename... Names>
constexpr Operation<Member> operation(std::string_view name, int dispatchId, Names... names) {
  static_assert(sizeof...(Names) == Operation<Member>::kArity, "one name a parameter");
  return {name, dispatchId, {Parameter(names)...}};
}

/// A published operation whose rule is not described: it answers "not implemented" and its
/// dispatch id is reserved.
struct UndescribedOperation {
  std::string_view name;
  int dispatchId;
};

// clang-format off
inline constexpr std::array<UndescribedOperation, 7> kUndescribedOperations{{
    {"GETWageValue", 4},
    {"GETWageValue2", 5},
    {"GETWageValue3", 6},
    {"GETTimeStampMatchFieldName", 7},
    {"UpdateRevenue91", 18},
    {"UpdateEmployeeLeaveAllowRecordTR", 49},
    {"UpdateEmployeeLeaveRecordTR", 50},
}};

/// Every described operation; the fronts and the list of operations are generated from it.
inline constexpr std::tuple kOperations{
    operation<&_HRObject::GETDAYRATE>("GETDAYRATE", 1, "EmployeeCode", "DataObj"),
    operation<&_HRObject::GETHOURRATE>("GETHOURRATE", 2, "EmployeeCode", "DataObj"),
    operation<&_HRObject::GETSectionHourRate>("GETSectionHourRate", 3, "SectionCode", "DataObj", "UseOTRate"),
    operation<&_HRObject::GetActiveAmassTR>("GetActiveAmassTR", 8, "EmployeeCode", "PeriodDate", "PeriodCondition", "DataObj"),
    operation<&_HRObject::GetActiveRateTR>("GetActiveRateTR", 9, "EmployeeCode", "TotalAmass", "isActiveType", "DataObj"),
    operation<&_HRObject::UpdateEmpActiveAmassTR>("UpdateEmpActiveAmassTR", 10, "Status", "IsActive", "EmployeeCode", "PeriodDate", "DataObj"),
    operation<&_HRObject::CalcPTAX>("CalcPTAX", 11, "DataObj", "iTaxBase", "SignDate", "YearCalc", "Condition", "iMoreMonth", "Reduce", "LastPTAX", "CutStudySup", "Donation", "CutWaive", "LastSalary", "FixtoTen"),
    operation<&_HRObject::CalcPTAX2>("CalcPTAX2", 12, "DataObj", "iTaxBase", "iBonus", "SignDate", "YearCalc", "Condition", "iMoreMonth", "Reduce", "LastPTAX", "CutStudySup", "Donation", "CutWaive", "LastSalary", "FixtoTen"),
    operation<&_HRObject::CalcPTAX3>("CalcPTAX3", 13, "DataObj", "iTaxBase", "iBonus", "SignDate", "YearCalc", "Condition", "iMoreMonth", "Reduce", "LastPTAX", "CutStudySup", "Donation", "CutWaive", "LastSalary", "FixtoTen", "PayDate"),
    operation<&_HRObject::CalcPTAX4>("CalcPTAX4", 14, "DataObj", "iTaxBase", "iBonus", "SignDate", "YearCalc", "Condition", "iMoreMonth", "Reduce", "LastPTAX", "CutStudySup", "Donation", "CutWaive", "LastSalary", "FixtoTen", "PayDate", "LastSSO"),
    operation<&_HRObject::GetSFUNDRate>("GetSFUNDRate", 15, "DataObj", "EmployeeTypeCode", "SignDate", "calcDate"),
    operation<&_HRObject::TrimSFUNDBase>("TrimSFUNDBase", 16, "iBaseAmount", "DataObj"),
    operation<&_HRObject::TrimSTAXBase>("TrimSTAXBase", 17, "iBaseAmount", "DataObj"),
    operation<&_HRObject::HRFilterAccessLevel>("HRFilterAccessLevel", 19, "UserID", "DataconnectionString", "AppConnectionString", optional("FieldTypeName"), optional("CheckAdminLevel")),
    operation<&_HRObject::HRFilterAccessLevel2>("HRFilterAccessLevel2", 20, "UserID", "BranchCode", "DataconnectionString", "AppConnectionString", optional("FieldTypeName"), optional("CheckAdminLevel")),
    operation<&_HRObject::HRFilterAccessLevel3>("HRFilterAccessLevel3", 21, "UserID", "BranchCode", "DataconnectionString", "AppConnectionString", optional("FieldTypeName"), optional("CheckAdminLevel")),
    operation<&_HRObject::HRFilterAccessLevel4>("HRFilterAccessLevel4", 22, "UserID", "BranchCode", "DataconnectionString", "AppConnectionString", "FieldTypeName", "CheckAdminLevel"),
    operation<&_HRObject::HRFilterAccessSalary>("HRFilterAccessSalary", 23, "UserID", "DataconnectionString", "AppConnectionString", "EmployeeType"),
    operation<&_HRObject::SelectEmployee>("SelectEmployee", 24, "DataObj", "AppObj", "ClientObj", optional("MultiSelect"), optional("ShowActiveOnly"), optional("DoFilterPermission"), optional("ShowDoSlipOnly"), optional("SortByDivision"), optional("UseDataFromSaleHolder")),
    operation<&_HRObject::SelectEmployee2>("SelectEmployee2", 25, "DataObj", "AppObj", "ClientObj", optional("MultiSelect"), optional("ShowActiveOnly"), optional("DoFilterPermission"), optional("ShowDoSlipOnly"), optional("SortByDivision"), optional("UseDataFromSaleHolder"), optional("FieldTypeName"), optional("CheckAdminLevel"), optional("FilterEmployeeType")),
    operation<&_HRObject::SelectEmployee3>("SelectEmployee3", 26, "DataObj", "AppObj", "ClientObj", optional("MultiSelect"), optional("ShowActiveOnly"), optional("DoFilterPermission"), optional("ShowDoSlipOnly"), optional("SortType"), optional("UseDataFromSaleHolder"), optional("FieldTypeName"), optional("CheckAdminLevel"), optional("FilterEmployeeType")),
    operation<&_HRObject::SelectEmployee4>("SelectEmployee4", 27, "DataObj", "AppObj", "ClientObj", optional("MultiSelect"), optional("ShowActiveOnly"), optional("DoFilterPermission"), optional("ShowDoSlipOnly"), optional("SortType"), optional("UseDataFromSaleHolder"), optional("FieldTypeName"), optional("CheckAdminLevel"), optional("FilterEmployeeType"), optional("AdditionFilter")),
    operation<&_HRObject::SelectSection>("SelectSection", 28, "DataObj", "BranchCode", "DivisionCode", "DepartmentCode", optional("ShowProductionOnly")),
    operation<&_HRObject::UpdatePeriodStatus>("UpdatePeriodStatus", 29, "DataObj", "AutoPeriodOnly"),
    operation<&_HRObject::IsFirstPeriodOfMonth>("IsFirstPeriodOfMonth", 30, "TSAPTEmTCode", "TSAPDate", "DataObj"),
    operation<&_HRObject::IsFirstPeriodOfMonthTR>("IsFirstPeriodOfMonthTR", 31, "TSAPTEmTCode", "TSAPDate", "DataObj"),
    operation<&_HRObject::IsFirstPeriodOfYear>("IsFirstPeriodOfYear", 32, "TSAPTEmTCode", "TSAPDate", "DataObj"),
    operation<&_HRObject::IsFirstPeriodOfYearTR>("IsFirstPeriodOfYearTR", 33, "TSAPTEmTCode", "TSAPDate", "DataObj"),
    operation<&_HRObject::SumAmass>("SumAmass", 34, "TEmpCode", "CheckGroup", "TAmyCode", "TEPSNo", "ConnectionString"),
    operation<&_HRObject::SumAmassTR>("SumAmassTR", 35, "TEmpCode", "CheckGroup", "TAmyCode", "TEPSNo", "ConObj"),
    operation<&_HRObject::SumAmass2>("SumAmass2", 36, "TEmpCode", "CheckGroup", "TAmyCode", "TEPSNo", "DataObj", "Status"),
    operation<&_HRObject::SumAmass2TR>("SumAmass2TR", 37, "TEmpCode", "CheckGroup", "TAmyCode", "TEPSNo", "DataObj", "Status"),
    operation<&_HRObject::SumAmass3TR>("SumAmass3TR", 38, "TEmpCode", "CheckGroup", "BalanceFlag", "TEPSNo", "DataObj", "Status"),
    operation<&_HRObject::BUILTSECTIONTR>("BUILTSECTIONTR", 39, "DataObj", "Branch", "Division", "Department", "Section"),
    operation<&_HRObject::BUILTPOSITION2TR>("BUILTPOSITION2TR", 40, "DataObj", "PositionCode"),
    operation<&_HRObject::BUILTPOSITIONTR>("BUILTPOSITIONTR", 41, "DataObj", "PositionCode", optional("PositionName")),
    operation<&_HRObject::BUILTWORKPERIODTR>("BUILTWORKPERIODTR", 42, "DataObj", "WorkPeriod"),
    operation<&_HRObject::BackupBlankPostionTR>("BackupBlankPostionTR", 43, "DataObj", "TEmpCode"),
    operation<&_HRObject::UpdatePostionTR>("UpdatePostionTR", 44, "DataObj", "TEmpCode", "StartDate", "PositionCode", "Position", "Branch", "Division", "Department", "Section", "Salary", "Custom"),
    operation<&_HRObject::UpdateEmployeeStatus>("UpdateEmployeeStatus", 45, "DataObj"),
    operation<&_HRObject::RenameEmployeeCodeTR>("RenameEmployeeCodeTR", 46, "DataObj", "FromCode", "ToCode"),
    operation<&_HRObject::GetLeaveName>("GetLeaveName", 47, "ConnectionString", "NameOnly"),
    operation<&_HRObject::GetEmployeeLeaveYear>("GetEmployeeLeaveYear", 48, "DataObj", "iDate"),
    operation<&_HRObject::ISWorkDay>("ISWorkDay", 51, "iDate", "DataObj", optional("Branhcode")),
    operation<&_HRObject::ISOfficeHoliday2>("ISOfficeHoliday2", 52, "iDate", "DataObj", optional("Branhcode")),
    operation<&_HRObject::ISOfficeHoliday>("ISOfficeHoliday", 53, "iDate", "DataObj"),
    operation<&_HRObject::DateDifText>("DateDifText", 54, "StartDate", "ToDate"),
    operation<&_HRObject::CountWorkDayString>("CountWorkDayString", 55, "DataObj", "EmployeeCode", "iDate"),
    operation<&_HRObject::CountWorkCompletedMonth>("CountWorkCompletedMonth", 56, "DataObj", "EmployeeCode", "iDate"),
    operation<&_HRObject::CountWorkCompletedYear>("CountWorkCompletedYear", 57, "DataObj", "EmployeeCode", "iDate")};
// clang-format on

static_assert(std::tuple_size_v<decltype(kOperations)> + kUndescribedOperations.size() == 57);

}  // namespace kt7
