#include <kt7/payroll/month.h>

#include "base/text.h"

namespace kt7::payroll {

std::optional<Month> Month::fromText(std::string_view text) {
  int year = 0;
  int month = 0;
  DigitReader reader(text);
  if (!reader.number(4, year) || !reader.sign('-') || !reader.number(2, month) || !reader.atEnd() ||
      !Date::isCalendarDay(year, month, 1)) {
    return std::nullopt;
  }
  return Month(year, month);
}

Month Month::plus(int months) const {
  const Date day = firstDay().plusMonths(months);
  return {day.year(), day.month()};
}

Date Month::lastDay() const { return firstDay().plusMonths(1).plusDays(-1); }

Date Month::dayAtMost(int day) const {
  return Date::fromYmd(year_, month_, std::min(day, lastDay().day()));
}

std::string Month::text() const { return padded(year_, 4) + "-" + padded(month_, 2); }

}  // namespace kt7::payroll
