#pragma once

#include <cstdint>
#include <string>

#include <kt7/contract/utility_object.h>
#include <kt7/date.h>

namespace kt7::periods {

struct PayDates {
  Date payDate;
  Date customDate;
};

/// The pay date and the alternative date of a period in the month of `today`: the days counted from
/// the start of the month, then moved day by day until the pay date lies in it. Intended 3: the
/// alternative date moves along and is never pulled into the month by itself.
PayDates payDatesInMonth(Date today, std::int16_t payDay, std::int16_t customDay);

struct Span {
  Date start;
  Date end;
};

/// The calendar month, as the host's day/month/year texts name it.
struct Month {
  std::int16_t year;
  std::int16_t month;
};

Month previousMonth(Month month);

/// The day of a month, cut back to its last day; overflow for a day below 1, which no date text
/// ever fits.
Date dayInMonth(std::int16_t day, Month month, UtilityObject& utility);

/// The days that a period pays for: both in the month where the first day is before the last day,
/// else from the first day in the month before to the last day in the month.
Span spanInMonth(std::int16_t firstDay, std::int16_t lastDay, Month month, UtilityObject& utility);

/// The overtime span moved back by whole months until it does not end after the pay date nor start
/// after its own end.
Span overtimeSpan(Span span, Date payDate, UtilityObject& utility);

}  // namespace kt7::periods
