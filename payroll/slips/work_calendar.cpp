#include "payroll/slips/work_calendar.h"

namespace kt7::payroll {

int WorkCalendar::workDays(const std::string& branch, const DaySpan& span) {
  int days = 0;
  for (Date day = span.first; !(span.last < day); day = day.plusDays(1)) {
    if (!isDayOff(branch, day)) ++days;
  }
  return days;
}

bool WorkCalendar::isDayOff(const std::string& branch, Date day) {
  auto& known = daysOff_[branch];
  const auto found = known.find(day.dayNumber());
  if (found != known.end()) return found->second;
  // ISWorkDay answers true for a weekday that the pattern marks: a day off.
  const bool marked = hr_.ISWorkDay(day, dataObj_, branch);
  known.emplace(day.dayNumber(), marked);
  return marked;
}

}  // namespace kt7::payroll
