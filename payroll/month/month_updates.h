#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// Nobody's pay depends on a status: what keeps them from being brought up to date is told, and the
/// month is paid all the same. Counts what had to be repeated.
void updateStatuses(RunServices& services, RunListener& listener, RunOutcome& outcome);

/// RunStopped where they cannot be generated.
void generatePeriods(const Month& month, RunServices& services, RunOutcome& outcome);

}  // namespace kt7::payroll
