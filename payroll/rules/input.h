#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/item_kinds.h>
#include "payroll/facts/employee.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// A row of the input that passed its checks.
struct InputEntry {
  std::string employee;
  Date payDate;
  std::string kind;
  double quantity = 0;
  Currency amount;
};

/// The month's input, found by employee and pay date, in the order of the file.
class MonthInput {
 public:
  MonthInput() = default;
  explicit MonthInput(std::vector<InputEntry> entries);
  std::span<const InputEntry> of(const std::string& employee, Date payDate) const;
  const std::vector<InputEntry>& entries() const { return entries_; }

 private:
  std::vector<InputEntry> entries_;
};

/// The input and the problems of its rows.
struct CheckedInput {
  MonthInput input;
  std::vector<std::string> problems;  // "input line 7: ..."
  int otherTypes = 0;                 // rows of employees whose type the run does not pay
};

/// The employees that the input names, by code.
using EmployeesByCode = std::map<std::string, Employee>;

/// Checks every row against the employees and the periods that will be paid. A problem is: an
/// unknown employee, a pay date that is none of the type's or for which the employee gets no slip,
/// an empty kind or one that the run reckons itself, no number where the kind needs one, a negative
/// number of days or hours, days and hours given twice for one slip.
CheckedInput checkInput(const std::vector<InputRow>& rows, const EmployeesByCode& employees,
                        const std::vector<SlipPeriod>& periods);

}  // namespace kt7::payroll
