#pragma once

#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// What to write to an employee's position history with the last slip of the month.
enum class HistoryStep {
  None,
  Begin,   // no history yet: the current record becomes its first row
  Changed  // the salary differs from the latest row's
};

HistoryStep historyStep(const Employee& employee, const std::map<std::string, double>& latest);

/// Writes the step by the published operations, in the slip's transaction. A changed salary holds
/// from the day `from`.
void writeHistory(HistoryStep step, const Employee& employee, Date from, RunServices& services);

}  // namespace kt7::payroll
