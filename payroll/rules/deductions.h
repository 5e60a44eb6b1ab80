#pragma once

#include "payroll/facts/employee.h"

namespace kt7::payroll {

/// The allowances of the year that an employee's circumstances give, without the fund: own, spouse
/// without income, children, parents, life insurance and home interest within their limits.
Currency personalAllowances(const Employee& employee);

/// Own contributions to the provident fund as they reduce the year's taxable income: those of the
/// year so far and, of every month to come, as much as this month's, within the yearly limit.
Currency fundAllowance(Currency yearSoFar, Currency thisMonth, int monthsToCome);

/// Whether the employee contributes to the provident fund on that day.
bool contributesToFund(const Employee& employee, Date payDate);

/// What is still to be withheld of a month's total; never negative.
Currency stillDue(Currency total, Currency withheld);

}  // namespace kt7::payroll
