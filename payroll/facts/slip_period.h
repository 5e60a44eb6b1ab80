#pragma once

#include <string>

#include <kt7/payroll/day_span.h>

namespace kt7::payroll {

/// One pay date of an employee type, with the days that it pays for.
struct SlipPeriod {
  std::string type;
  int number = 0;  // within the month, from 1
  Date payDate;
  DaySpan salary;
  bool frozen = false;    // closed: its slips never change
  bool hasSlips = false;  // slips of that type and pay date exist

  /// "M1 on 2026-01-31"
  std::string name() const { return type + " on " + payDate.isoDateText(); }
};

}  // namespace kt7::payroll
