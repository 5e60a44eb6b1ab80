#pragma once

#include <cstddef>
#include <vector>

#include "payroll/facts/slip_period.h"

namespace kt7::payroll {

/// The employees of one page are asked, reckoned and written together.
inline constexpr int kEmployeesAtOnce = 50;

/// Some employees of a slip period, in code order; of a frozen one the slips that stand instead.
struct Page {
  std::size_t index = 0;  // within the run
  const SlipPeriod* period = nullptr;
  std::vector<Employee> employees;
  std::vector<Slip> standing = {};
};

}  // namespace kt7::payroll
