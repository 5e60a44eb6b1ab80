#include "payroll/rules/wages.h"

#include <algorithm>

#include <kt7/payroll/slip.h>
#include "payroll/facts/satang.h"

namespace kt7::payroll {

GivenTime givenTime(std::span<const InputEntry> entries) {
  GivenTime given;
  for (const InputEntry& entry : entries) {
    switch (itemKind(entry.kind).use) {
      case InputUse::Days:
        given.days = entry.quantity;
        break;
      case InputUse::Hours:
        given.hours = entry.quantity;
        break;
      case InputUse::Absence:
        given.absentDays += entry.quantity;
        break;
      default:
        break;
    }
  }
  return given;
}

PaidTime paidTime(const EmployeeType& type, int countedDays, const GivenTime& given) {
  const double hoursPerDay = type.hoursPerDay;
  if (given.hours) {
    const double hours = std::max(*given.hours - given.absentDays * hoursPerDay, 0.0);
    const double days = hours / hoursPerDay;
    return {days, type.basis == PayBasis::Hourly ? hours : days};
  }
  const double days = std::max(given.days.value_or(countedDays) - given.absentDays, 0.0);
  return {days, type.basis == PayBasis::Hourly ? days * hoursPerDay : days};
}

Currency rounded(double baht, UtilityObject& utility) {
  constexpr std::int16_t kPlaces = 2;
  return Currency::fromDouble(utility.RoundToDigits(baht, kPlaces));
}

Currency monthlyAmount(const MonthlyPay& pay, const GivenTime& given, UtilityObject& utility) {
  const auto ofDays = [&](double days) {
    return rounded(pay.salary.toDouble() * days / pay.type.daysPerMonth, utility);
  };
  if (pay.byDays || given.days || given.hours) {
    return ofDays(paidTime(pay.type, pay.employedDays, given).days);
  }
  const Currency part = rounded(pay.periodAmount, utility);
  const auto earlierPeriods = static_cast<std::int64_t>(pay.type.periods.size()) - 1;
  const Currency amount = pay.lastPeriod ? pay.salary - earlierPeriods * part : part;
  return std::max(toSatang(amount) - ofDays(given.absentDays), Currency());
}

}  // namespace kt7::payroll
