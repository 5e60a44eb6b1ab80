#pragma once

#include <cstdint>
#include <string>

#include <kt7/contract/data_obj.h>
#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/enumerations.h>
#include <kt7/export.h>

namespace kt7 {

using std::int16_t;
using std::int32_t;

/// The published interface of HRObject: payroll and personnel rules that work on the host's
/// database through the data object handed to each call. Parameter names, order and defaults are
/// published. Unless an operation says otherwise every failure of a query or a collaborator is an
/// Error that reaches the caller. Operations whose name ends in TR work on DataObj.Connection as
/// it stands, inside the caller's transaction; their twins open and close the connection.
/// Conventions of dates, money and nulls: docs/operations.md.
class KT7_API _HRObject {  // NOLINT(bugprone-reserved-identifier): the published name
 public:
  virtual ~_HRObject() = default;

  // --- Wage rates -------------------------------------------------------------------------------

  /// Pay for one working day in baht, unrounded, by the salary type of the employee's type
  /// (0 monthly / 30, 1 weekly / 7, 2 daily, 3 hourly x 8, 4 half-monthly / 15, 5 ten days / 3,
  /// others 0). Missing rows and nulls count as 0. Reads KT7TEmployee, KT7TEmployeeType.
  virtual double GETDAYRATE(const std::string& EmployeeCode, DataObj& dataObj) = 0;
  /// GETDAYRATE / 8, unrounded: the type's own hours a day are not consulted.
  virtual double GETHOURRATE(const std::string& EmployeeCode, DataObj& dataObj) = 0;
  /// Mean GETHOURRATE of a section's employees, 0 for none. UseOTRate has no effect.
  virtual double GETSectionHourRate(const std::string& SectionCode, DataObj& dataObj,
                                    bool UseOTRate) = 0;

  /// Length of the run of active periods up to PeriodDate; PeriodCondition is "<=" or "<".
  /// Reads KT7TEmpActiveAmass and, where the run reaches back past its rows, TEm2LastBonusAmass.
  virtual int16_t GetActiveAmassTR(const std::string& EmployeeCode, Date PeriodDate,
                                   const std::string& PeriodCondition, DataObj& dataObj) = 0;
  /// The allowance for a run length: TETRActiveRate when isActiveType is 1, else TETRTipRate, of
  /// the highest base not above TotalAmass; 0 without one. Reads KT7TEmpTipRate.
  virtual double GetActiveRateTR(const std::string& EmployeeCode, int16_t TotalAmass,
                                 int16_t isActiveType, DataObj& dataObj) = 0;
  /// Records (Status not 0) or withdraws (Status 0) a period's verdict and refreshes the run length
  /// TEm2BonusAmass; always 0. Writes KT7TEmpActiveAmass, KT7TEmployee2.
  virtual int16_t UpdateEmpActiveAmassTR(int16_t Status, int16_t IsActive,
                                         const std::string& EmployeeCode, Date PeriodDate,
                                         DataObj& dataObj) = 0;

  // --- Tax and social fund ----------------------------------------------------------------------

  /// CalcPTAX2 without a bonus.
  virtual float CalcPTAX(DataObj& dataObj, Currency iTaxBase, Date SignDate, int16_t YearCalc,
                         int16_t Condition, int16_t& iMoreMonth, Currency& Reduce,
                         Currency LastPTAX, Currency& CutStudySup, Currency& Donation,
                         Currency& CutWaive, Currency LastSalary, bool& FixtoTen) = 0;
  /// CalcPTAX3 with today as the pay date.
  virtual float CalcPTAX2(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                          int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen) = 0;
  /// CalcPTAX4 with no social security paid so far.
  virtual float CalcPTAX3(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                          int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen, Date PayDate) = 0;
  /// Personal income tax to withhold this month, in baht, two places (negative where too much was
  /// withheld): the year's income is projected, the statutory allowances and personal deductions
  /// taken off, the rate table walked, and what is still owed spread over this month and those to
  /// come; the tax that the bonus causes is withheld whole now. 0, and nothing read, when iTaxBase
  /// is not above 0. iMoreMonth 12 means "from PayDate". Donation comes back 0.
  /// Reads settings and KT7TTaxRate on a connection of its own. A null in the rate table is a type
  /// mismatch, iMoreMonth -1 a division by zero.
  virtual float CalcPTAX4(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                          int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen, Date PayDate, Currency LastSSO) = 0;

  /// The employer's provident fund rate in percent for the calendar years between the dates;
  /// 0 where no row applies or calcDate lies in the year 2400 or later (a Buddhist-era date).
  /// Reads KT7TFundRate.
  virtual double GetSFUNDRate(DataObj& dataObj, const std::string& EmployeeTypeCode, Date SignDate,
                              Date calcDate) = 0;
  /// The amount unchanged: the provident fund knows no limits. Reads nothing.
  virtual double TrimSFUNDBase(double iBaseAmount, DataObj& dataObj) = 0;
  /// A monthly amount in baht raised to STAXMinRate, then cut to STAXMaxRate (settings).
  virtual double TrimSTAXBase(double iBaseAmount, DataObj& dataObj) = 0;

  // --- Access filters and pickers ---------------------------------------------------------------

  /// HRFilterAccessLevel2 without a branch.
  virtual std::string HRFilterAccessLevel(int32_t UserID, const std::string& DataconnectionString,
                                          const std::string& AppConnectionString,
                                          const std::string& FieldTypeName = "",
                                          bool CheckAdminLevel = false) = 0;
  virtual std::string HRFilterAccessLevel2(int32_t UserID, const std::string& BranchCode,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName = "",
                                           bool CheckAdminLevel = false) = 0;
  /// HRFilterAccessLevel4 at the administrator level, or at the user level.
  virtual std::string HRFilterAccessLevel3(int32_t UserID, const std::string& BranchCode,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName = "",
                                           bool CheckAdminLevel = false) = 0;
  /// The SQL condition of the employee types (and, where FieldTypeName names the employee table's
  /// type column, the branches) that a user may see at a level; "" for no restriction. It begins
  /// with a blank and has no leading AND. Reads KT7TUserEmpType and KT7TUserBranch.
  virtual std::string HRFilterAccessLevel4(int32_t UserID, const std::string& BranchCode,
                                           const std::string& DataconnectionString,
                                           const std::string& AppConnectionString,
                                           const std::string& FieldTypeName,
                                           KT7HRAccessLevel CheckAdminLevel) = 0;
  /// Whether a user may see the salaries of an employee type ("" = of any). Reads KT7TUserEmpType.
  virtual bool HRFilterAccessSalary(int32_t UserID, const std::string& DataconnectionString,
                                    const std::string& AppConnectionString,
                                    const std::string& EmployeeType) = 0;

  virtual std::string SelectEmployee(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                     bool MultiSelect = false, bool ShowActiveOnly = false,
                                     bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                                     bool SortByDivision = false,
                                     bool UseDataFromSaleHolder = false) = 0;
  virtual std::string SelectEmployee2(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                      bool MultiSelect = false, bool ShowActiveOnly = false,
                                      bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                                      bool SortByDivision = false,
                                      bool UseDataFromSaleHolder = false,
                                      const std::string& FieldTypeName = "",
                                      bool CheckAdminLevel = false,
                                      const std::string& FilterEmployeeType = "") = 0;
  virtual std::string SelectEmployee3(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                                      bool MultiSelect = false, bool ShowActiveOnly = false,
                                      bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                                      KT7EmployeeSortType SortType = KT7EmployeeSortTypeCode,
                                      bool UseDataFromSaleHolder = false,
                                      const std::string& FieldTypeName = "",
                                      bool CheckAdminLevel = false,
                                      const std::string& FilterEmployeeType = "") = 0;
  /// Lets the user choose employees; answers their codes as the picker joins them, "" for none.
  /// Reads KT7VEmployee through the picker.
  virtual std::string SelectEmployee4(
      DataObj& dataObj, AppObj& appObj, ClientObj& clientObj, bool MultiSelect = false,
      bool ShowActiveOnly = false, bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
      KT7EmployeeSortType SortType = KT7EmployeeSortTypeCode, bool UseDataFromSaleHolder = false,
      const std::string& FieldTypeName = "", bool CheckAdminLevel = false,
      const std::string& FilterEmployeeType = "", const std::string& AdditionFilter = "") = 0;
  /// Lets the user choose a section. Reads KT7TSection through the picker.
  virtual std::string SelectSection(DataObj& dataObj, const std::string& BranchCode,
                                    std::string& DivisionCode, std::string& DepartmentCode,
                                    bool& ShowProductionOnly) = 0;

  // --- Pay periods and balances -----------------------------------------------------------------

  /// Writes the slip periods of the current month for every employee type in use (AutoPeriodOnly:
  /// those generated automatically) in one transaction of its own; rows of status 0 are frozen and
  /// stay. A failure rolls back, is shown as a message and does not reach the caller, except where
  /// the transaction could not even begin. Reads KT7TEmployeeType, writes KT7TEmpSlipPeriod.
  virtual void UpdatePeriodStatus(DataObj& dataObj, bool AutoPeriodOnly) = 0;
  /// 1 when the type's first stored period of the year, as the database delivers it, is number 1 or
  /// less, or there is none; else 0. Intended 5: the month plays no part. Reads KT7TEmpSlipPeriod.
  virtual int16_t IsFirstPeriodOfMonth(const std::string& TSAPTEmTCode, Date TSAPDate,
                                       DataObj& dataObj) = 0;
  virtual int16_t IsFirstPeriodOfMonthTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                         DataObj& dataObj) = 0;
  /// 1 when no period of the type lies earlier in the same year, else 0. Reads KT7TEmpSlipPeriod.
  virtual int16_t IsFirstPeriodOfYear(const std::string& TSAPTEmTCode, Date TSAPDate,
                                      DataObj& dataObj) = 0;
  virtual int16_t IsFirstPeriodOfYearTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                        DataObj& dataObj) = 0;

  /// Published and without effect; 0.
  virtual int16_t SumAmass(const std::string& TEmpCode, int32_t CheckGroup,
                           const std::string& TAmyCode, const std::string& TEPSNo,
                           const std::string& ConnectionString) = 0;
  /// Published and without effect; 0.
  virtual int16_t SumAmassTR(const std::string& TEmpCode, int32_t CheckGroup,
                             const std::string& TAmyCode, const std::string& TEPSNo,
                             ado::Connection& ConObj) = 0;
  /// SumAmass2TR in a transaction of the data object's own; after an error the transaction is still
  /// open and rolling back is the caller's business.
  virtual int16_t SumAmass2(const std::string& TEmpCode, int32_t CheckGroup,
                            const std::string& TAmyCode, const std::string& TEPSNo,
                            DataObj& dataObj, int16_t Status) = 0;
  /// SumAmass3TR with balance flag 0; TAmyCode has no effect.
  virtual int16_t SumAmass2TR(const std::string& TEmpCode, int32_t CheckGroup,
                              const std::string& TAmyCode, const std::string& TEPSNo,
                              DataObj& dataObj, int16_t Status) = 0;
  /// Posts a slip's items into the employee's balance row of its pay date, replacing what an
  /// earlier posting of the same key left; 1 when a row was written, 0 for a slip without items.
  /// Reads KT7VEmployeeSlip, KT7TEmpSlipDoc, KT7TEmployee, writes KT7TEmpAmassType. Null amounts
  /// count as 0.
  virtual int16_t SumAmass3TR(const std::string& TEmpCode, int32_t CheckGroup, int16_t BalanceFlag,
                              const std::string& TEPSNo, DataObj& dataObj, int16_t Status) = 0;

  // --- Organisation and employee records --------------------------------------------------------

  /// Makes sure that branch, division, department and section exist, each written as code,
  /// code=name, code=name=name2 or code=name=name2=doccode; answers the section code.
  /// Adds rows to KT7TBranch, KT7TDivision, KT7TDepartment, KT7TSection.
  virtual std::string BUILTSECTIONTR(DataObj& dataObj, const std::string& Branch,
                                     const std::string& Division, const std::string& Department,
                                     const std::string& Section) = 0;
  /// Makes sure that a position exists; answers its code, at most 30 characters. Adds to
  /// KT7TPosition.
  virtual std::string BUILTPOSITION2TR(DataObj& dataObj, const std::string& PositionCode) = 0;
  virtual std::string BUILTPOSITIONTR(DataObj& dataObj, const std::string& PositionCode,
                                      const std::string& PositionName = "") = 0;
  /// Makes sure that a work period exists and resets its seven weekdays (Sunday and Saturday paid
  /// as holidays); answers its code. Writes KT7TEmpWorkPeriod, KT7TEmpWorkTime.
  virtual std::string BUILTWORKPERIODTR(DataObj& dataObj, const std::string& WorkPeriod) = 0;

  /// Gives an employee without history a first row from the current record; answers the line
  /// number, 0 for an unknown employee. Writes KT7TEmpHisPosition.
  virtual int16_t BackupBlankPostionTR(DataObj& dataObj, const std::string& TEmpCode) = 0;
  /// Records the employee's stored position from StartDate on, adding or rewriting the row of that
  /// date; answers the next line number. The text parameters have no effect: the snapshot is taken
  /// from the employee's record. Writes KT7TEmpHisPosition.
  virtual int16_t UpdatePostionTR(DataObj& dataObj, const std::string& TEmpCode, Date StartDate,
                                  const std::string& PositionCode, const std::string& Position,
                                  const std::string& Branch, const std::string& Division,
                                  std::string& Department, const std::string& Section,
                                  double Salary, double Custom) = 0;

  /// Moves statuses 3 and 4 with the resignation date as of today and refreshes the group code of
  /// current employees, in one transaction of its own; a failure rolls back, is shown as a message
  /// and does not reach the caller. Writes KT7TEmployee.
  virtual void UpdateEmployeeStatus(DataObj& dataObj) = 0;
  /// Rewrites an employee code in 35 tables; 1 when all statements ran. No transaction of its own.
  virtual int16_t RenameEmployeeCodeTR(DataObj& dataObj, const std::string& FromCode,
                                       std::string& ToCode) = 0;

  // --- Leave ------------------------------------------------------------------------------------

  /// The leave types in code order, joined by ",": names, or "Leave" + code + ";" + name. Goes on
  /// after an error with what it has. Reads KT7TEmpLeaveType on a connection of its own.
  virtual std::string GetLeaveName(const std::string& ConnectionString, bool NameOnly) = 0;
  /// Number of the leave period that a date lies in, 0 for none. Reads KT7TEmpLeavePeriod.
  virtual int16_t GetEmployeeLeaveYear(DataObj& dataObj, Date iDate) = 0;

  // --- Work calendar ----------------------------------------------------------------------------

  /// Intended 24: true when the branch's weekly pattern marks the weekday "H", that is, a day off.
  /// "" and "HEADOFFICE" stand for the head office. Reads TBraHolidayList of KT7TBranch.
  virtual bool ISWorkDay(Date iDate, DataObj& dataObj, const std::string& Branhcode = "") = 0;
  /// Whether a date is an office holiday of a branch. Reads KT7TEmpHoliday.
  virtual bool ISOfficeHoliday2(Date iDate, DataObj& dataObj,
                                const std::string& Branhcode = "") = 0;
  /// ISOfficeHoliday2 of the head office.
  virtual bool ISOfficeHoliday(Date iDate, DataObj& dataObj) = 0;

  /// Whole years and months from one date to another as "years-months-0". Reads nothing.
  virtual std::string DateDifText(Date StartDate, Date ToDate) = 0;
  /// DateDifText from the employee's sign date; "0-0-0" without one. Opens and closes the data
  /// object's connection. Reads KT7TEmployee.
  virtual std::string CountWorkDayString(DataObj& dataObj, const std::string& EmployeeCode,
                                         Date iDate) = 0;
  virtual int16_t CountWorkCompletedMonth(DataObj& dataObj, const std::string& EmployeeCode,
                                          Date iDate) = 0;
  virtual int16_t CountWorkCompletedYear(DataObj& dataObj, const std::string& EmployeeCode,
                                         Date iDate) = 0;
};

}  // namespace kt7
