#pragma once

#include <optional>
#include <vector>

#include <kt7/payroll/slip.h>
#include "payroll/ports/company.h"
#include "payroll/slips/salary_history.h"

namespace kt7::payroll {

/// A row to add to the position history, from that day on.
struct HistoryChange {
  Employee employee;
  HistoryStep step;
  Date from;
};

/// What one transaction changes for one employee: slips removed, the slip written, and the position
/// history.
struct SlipChange {
  std::optional<Slip> slip;
  std::vector<KnownSlip> removals;
  std::optional<HistoryChange> history = {};
  bool newNumber = false;  // the slip is new, so is its number
};

}  // namespace kt7::payroll
