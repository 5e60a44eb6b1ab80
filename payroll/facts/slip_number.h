#pragma once

#include <cstdint>
#include <string>

#include <kt7/date.h>

namespace kt7::payroll {

/// The check group of slips and balances that the pay run writes.
inline constexpr std::int32_t kCheckGroup = 1;

inline constexpr int kHighestSequence = 9999999;

/// "20260131-0000001" for a pay date and sequence; "" beyond the highest sequence. The employee's
/// code is not part of it, because codes can change.
std::string slipNumber(Date payDate, int sequence);
/// The sequence in such a number; 0 if the number has another form or pay date.
int slipSequence(const std::string& number, Date payDate);

}  // namespace kt7::payroll
