#pragma once

#include <istream>
#include <string>
#include <vector>

#include <kt7/payroll/input_row.h>
#include "payroll/rules/input.h"

namespace kt7::cli {

/// The rows of a month's input file, by the columns EmployeeCode, PayDate, Kind, Quantity and
/// Amount in any order. A row that does not have the file's columns says so in its problem.
/// Raises std::runtime_error for a file that cannot be read, lacks a column, names one twice or
/// names one that it does not know.
std::vector<payroll::InputRow> readPayrollInput(const std::string& file);
/// The same from a stream; messages call it by the name of the file.
std::vector<payroll::InputRow> readPayrollInput(std::istream& stream, const std::string& file);

}  // namespace kt7::cli
