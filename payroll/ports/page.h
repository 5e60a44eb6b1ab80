#pragma once

#include <cstddef>
#include <vector>

#include <kt7/payroll/slip.h>
#include "payroll/facts/employee.h"
#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// Employees of a page, which are read, paid and written together.
inline constexpr int kEmployeesAtOnce = 50;

/// Some employees of a slip period, in code order; for a frozen period its slips instead.
struct Page {
  std::size_t index = 0;  // of the page among those of the run; 0 in a shared run
  std::size_t employeesBefore =
      0;  // those of the part on earlier pages; 0 in a run that is not shared
  const SlipPeriod* period = nullptr;
  std::vector<Employee> employees;
  std::vector<Slip> standing = {};
};

}  // namespace kt7::payroll
