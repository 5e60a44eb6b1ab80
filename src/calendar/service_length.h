#pragma once

#include <cstdint>

#include <kt7/date.h>

namespace kt7::calendar {

/// Whole months from one date to another: a month is complete on the same day of the next month.
/// Intended 22: each step starts from the one before, so that a day clipped by a short month stays
/// clipped. 0 when the end lies before the start; overflow past 32767 months or the year 9999.
std::int16_t monthsBetween(Date start, Date end);

}  // namespace kt7::calendar
