#pragma once

#include <kt7/contract/collaborators.h>
#include <kt7/export.h>
#include <kt7/hr_interface.h>

namespace kt7 {

/// The service object of payroll and personnel rules. Keeps nothing between calls but its three
/// collaborators, which it makes on first use; a creation that fails is tried again next time.
/// A host that wraps the object passes itself as `outer`: calls from one operation to another then
/// go through it. Platform and outer outlive the object. One caller at a time.
/// What the operations mean stands at _HRObject.
class KT7_API HRObject : public _HRObject {
 public:
  explicit HRObject(Platform& platform, _HRObject* outer = nullptr);
  ~HRObject() override;

  // --- Wage rates -------------------------------------------------------------------------------
  double GETDAYRATE(const std::string& EmployeeCode, DataObj& dataObj) override;
  double GETHOURRATE(const std::string& EmployeeCode, DataObj& dataObj) override;
  double GETSectionHourRate(const std::string& SectionCode, DataObj& dataObj,
                            bool UseOTRate) override;
  int16_t GetActiveAmassTR(const std::string& EmployeeCode, Date PeriodDate,
                           const std::string& PeriodCondition, DataObj& dataObj) override;
  double GetActiveRateTR(const std::string& EmployeeCode, int16_t TotalAmass, int16_t isActiveType,
                         DataObj& dataObj) override;
  int16_t UpdateEmpActiveAmassTR(int16_t Status, int16_t IsActive, const std::string& EmployeeCode,
                                 Date PeriodDate, DataObj& dataObj) override;

  // --- Tax and social fund ----------------------------------------------------------------------
  float CalcPTAX(DataObj& dataObj, Currency iTaxBase, Date SignDate, int16_t YearCalc,
                 int16_t Condition, int16_t& iMoreMonth, Currency& Reduce, Currency LastPTAX,
                 Currency& CutStudySup, Currency& Donation, Currency& CutWaive, Currency LastSalary,
                 bool& FixtoTen) override;
  float CalcPTAX2(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                  int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth, Currency& Reduce,
                  Currency LastPTAX, Currency& CutStudySup, Currency& Donation, Currency& CutWaive,
                  Currency LastSalary, bool& FixtoTen) override;
  float CalcPTAX3(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                  int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth, Currency& Reduce,
                  Currency LastPTAX, Currency& CutStudySup, Currency& Donation, Currency& CutWaive,
                  Currency LastSalary, bool& FixtoTen, Date PayDate) override;
  float CalcPTAX4(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                  int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth, Currency& Reduce,
                  Currency LastPTAX, Currency& CutStudySup, Currency& Donation, Currency& CutWaive,
                  Currency LastSalary, bool& FixtoTen, Date PayDate, Currency LastSSO) override;
  double GetSFUNDRate(DataObj& dataObj, const std::string& EmployeeTypeCode, Date SignDate,
                      Date calcDate) override;
  double TrimSFUNDBase(double iBaseAmount, DataObj& dataObj) override;
  double TrimSTAXBase(double iBaseAmount, DataObj& dataObj) override;

  // --- Access filters and pickers ---------------------------------------------------------------
  std::string HRFilterAccessLevel(int32_t UserID, const std::string& DataconnectionString,
                                  const std::string& AppConnectionString,
                                  const std::string& FieldTypeName = "",
                                  bool CheckAdminLevel = false) override;
  std::string HRFilterAccessLevel2(int32_t UserID, const std::string& BranchCode,
                                   const std::string& DataconnectionString,
                                   const std::string& AppConnectionString,
                                   const std::string& FieldTypeName = "",
                                   bool CheckAdminLevel = false) override;
  std::string HRFilterAccessLevel3(int32_t UserID, const std::string& BranchCode,
                                   const std::string& DataconnectionString,
                                   const std::string& AppConnectionString,
                                   const std::string& FieldTypeName = "",
                                   bool CheckAdminLevel = false) override;
  std::string HRFilterAccessLevel4(int32_t UserID, const std::string& BranchCode,
                                   const std::string& DataconnectionString,
                                   const std::string& AppConnectionString,
                                   const std::string& FieldTypeName,
                                   KT7HRAccessLevel CheckAdminLevel) override;
  bool HRFilterAccessSalary(int32_t UserID, const std::string& DataconnectionString,
                            const std::string& AppConnectionString,
                            const std::string& EmployeeType) override;

  std::string SelectEmployee(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                             bool MultiSelect = false, bool ShowActiveOnly = false,
                             bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                             bool SortByDivision = false,
                             bool UseDataFromSaleHolder = false) override;
  std::string SelectEmployee2(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                              bool MultiSelect = false, bool ShowActiveOnly = false,
                              bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                              bool SortByDivision = false, bool UseDataFromSaleHolder = false,
                              const std::string& FieldTypeName = "", bool CheckAdminLevel = false,
                              const std::string& FilterEmployeeType = "") override;
  std::string SelectEmployee3(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                              bool MultiSelect = false, bool ShowActiveOnly = false,
                              bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                              KT7EmployeeSortType SortType = KT7EmployeeSortTypeCode,
                              bool UseDataFromSaleHolder = false,
                              const std::string& FieldTypeName = "", bool CheckAdminLevel = false,
                              const std::string& FilterEmployeeType = "") override;
  std::string SelectEmployee4(DataObj& dataObj, AppObj& appObj, ClientObj& clientObj,
                              bool MultiSelect = false, bool ShowActiveOnly = false,
                              bool DoFilterPermission = false, bool ShowDoSlipOnly = false,
                              KT7EmployeeSortType SortType = KT7EmployeeSortTypeCode,
                              bool UseDataFromSaleHolder = false,
                              const std::string& FieldTypeName = "", bool CheckAdminLevel = false,
                              const std::string& FilterEmployeeType = "",
                              const std::string& AdditionFilter = "") override;
  std::string SelectSection(DataObj& dataObj, const std::string& BranchCode,
                            std::string& DivisionCode, std::string& DepartmentCode,
                            bool& ShowProductionOnly) override;

  // --- Pay periods and balances -----------------------------------------------------------------
  void UpdatePeriodStatus(DataObj& dataObj, bool AutoPeriodOnly) override;
  int16_t IsFirstPeriodOfMonth(const std::string& TSAPTEmTCode, Date TSAPDate,
                               DataObj& dataObj) override;
  int16_t IsFirstPeriodOfMonthTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                 DataObj& dataObj) override;
  int16_t IsFirstPeriodOfYear(const std::string& TSAPTEmTCode, Date TSAPDate,
                              DataObj& dataObj) override;
  int16_t IsFirstPeriodOfYearTR(const std::string& TSAPTEmTCode, Date TSAPDate,
                                DataObj& dataObj) override;
  int16_t SumAmass(const std::string& TEmpCode, int32_t CheckGroup, const std::string& TAmyCode,
                   const std::string& TEPSNo, const std::string& ConnectionString) override;
  int16_t SumAmassTR(const std::string& TEmpCode, int32_t CheckGroup, const std::string& TAmyCode,
                     const std::string& TEPSNo, ado::Connection& ConObj) override;
  int16_t SumAmass2(const std::string& TEmpCode, int32_t CheckGroup, const std::string& TAmyCode,
                    const std::string& TEPSNo, DataObj& dataObj, int16_t Status) override;
  int16_t SumAmass2TR(const std::string& TEmpCode, int32_t CheckGroup, const std::string& TAmyCode,
                      const std::string& TEPSNo, DataObj& dataObj, int16_t Status) override;
  int16_t SumAmass3TR(const std::string& TEmpCode, int32_t CheckGroup, int16_t BalanceFlag,
                      const std::string& TEPSNo, DataObj& dataObj, int16_t Status) override;

  // --- Organisation and employee records --------------------------------------------------------
  std::string BUILTSECTIONTR(DataObj& dataObj, const std::string& Branch,
                             const std::string& Division, const std::string& Department,
                             const std::string& Section) override;
  std::string BUILTPOSITION2TR(DataObj& dataObj, const std::string& PositionCode) override;
  std::string BUILTPOSITIONTR(DataObj& dataObj, const std::string& PositionCode,
                              const std::string& PositionName = "") override;
  std::string BUILTWORKPERIODTR(DataObj& dataObj, const std::string& WorkPeriod) override;
  int16_t BackupBlankPostionTR(DataObj& dataObj, const std::string& TEmpCode) override;
  int16_t UpdatePostionTR(DataObj& dataObj, const std::string& TEmpCode, Date StartDate,
                          const std::string& PositionCode, const std::string& Position,
                          const std::string& Branch, const std::string& Division,
                          std::string& Department, const std::string& Section, double Salary,
                          double Custom) override;
  void UpdateEmployeeStatus(DataObj& dataObj) override;
  int16_t RenameEmployeeCodeTR(DataObj& dataObj, const std::string& FromCode,
                               std::string& ToCode) override;

  // --- Leave ------------------------------------------------------------------------------------
  std::string GetLeaveName(const std::string& ConnectionString, bool NameOnly) override;
  int16_t GetEmployeeLeaveYear(DataObj& dataObj, Date iDate) override;

  // --- Work calendar ----------------------------------------------------------------------------
  bool ISWorkDay(Date iDate, DataObj& dataObj, const std::string& Branhcode = "") override;
  bool ISOfficeHoliday2(Date iDate, DataObj& dataObj, const std::string& Branhcode = "") override;
  bool ISOfficeHoliday(Date iDate, DataObj& dataObj) override;
  std::string DateDifText(Date StartDate, Date ToDate) override;
  std::string CountWorkDayString(DataObj& dataObj, const std::string& EmployeeCode,
                                 Date iDate) override;
  int16_t CountWorkCompletedMonth(DataObj& dataObj, const std::string& EmployeeCode,
                                  Date iDate) override;
  int16_t CountWorkCompletedYear(DataObj& dataObj, const std::string& EmployeeCode,
                                 Date iDate) override;

 private:
  _HRObject& self() { return outer_ != nullptr ? *outer_ : *this; }
  UtilityObject& utility() { return collaborators_.utility(); }
  DataTool& dataTool() { return collaborators_.dataTool(); }
  SettingStore& settings() { return collaborators_.settings(); }

  Platform& platform_;
  _HRObject* outer_;
  Collaborators collaborators_{platform_};
};

}  // namespace kt7
