#pragma once

#include <optional>
#include <string>

#include <kt7/currency.h>
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// An employee as the pay run reads one. A date that was not entered is empty.
struct Employee {
  std::string code;
  std::string fullName;
  std::string type;
  std::string branch;
  std::optional<Date> signDate;
  std::optional<Date> resignDate;  // the last day employed
  std::optional<Currency> salary;
  Currency custom;  // kept beside the salary in the position history
  bool skipSlip = false;

  bool socialInsured = false;
  bool fundMember = false;
  double fundPercent = 0;  // the employee's own share
  std::optional<Date> fundSignDate;

  bool spouseNoIncome = false;
  int children = 0;                 // in all
  int childrenSecondSince2018 = 0;  // those of them with the higher allowance
  int parents = 0;
  Currency lifeInsurance;
  Currency homeInterest;
  Currency cutWaive;
  Currency cutStudySup;
};

/// The days of a span on which the employee was employed. No sign date: always employed; no
/// resignation date: still employed.
DaySpan employedDays(const Employee& employee, const DaySpan& span);

/// Whether the employee gets a slip in that period.
bool isDue(const Employee& employee, const SlipPeriod& period);

}  // namespace kt7::payroll
