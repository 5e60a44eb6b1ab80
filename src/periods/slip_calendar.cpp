#include "periods/slip_calendar.h"

#include "base/arithmetic.h"

namespace kt7::periods {

PayDates payDatesInMonth(Date today, std::int16_t payDay, std::int16_t customDay) {
  const auto dayOfMonth = static_cast<std::int16_t>(today.day());
  PayDates dates{today.plusDays(subtract16(payDay, dayOfMonth)),
                 today.plusDays(subtract16(customDay, dayOfMonth))};
  while (dates.payDate.month() != today.month()) {
    const int step = dates.payDate > today ? -1 : 1;
    dates.payDate = dates.payDate.plusDays(step);
    dates.customDate = dates.customDate.plusDays(step);
  }
  return dates;
}

Month previousMonth(Month month) {
  if (month.month == 1) return {subtract16(month.year, 1), 12};
  return {month.year, subtract16(month.month, 1)};
}

Date dayInMonth(std::int16_t day, Month month, UtilityObject& utility) {
  const std::string year = std::to_string(month.year);
  for (std::int16_t back = 0;; back = add16(back, 1)) {
    const std::string text = std::to_string(subtract16(day, back)) + "/" +
                             utility.MonthNumberText(month.month, 0, 0) + "/" + year;
    if (utility.IsValidDateText(text)) return utility.TextToDate(text);
  }
}

Span spanInMonth(std::int16_t firstDay, std::int16_t lastDay, Month month, UtilityObject& utility) {
  const Month startMonth = firstDay < lastDay ? month : previousMonth(month);
  const Date start = dayInMonth(firstDay, startMonth, utility);
  return {start, dayInMonth(lastDay, month, utility)};
}

Span overtimeSpan(Span span, Date payDate, UtilityObject& utility) {
  constexpr std::int16_t kMonthBack = -1;
  if (span.start > payDate) span.start = utility.AddMonths(span.start, kMonthBack);
  if (span.end > payDate) span.end = utility.AddMonths(span.end, kMonthBack);
  if (span.start > span.end) span.start = utility.AddMonths(span.start, kMonthBack);
  return span;
}

}  // namespace kt7::periods
