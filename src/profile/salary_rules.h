#pragma once

#include <cstdint>

#include <kt7/date.h>

namespace kt7::profile {

/// How the salary amount of an employee type is to be read.
enum PayBasis : std::int16_t {
  kMonthly = 0,
  kWeekly = 1,
  kDaily = 2,
  kHourly = 3,
  kHalfMonthly = 4,
  kTenDays = 5,
  kByQuantity = 6
};

/// Whether pay of this basis is computed by the day rather than by the month.
bool isPaidByTheDay(std::int16_t calculateType);

/// Whether the employee started after the pay period began or left before it ended. A date of
/// 3333-03-03 is not set; a leaving date of 0 is none either.
bool workedPartOfPeriod(Date signDate, Date resignDate, Date startDate, Date endDate);

}  // namespace kt7::profile
