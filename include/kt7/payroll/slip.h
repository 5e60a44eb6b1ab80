#pragma once

#include <string>
#include <vector>

#include <kt7/currency.h>
#include <kt7/export.h>
#include <kt7/payroll/day_span.h>
#include <kt7/payroll/item_kinds.h>

namespace kt7::payroll {

/// One line of a slip. Amounts are never signed by what they count as: a deduction of 500 is 500.
struct SlipItem {
  std::string kind;
  std::string name;
  double quantity = 0;  // days or hours, 0 where the kind knows none
  Counts counts = Counts::Income;
  Currency amount;
};

/// The attendance verdict of a period; none where the type knows no allowance.
enum class Verdict { None, Inactive, Active };

/// The pay of one employee on one pay date.
struct KT7_API Slip {
  std::string number;
  std::string employee;
  std::string fullName;
  std::string type;
  Date payDate;
  int periodNumber = 0;
  DaySpan span;
  double payDays = 0;
  Verdict attendance = Verdict::None;
  std::vector<SlipItem> items;

  void add(std::string_view kind, Counts counts, Currency amount, double quantity = 0);
};

}  // namespace kt7::payroll
