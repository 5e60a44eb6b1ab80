#pragma once

#include <array>
#include <string_view>

namespace kt7 {

/// Whose connection and transaction an operation uses.
enum class Where {
  Nothing,           // no database at all
  Lookups,           // connections of the collaborators, opened for each question
  Own,               // a connection of its own, to read
  OwnTransaction,    // a connection and a transaction of its own
  Callers,           // the data object's connection as it stands, inside the caller's transaction
  Opens,             // the data object's connection, opened and closed
  OpensTransaction,  // the same in a transaction that it begins and commits
  Picker             // the picker's
};

/// The parameters whose texts become part of a statement, or of the condition that a filter
/// answers; names joined by ", ". Other texts are values of rows, or go to the host's own
/// collaborators.
struct ComposedTexts {
  std::string_view asTheyStand = {};    // are SQL themselves
  std::string_view betweenQuotes = {};  // where a quote inside is not doubled
};

/// What a reader wants to know of an operation beyond its parameters.
struct OperationNote {
  std::string_view name;
  std::string_view answers;
  std::string_view reads;
  std::string_view writes;
  Where where;
  ComposedTexts composed = {};
  std::string_view remark = {};  // what would surprise a host; a sentence or none
};

// clang-format off
/// One note an operation, in the order of the table of operations.
inline constexpr auto kOperationNotes = std::to_array<OperationNote>({
    {"GETDAYRATE", "pay for one working day, unrounded", "KT7TEmployee, KT7TEmployeeType", "", Where::Lookups},
    {"GETHOURRATE", "the day rate / 8", "KT7TEmployee, KT7TEmployeeType", "", Where::Lookups},
    {"GETSectionHourRate", "mean hour rate of a section's employees", "KT7TEmployee, KT7TEmployeeType", "", Where::Own, {.betweenQuotes = "SectionCode"}},
    {"GetActiveAmassTR", "length of the run of active periods", "KT7TEmpActiveAmass, KT7TEmployee, KT7TEmployee2", "", Where::Callers, {.asTheyStand = "PeriodCondition", .betweenQuotes = "EmployeeCode"}},
    {"GetActiveRateTR", "attendance allowance for a run length", "KT7TEmpTipRate, KT7TEmployee", "", Where::Callers},
    {"UpdateEmpActiveAmassTR", "0", "KT7TEmployee, KT7TEmployee2", "KT7TEmpActiveAmass, KT7TEmployee2", Where::Callers, {.betweenQuotes = "EmployeeCode"}},
    {"CalcPTAX", "tax of the month without a bonus", "settings, KT7TTaxRate", "", Where::Own},
    {"CalcPTAX2", "tax of the month paid today", "settings, KT7TTaxRate", "", Where::Own},
    {"CalcPTAX3", "tax of the month before any social security", "settings, KT7TTaxRate", "", Where::Own},
    {"CalcPTAX4", "tax to withhold this month", "settings, KT7TTaxRate", "", Where::Own},
    {"GetSFUNDRate", "employer's fund rate in percent", "KT7TFundRate", "", Where::Lookups, {.betweenQuotes = "EmployeeTypeCode"}},
    {"TrimSFUNDBase", "the amount unchanged", "", "", Where::Nothing},
    {"TrimSTAXBase", "a monthly amount within the social-security limits", "settings", "", Where::Lookups},
    {"HRFilterAccessLevel", "condition of what a user may see", "rights, KT7TUserEmpType, KT7TUserBranch", "", Where::Lookups, {.asTheyStand = "FieldTypeName"}},
    {"HRFilterAccessLevel2", "condition of what a user may see", "rights, KT7TUserEmpType, KT7TUserBranch", "", Where::Lookups, {.asTheyStand = "FieldTypeName"}},
    {"HRFilterAccessLevel3", "condition of what a user may see", "rights, KT7TUserEmpType, KT7TUserBranch", "", Where::Lookups, {.asTheyStand = "FieldTypeName"}},
    {"HRFilterAccessLevel4", "condition of what a user may see at a level", "rights, KT7TUserEmpType, KT7TUserBranch", "", Where::Lookups, {.asTheyStand = "FieldTypeName"},
     "A `CheckAdminLevel` other than 1 and 2 is no error: it acts as 0 and asks for every type that the user may see, not for those whose welfare or salaries the user may see."},
    {"HRFilterAccessSalary", "whether a user may see a type's salaries", "rights, KT7TUserEmpType", "", Where::Lookups, {.betweenQuotes = "EmployeeType"}},
    {"SelectEmployee", "employee codes that the user picked", "KT7VEmployee, rights", "", Where::Picker},
    {"SelectEmployee2", "employee codes that the user picked", "KT7VEmployee, rights", "", Where::Picker},
    {"SelectEmployee3", "employee codes that the user picked", "KT7VEmployee, rights", "", Where::Picker, {.asTheyStand = "FieldTypeName", .betweenQuotes = "FilterEmployeeType"}},
    {"SelectEmployee4", "employee codes that the user picked", "KT7VEmployee, rights", "", Where::Picker, {.asTheyStand = "FieldTypeName, AdditionFilter", .betweenQuotes = "FilterEmployeeType"}},
    {"SelectSection", "section code that the user picked", "KT7TSection", "", Where::Picker, {.betweenQuotes = "BranchCode, DivisionCode, DepartmentCode"}},
    {"UpdatePeriodStatus", "nothing; shows a failure as a message", "KT7TEmployeeType", "KT7TEmpSlipPeriod", Where::OwnTransaction},
    {"IsFirstPeriodOfMonth", "1 or 0", "KT7TEmpSlipPeriod", "", Where::Opens, {.betweenQuotes = "TSAPTEmTCode"}},
    {"IsFirstPeriodOfMonthTR", "1 or 0", "KT7TEmpSlipPeriod", "", Where::Callers, {.betweenQuotes = "TSAPTEmTCode"}},
    {"IsFirstPeriodOfYear", "1 or 0", "KT7TEmpSlipPeriod", "", Where::Opens, {.betweenQuotes = "TSAPTEmTCode"}},
    {"IsFirstPeriodOfYearTR", "1 or 0", "KT7TEmpSlipPeriod", "", Where::Callers, {.betweenQuotes = "TSAPTEmTCode"}},
    {"SumAmass", "0, without effect", "", "", Where::Nothing},
    {"SumAmassTR", "0, without effect", "", "", Where::Nothing},
    {"SumAmass2", "1 when a balance was posted, else 0", "KT7VEmployeeSlip, KT7TEmpSlipDoc, KT7TEmployee", "KT7TEmpAmassType", Where::OpensTransaction, {.betweenQuotes = "TEmpCode, TEPSNo"}},
    {"SumAmass2TR", "1 when a balance was posted, else 0", "KT7VEmployeeSlip, KT7TEmpSlipDoc, KT7TEmployee", "KT7TEmpAmassType", Where::Callers, {.betweenQuotes = "TEmpCode, TEPSNo"}},
    {"SumAmass3TR", "1 when a balance was posted, else 0", "KT7VEmployeeSlip, KT7TEmpSlipDoc, KT7TEmployee", "KT7TEmpAmassType", Where::Callers, {.betweenQuotes = "TEmpCode, TEPSNo"}},
    {"BUILTSECTIONTR", "section code", "setting CompanyCode", "KT7TBranch, KT7TDivision, KT7TDepartment, KT7TSection", Where::Callers, {.betweenQuotes = "Branch, Division, Department, Section"}},
    {"BUILTPOSITION2TR", "position code, at most 30 characters", "", "KT7TPosition", Where::Callers, {.betweenQuotes = "PositionCode"}},
    {"BUILTPOSITIONTR", "position code, at most 30 characters", "", "KT7TPosition", Where::Callers, {.betweenQuotes = "PositionCode"}},
    {"BUILTWORKPERIODTR", "work-period code", "", "KT7TEmpWorkPeriod, KT7TEmpWorkTime", Where::Callers, {.betweenQuotes = "WorkPeriod"}},
    {"BackupBlankPostionTR", "line number of the history, 0 for an unknown employee", "KT7TEmployee, KT7VEmployee", "KT7TEmpHisPosition", Where::Callers, {.betweenQuotes = "TEmpCode"}},
    {"UpdatePostionTR", "next line number of the history", "KT7VEmployee", "KT7TEmpHisPosition", Where::Callers, {.betweenQuotes = "TEmpCode"}},
    {"UpdateEmployeeStatus", "nothing; shows a failure as a message", "KT7VEmployeeGroup", "KT7TEmployee", Where::OwnTransaction},
    {"RenameEmployeeCodeTR", "1", "", "35 tables that store an employee code", Where::Callers, {.betweenQuotes = "FromCode, ToCode"}},
    {"GetLeaveName", "the leave types as one text", "KT7TEmpLeaveType", "", Where::Own},
    {"GetEmployeeLeaveYear", "number of the leave period, 0 for none", "KT7TEmpLeavePeriod", "", Where::Lookups},
    {"ISWorkDay", "true for a weekday that the branch marks", "KT7TBranch, setting HeadOfficeBranchCode", "", Where::Lookups},
    {"ISOfficeHoliday2", "whether a branch has a holiday", "KT7TEmpHoliday, setting HeadOfficeBranchCode", "", Where::Lookups, {.betweenQuotes = "Branhcode"}},
    {"ISOfficeHoliday", "whether the head office has a holiday", "KT7TEmpHoliday, setting HeadOfficeBranchCode", "", Where::Lookups},
    {"DateDifText", "years-months-0 between two dates", "", "", Where::Nothing},
    {"CountWorkDayString", "length of service as years-months-0", "KT7TEmployee", "", Where::Opens, {.betweenQuotes = "EmployeeCode"}},
    {"CountWorkCompletedMonth", "whole months of service", "KT7TEmployee", "", Where::Opens, {.betweenQuotes = "EmployeeCode"}},
    {"CountWorkCompletedYear", "whole years of service", "KT7TEmployee", "", Where::Opens, {.betweenQuotes = "EmployeeCode"}},
});
// clang-format on

}  // namespace kt7
