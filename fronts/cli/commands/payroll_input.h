#pragma once

#include <string>
#include <vector>

#include "payroll/run/input.h"

namespace kt7::cli {

/// The rows of a month's input file, by the columns EmployeeCode, PayDate, Kind, Quantity and
/// Amount in any order. Raises std::runtime_error for a file that cannot be read or lacks a column;
/// rows that are no rows of it are problems, each with its line.
struct PayrollInput {
  std::vector<payroll::InputRow> rows;
  std::vector<std::string> problems;
};

PayrollInput readPayrollInput(const std::string& file);

}  // namespace kt7::cli
