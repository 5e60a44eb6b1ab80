#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// As runMonth, together with other processes: the first one plans the month and divides it into
/// parts, all of them pay parts, and one ends the month. If a process goes away, another one pays
/// its part. Reports and counts what this process did; returns when the month is paid. RunStopped
/// also if a run with another input or type is under way. RunSuperseded, RunInterrupted.
RunOutcome runSharedMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                          const NewWorker& newWorker);

}  // namespace kt7::payroll
