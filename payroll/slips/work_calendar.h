#pragma once

#include <map>
#include <string>

#include <kt7/hr_interface.h>
#include <kt7/payroll/day_span.h>

namespace kt7::payroll {

/// The working days of branches; each branch and day is asked once.
class WorkCalendar {
 public:
  WorkCalendar(_HRObject& hr, DataObj& dataObj) : hr_(hr), dataObj_(dataObj) {}

  /// The number of days in the span that are not days off in the branch's weekly pattern.
  int workDays(const std::string& branch, const DaySpan& span);

 private:
  bool isDayOff(const std::string& branch, Date day);

  _HRObject& hr_;
  DataObj& dataObj_;
  std::map<std::string, std::map<std::int32_t, bool>> daysOff_;
};

}  // namespace kt7::payroll
