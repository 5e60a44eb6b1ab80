#pragma once

#include <map>
#include <string>

#include <kt7/hr_interface.h>
#include <kt7/payroll/day_span.h>

namespace kt7::payroll {

/// The days that branches work, asked once a branch and day.
class WorkCalendar {
 public:
  WorkCalendar(_HRObject& hr, DataObj& dataObj) : hr_(hr), dataObj_(dataObj) {}

  /// The days of the span that the branch's weekly pattern does not mark as days off.
  int workDays(const std::string& branch, const DaySpan& span);

 private:
  bool isDayOff(const std::string& branch, Date day);

  _HRObject& hr_;
  DataObj& dataObj_;
  std::map<std::string, std::map<std::int32_t, bool>> daysOff_;
};

}  // namespace kt7::payroll
