#pragma once

#include <cstdint>
#include <string>

#include <kt7/date.h>

namespace kt7::payroll {

/// The slips of the run form a group of their own among an employee's slips and balances.
inline constexpr std::int32_t kCheckGroup = 1;

inline constexpr int kHighestSequence = 9999999;

/// The slip number of a pay date: "20260131-0000001". It does not name the employee, so that it
/// outlives a change of the employee's code. "" beyond the highest sequence.
std::string slipNumber(Date payDate, int sequence);
/// The sequence of such a number, 0 for a number of another form.
int slipSequence(const std::string& number, Date payDate);

}  // namespace kt7::payroll
