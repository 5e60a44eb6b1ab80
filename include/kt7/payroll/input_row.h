#pragma once

#include <string>

namespace kt7::payroll {

/// A row of the month's input, as text.
struct InputRow {
  int line = 0;  // in the file, for messages
  std::string employee;
  std::string payDate;   // yyyy-mm-dd
  std::string kind;      // in any letter case
  std::string quantity;  // days or hours
  std::string amount;    // baht
  std::string problem;   // why the row could not be read; "" if it could
};

}  // namespace kt7::payroll
