#pragma once

#include <memory>

#include <kt7/contract/platform.h>
#include <kt7/employee_interface.h>
#include <kt7/export.h>

namespace kt7 {

/// One employee's pay profile, filled by setters and SetTypeCode. May be reused for another
/// employee: fields that new calls do not set keep their values. A host that wraps the object
/// passes itself as `outer`: the setters that SetTypeCode calls then go through it; those of the
/// initialisation do not, as the object is not there yet. Platform and outer outlive the object.
class KT7_API EmployeeObject : public _EmployeeObject {
 public:
  explicit EmployeeObject(Platform& platform, _EmployeeObject* outer = nullptr);
  ~EmployeeObject() override;

  double Salary1() const override { return salary1_; }
  void Salary1(double value) override { salary1_ = value; }
  double Salary2() const override { return salary2_; }
  void Salary2(double value) override { salary2_ = value; }
  double HourFullRate1() const override { return hourFullRate1_; }
  void HourFullRate1(double value) override { hourFullRate1_ = value; }
  double HourRate1() const override { return hourRate1_; }
  void HourRate1(double value) override { hourRate1_ = value; }
  double HourRate2() const override { return hourRate2_; }
  void HourRate2(double value) override { hourRate2_ = value; }
  double PercentGroup1() const override { return percentGroup1_; }
  void PercentGroup1(double value) override { percentGroup1_ = value; }
  double PercentGroup2() const override { return percentGroup2_; }
  void PercentGroup2(double value) override { percentGroup2_ = value; }
  float SalFactor() const override { return salFactor_; }
  void SalFactor(float value) override { salFactor_ = value; }
  std::string Code() const override { return code_; }
  void Code(const std::string& value) override { code_ = value; }
  std::string FullName() const override { return fullName_; }
  void FullName(const std::string& value) override { fullName_ = value; }
  std::string Barcode() const override { return barcode_; }
  void Barcode(const std::string& value) override { barcode_ = value; }
  std::string No() const override { return no_; }
  void No(const std::string& value) override { no_ = value; }
  std::string TypeCode() const override { return typeCode_; }
  std::string TypeName() const override { return typeName_; }
  void TypeName(const std::string& value) override { typeName_ = value; }
  double HourPerDay() const override { return hourPerDay_; }
  void HourPerDay(double value) override;
  double HourPerMonth() const override { return hourPerMonth_; }
  void HourPerMonth(double value) override;
  int16_t DayPerMonth() const override { return dayPerMonth_; }
  void DayPerMonth(int16_t value) override { dayPerMonth_ = value; }
  int16_t DayPerWeek() const override { return dayPerWeek_; }
  void DayPerWeek(int16_t value) override { dayPerWeek_ = value; }
  double HourPerWeek() const override { return hourPerWeek_; }
  void HourPerWeek(double value) override;
  double HolderTaxPerMonth() const override { return holderTaxPerMonth_; }
  void HolderTaxPerMonth(double value) override { holderTaxPerMonth_ = value; }
  double CalculateSalary1() const override { return calculateSalary1_; }
  void CalculateSalary1(double value) override { calculateSalary1_ = value; }
  double CalculateSalary2() const override { return calculateSalary2_; }
  void CalculateSalary2(double value) override { calculateSalary2_ = value; }
  double CalculateQuantity() const override { return calculateQuantity_; }
  void CalculateQuantity(double value) override { calculateQuantity_ = value; }
  int16_t DayPerPeriod() const override { return dayPerPeriod_; }
  void DayPerPeriod(int16_t value) override { dayPerPeriod_ = value; }
  int16_t DayPerYear() const override { return dayPerYear_; }
  void DayPerYear(int16_t value) override { dayPerYear_ = value; }
  double HourPerPeriod() const override { return hourPerPeriod_; }
  void HourPerPeriod(double value) override { hourPerPeriod_ = value; }
  double HourPerYear() const override { return hourPerYear_; }
  void HourPerYear(double value) override { hourPerYear_ = value; }
  int16_t SalaryType() const override { return salaryType_; }
  void SalaryType(int16_t value) override { salaryType_ = value; }
  int16_t CalculateType() const override { return calculateType_; }
  void CalculateType(int16_t value) override { calculateType_ = value; }
  int16_t TotalPeriod() const override { return totalPeriod_; }
  void TotalPeriod(int16_t value) override { totalPeriod_ = value; }
  double TaxBase() const override { return taxBase_; }
  void TaxBase(double value) override { taxBase_ = value; }
  double STaxBase() const override { return sTaxBase_; }
  void STaxBase(double value) override { sTaxBase_ = value; }
  double SFUNDBase() const override { return sFUNDBase_; }
  void SFUNDBase(double value) override { sFUNDBase_ = value; }
  double FUNDBase() const override { return fUNDBase_; }
  void FUNDBase(double value) override { fUNDBase_ = value; }
  double Salary1Base() const override { return salary1Base_; }
  void Salary1Base(double value) override;
  Date SignDate() const override { return signDate_; }
  void SignDate(Date value) override { signDate_ = value; }
  Date ReSignDate() const override { return reSignDate_; }
  void ReSignDate(Date value) override { reSignDate_ = value; }
  Date StartDate() const override { return startDate_; }
  void StartDate(Date value) override { startDate_ = value; }
  Date EndDate() const override { return endDate_; }
  void EndDate(Date value) override { endDate_ = value; }
  int16_t Condition() const override { return condition_; }
  void Condition(int16_t value) override { condition_ = value; }
  Currency LastSalary() const override { return lastSalary_; }
  void LastSalary(Currency value) override { lastSalary_ = value; }
  Currency LastWTAX() const override { return lastWTAX_; }
  void LastWTAX(Currency value) override { lastWTAX_ = value; }
  Currency LastSSO() const override { return lastSSO_; }
  void LastSSO(Currency value) override { lastSSO_ = value; }
  int16_t DecimalSalary() const override { return decimalSalary_; }
  void DecimalSalary(int16_t value) override { decimalSalary_ = value; }

  void SetTypeCode(const std::string& vData, DataObj& dataObj) override;
  void SETSALARY(double iSalary1, double iSalary2, double QuantityCalc) override;
  std::string CalcMethod() const override;
  std::string CalcMethodSalary() const override;

 private:
  _EmployeeObject& self() { return outer_ != nullptr ? *outer_ : *this; }
  UtilityObject& utility();
  DataTool& dataTool();
  double rounded(double value, int16_t digits) { return utility().RoundToDigits(value, digits); }
  double roundedSalary(double value) { return rounded(value, decimalSalary_); }
  int16_t hoursOf(int16_t days);
  void loadType(const std::string& typeCode, DataObj& dataObj);
  void readTypeRow(ado::Recordset& type);
  void deriveHourRates();
  void deriveHourFullRate();
  void derivePay(double salary1, double salary2, double quantity);

  Platform& platform_;
  _EmployeeObject* outer_;
  double salary1_ = 0;
  double salary2_ = 0;
  double hourFullRate1_ = 0;
  double hourRate1_ = 0;
  double hourRate2_ = 0;
  double percentGroup1_ = 0;
  double percentGroup2_ = 0;
  float salFactor_ = 0;
  std::string code_;
  std::string fullName_;
  std::string barcode_;
  std::string no_;
  std::string typeCode_ = "1";
  std::string typeName_;
  int16_t hourPerDay_ = 0;
  int16_t hourPerMonth_ = 0;
  int16_t dayPerMonth_ = 0;
  int16_t dayPerWeek_ = 0;
  int16_t hourPerWeek_ = 0;
  double holderTaxPerMonth_ = 0;
  double calculateSalary1_ = 0;
  double calculateSalary2_ = 0;
  double calculateQuantity_ = 0;
  int16_t dayPerPeriod_ = 0;
  int16_t dayPerYear_ = 0;
  double hourPerPeriod_ = 0;
  double hourPerYear_ = 0;
  int16_t salaryType_ = 0;
  int16_t calculateType_ = 0;
  int16_t totalPeriod_ = 0;
  double taxBase_ = 0;
  double sTaxBase_ = 0;
  double sFUNDBase_ = 0;
  double fUNDBase_ = 0;
  double salary1Base_ = 0;
  Date signDate_ = notSetDate();
  Date reSignDate_ = notSetDate();
  Date startDate_ = notSetDate();
  Date endDate_ = notSetDate();
  int16_t condition_ = 0;
  Currency lastSalary_;
  Currency lastWTAX_;
  Currency lastSSO_;
  int16_t decimalSalary_ = 0;

  std::unique_ptr<DataTool> dataTool_;
  std::unique_ptr<UtilityObject> utility_;
};

}  // namespace kt7
