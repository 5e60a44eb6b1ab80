#pragma once

#include <optional>
#include <span>

#include <kt7/contract/utility_object.h>
#include "payroll/facts/employee_type.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// What the month's input says about the time of one slip.
struct GivenTime {
  std::optional<double> days;
  std::optional<double> hours;
  double absentDays = 0;
};

GivenTime givenTime(std::span<const InputEntry> entries);

/// The days that a slip pays, and the same as the quantity that the salary is multiplied by: days,
/// or hours where pay is by the hour.
struct PaidTime {
  double days = 0;
  double quantity = 0;
};

/// `countedDays` are the days of the calendar that count for this kind of pay; days or hours given
/// take their place, absence is taken off either, down to nothing.
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

/// Equal parts, the last period what is left of the salary; by the day at salary / days a month
/// where somebody came or left in the period, or days or hours are given. Absence is taken off at
/// the same rate. Never below 0.
Currency monthlyAmount(const MonthlyPay& pay, const GivenTime& given, UtilityObject& utility);

}  // namespace kt7::payroll
