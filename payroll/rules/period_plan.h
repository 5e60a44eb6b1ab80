#pragma once

#include <string>
#include <vector>

#include <kt7/payroll/month.h>
#include "payroll/facts/employee_type.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// The pay periods of a type in a month, in their order. A pay day beyond the month's end is its
/// last day. A span whose first day of the month is not before its last begins in the month before.
std::vector<SlipPeriod> plannedPeriods(const EmployeeType& type, const Month& month);

/// Why a type cannot be paid in a month, one sentence each: two periods on one pay date, or salary
/// spans that share days with another one of the month, of the month before or after, of a frozen
/// period, or of a paid period of another month. `existing`: the type's periods in the database
/// around the month; those of the month that are not frozen are generated anew and do not count.
std::vector<std::string> clashesOf(const EmployeeType& type, const Month& month,
                                   const std::vector<SlipPeriod>& existing);

}  // namespace kt7::payroll
