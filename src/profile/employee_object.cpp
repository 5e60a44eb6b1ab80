#include <kt7/employee_object.h>

#include "base/arithmetic.h"
#include "profile/salary_rules.h"
#include "support/create.h"

namespace kt7 {

namespace {

constexpr int16_t kHourDigits = 2;

}  // namespace

EmployeeObject::EmployeeObject(Platform& platform, _EmployeeObject* outer)
    : platform_(platform), outer_(outer) {
  dayPerMonth_ = 30;
  dayPerWeek_ = 7;
  hourPerDay_ = 8;
  utility();
  hourPerWeek_ = hoursOf(dayPerWeek_);
  hourPerMonth_ = hoursOf(dayPerMonth_);
  decimalSalary_ = 4;
}

EmployeeObject::~EmployeeObject() = default;

UtilityObject& EmployeeObject::utility() {
  return createdOnFirstUse(utility_, platform_, &Platform::createUtilityObject);
}

DataTool& EmployeeObject::dataTool() {
  return createdOnFirstUse(dataTool_, platform_, &Platform::createDataTool);
}

void EmployeeObject::HourPerDay(double value) { hourPerDay_ = toInt16(value); }

void EmployeeObject::HourPerMonth(double value) { hourPerMonth_ = toInt16(value); }

void EmployeeObject::HourPerWeek(double value) { hourPerWeek_ = toInt16(value); }

int16_t EmployeeObject::hoursOf(int16_t days) {
  return toInt16(rounded(multiply16(days, hourPerDay_), kHourDigits));
}

void EmployeeObject::deriveHourFullRate() {
  hourFullRate1_ = roundedSalary(divide(salary1Base_, hourPerMonth_));
}

void EmployeeObject::Salary1Base(double value) {
  salary1Base_ = value;
  deriveHourFullRate();
}

std::string EmployeeObject::CalcMethod() const {
  return profile::isPaidByTheDay(calculateType_) ? "D" : "M";
}

std::string EmployeeObject::CalcMethodSalary() const {
  if (profile::isPaidByTheDay(calculateType_)) return "D";
  return profile::workedPartOfPeriod(signDate_, reSignDate_, startDate_, endDate_) ? "D" : "M";
}

}  // namespace kt7
