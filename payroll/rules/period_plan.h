#pragma once

#include <string>
#include <vector>

#include <kt7/payroll/month.h>
#include "payroll/facts/employee_type.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// The periods that a type's days of the month make of a month, in their order: the pay day counts
/// as the month's last where the month is shorter, a span whose first day does not come before its
/// last begins in the month before.
std::vector<SlipPeriod> plannedPeriods(const EmployeeType& type, const Month& month);

/// Why a type cannot be paid in a month, one sentence each: two periods on one date, or salary
/// spans that share days with each other, with those of the months beside, with a frozen period or
/// with a period of another month that has been paid. `existing` are the type's periods of the
/// database around the month; an open one of the month itself is about to be generated anew and
/// does not count.
std::vector<std::string> clashesOf(const EmployeeType& type, const Month& month,
                                   const std::vector<SlipPeriod>& existing);

}  // namespace kt7::payroll
