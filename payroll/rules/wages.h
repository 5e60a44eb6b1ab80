#pragma once

#include <optional>
#include <span>

#include <kt7/contract/utility_object.h>
#include "payroll/facts/employee_type.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// Days, hours and absence that the input gives for one slip.
struct GivenTime {
  std::optional<double> days;
  std::optional<double> hours;
  double absentDays = 0;
};

GivenTime givenTime(std::span<const InputEntry> entries);

/// The time that a slip pays. `quantity` multiplies the salary: hours for hourly pay, else days.
struct PaidTime {
  double days = 0;
  double quantity = 0;
};

/// `countedDays`: days by the calendar, used if the input gives neither days nor hours. Absence is
/// taken off, down to 0.
PaidTime paidTime(const EmployeeType& type, int countedDays, const GivenTime& given);

/// Money to two places, half away from zero.
Currency rounded(double baht, UtilityObject& utility);

/// A monthly salary's part for one period.
struct MonthlyPay {
  Currency salary;      // of the month
  double periodAmount;  // the profile's amount of one period
  bool byDays;          // employed on some of the period's days only
  int employedDays;     // calendar days of the period
  bool lastPeriod;      // takes the satang that equal periods leave over
  const EmployeeType& type;
};

/// Equal parts of the salary, the last period taking what is left. If the employee came or left in
/// the period, or the input gives days or hours: by the day, at salary / days a month. Absence is
/// taken off at that rate. Never below 0.
Currency monthlyAmount(const MonthlyPay& pay, const GivenTime& given, UtilityObject& utility);

}  // namespace kt7::payroll
