#pragma once

#include <cstdint>
#include <string>

#include <kt7/contract/data_obj.h>
#include <kt7/currency.h>
#include <kt7/date.h>
#include <kt7/export.h>

namespace kt7 {

using std::int16_t;
using std::int32_t;

/// The published interface of EmployeeObject: one employee's pay profile. Rates and amounts are in
/// baht; the four dates read 3333-03-03 while not set. HourPerDay, HourPerWeek and HourPerMonth are
/// kept as 16-bit whole numbers (nearest, ties to even; overflow outside their range).
class KT7_API _EmployeeObject {  // NOLINT(bugprone-reserved-identifier): the published name
 public:
  virtual ~_EmployeeObject() = default;

  virtual double Salary1() const = 0;
  virtual void Salary1(double value) = 0;
  virtual double Salary2() const = 0;
  virtual void Salary2(double value) = 0;
  virtual double HourFullRate1() const = 0;
  virtual void HourFullRate1(double value) = 0;
  virtual double HourRate1() const = 0;
  virtual void HourRate1(double value) = 0;
  virtual double HourRate2() const = 0;
  virtual void HourRate2(double value) = 0;
  virtual double PercentGroup1() const = 0;
  virtual void PercentGroup1(double value) = 0;
  virtual double PercentGroup2() const = 0;
  virtual void PercentGroup2(double value) = 0;
  virtual float SalFactor() const = 0;
  virtual void SalFactor(float value) = 0;
  virtual std::string Code() const = 0;
  virtual void Code(const std::string& value) = 0;
  virtual std::string FullName() const = 0;
  virtual void FullName(const std::string& value) = 0;
  virtual std::string Barcode() const = 0;
  virtual void Barcode(const std::string& value) = 0;
  virtual std::string No() const = 0;
  virtual void No(const std::string& value) = 0;
  virtual std::string TypeCode() const = 0;
  virtual std::string TypeName() const = 0;
  virtual void TypeName(const std::string& value) = 0;
  virtual double HourPerDay() const = 0;
  virtual void HourPerDay(double value) = 0;
  virtual double HourPerMonth() const = 0;
  virtual void HourPerMonth(double value) = 0;
  virtual int16_t DayPerMonth() const = 0;
  virtual void DayPerMonth(int16_t value) = 0;
  virtual int16_t DayPerWeek() const = 0;
  virtual void DayPerWeek(int16_t value) = 0;
  virtual double HourPerWeek() const = 0;
  virtual void HourPerWeek(double value) = 0;
  virtual double HolderTaxPerMonth() const = 0;
  virtual void HolderTaxPerMonth(double value) = 0;
  virtual double CalculateSalary1() const = 0;
  virtual void CalculateSalary1(double value) = 0;
  virtual double CalculateSalary2() const = 0;
  virtual void CalculateSalary2(double value) = 0;
  virtual double CalculateQuantity() const = 0;
  virtual void CalculateQuantity(double value) = 0;
  virtual int16_t DayPerPeriod() const = 0;
  virtual void DayPerPeriod(int16_t value) = 0;
  virtual int16_t DayPerYear() const = 0;
  virtual void DayPerYear(int16_t value) = 0;
  virtual double HourPerPeriod() const = 0;
  virtual void HourPerPeriod(double value) = 0;
  virtual double HourPerYear() const = 0;
  virtual void HourPerYear(double value) = 0;
  virtual int16_t SalaryType() const = 0;
  virtual void SalaryType(int16_t value) = 0;
  virtual int16_t CalculateType() const = 0;
  virtual void CalculateType(int16_t value) = 0;
  virtual int16_t TotalPeriod() const = 0;
  virtual void TotalPeriod(int16_t value) = 0;
  virtual double TaxBase() const = 0;
  virtual void TaxBase(double value) = 0;
  virtual double STaxBase() const = 0;
  virtual void STaxBase(double value) = 0;
  virtual double SFUNDBase() const = 0;
  virtual void SFUNDBase(double value) = 0;
  virtual double FUNDBase() const = 0;
  virtual void FUNDBase(double value) = 0;
  virtual double Salary1Base() const = 0;
  virtual void Salary1Base(double value) = 0;
  virtual Date SignDate() const = 0;
  virtual void SignDate(Date value) = 0;
  virtual Date ReSignDate() const = 0;
  virtual void ReSignDate(Date value) = 0;
  virtual Date StartDate() const = 0;
  virtual void StartDate(Date value) = 0;
  virtual Date EndDate() const = 0;
  virtual void EndDate(Date value) = 0;
  virtual int16_t Condition() const = 0;
  virtual void Condition(int16_t value) = 0;
  virtual Currency LastSalary() const = 0;
  virtual void LastSalary(Currency value) = 0;
  virtual Currency LastWTAX() const = 0;
  virtual void LastWTAX(Currency value) = 0;
  virtual Currency LastSSO() const = 0;
  virtual void LastSSO(Currency value) = 0;
  virtual int16_t DecimalSalary() const = 0;
  virtual void DecimalSalary(int16_t value) = 0;

  /// Loads an employee type's working time and pay settings and derives the hour rates from the
  /// salaries as they stand. Reads KT7TEmployeeType on a connection of its own. An unknown type
  /// changes nothing. Every error ends the call silently; what was already set stays set.
  virtual void SetTypeCode(const std::string& vData, DataObj& dataObj) = 0;
  /// Stores the two salaries and derives, by SalaryType, the hour rates and the amounts payable for
  /// the period (QuantityCalc: days or hours), then HourFullRate1, SalFactor and Condition.
  /// Division by zero where the type's hours are 0; fields set before it keep their new values.
  virtual void SETSALARY(double iSalary1, double iSalary2, double QuantityCalc) = 0;
  /// "D" when pay is computed by the day (CalculateType 2, 3, 4 or 6), else "M".
  virtual std::string CalcMethod() const = 0;
  /// As CalcMethod, and also "D" when the employee started or left within the period.
  virtual std::string CalcMethodSalary() const = 0;
};

}  // namespace kt7
