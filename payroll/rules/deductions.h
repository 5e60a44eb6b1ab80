#pragma once

#include "payroll/facts/employee.h"

namespace kt7::payroll {

/// The year's personal allowances in baht without the fund: own, spouse without income, children,
/// parents, life insurance and home interest, each within its limit.
Currency personalAllowances(const Employee& employee);

/// The year's allowance for the employee's own fund contributions: those of the year so far, and
/// this month's once more for every month to come, up to the yearly limit.
Currency fundAllowance(Currency yearSoFar, Currency thisMonth, int monthsToCome);

/// Whether the employee contributes to the provident fund on that day.
bool contributesToFund(const Employee& employee, Date payDate);

/// The part of a month's total that is not withheld yet; never negative.
Currency stillDue(Currency total, Currency withheld);

}  // namespace kt7::payroll
