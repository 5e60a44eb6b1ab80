#pragma once

#include <optional>
#include <vector>

#include <kt7/payroll/slip.h>
#include "payroll/ports/company.h"
#include "payroll/slips/salary_history.h"

namespace kt7::payroll {

/// A step of the position history, from that day on.
struct HistoryChange {
  Employee employee;
  HistoryStep step;
  Date from;
};

/// What changes for one employee: slips that go, the one that comes, and the position history. All
/// of it happens or nothing.
struct SlipChange {
  std::optional<Slip> slip;
  std::vector<KnownSlip> removals;
  std::optional<HistoryChange> history = {};
  bool newNumber = false;  // the slip's, under which nothing stands yet
};

}  // namespace kt7::payroll
