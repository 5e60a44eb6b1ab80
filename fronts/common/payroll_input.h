#pragma once

#include <string>
#include <vector>

#include <kt7/payroll/input_row.h>
#include "payroll/rules/input.h"

namespace kt7::cli {

/// The rows of a month's input file, by the columns EmployeeCode, PayDate, Kind, Quantity and
/// Amount in any order. A row that does not have the file's columns says so in its problem.
/// Raises std::runtime_error for a file that cannot be read or lacks a column.
std::vector<payroll::InputRow> readPayrollInput(const std::string& file);

}  // namespace kt7::cli
