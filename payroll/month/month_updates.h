#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// Updates the employee statuses. A failure is a note only, because no pay depends on a status.
/// Counts retries in the outcome.
void updateStatuses(RunServices& services, RunListener& listener, RunOutcome& outcome);

/// Generates the slip periods of the month. RunStopped if that fails; counts retries.
void generatePeriods(const Month& month, RunServices& services, RunOutcome& outcome);

}  // namespace kt7::payroll
