#pragma once

#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// What the position history of an employee needs before the month is paid.
enum class HistoryStep {
  None,
  Begin,   // there is no history: the current record becomes its first row
  Changed  // the salary is another than that of the latest row
};

HistoryStep historyStep(const Employee& employee, const std::map<std::string, double>& latest);

/// Writes the step by the published operations, inside the unit of work of the slip; a changed
/// salary holds from that day on.
void writeHistory(HistoryStep step, const Employee& employee, Date from, RunServices& services);

}  // namespace kt7::payroll
