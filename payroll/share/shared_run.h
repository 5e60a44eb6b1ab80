#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// The same together with other processes: the first one plans the month and divides it into parts,
/// each takes a part after the other, and the last one ends the run. A part whose process is gone
/// is paid by another. Tells and counts what this process did; returns when the month is paid.
/// RunStopped also where a run with another input or type is under way. RunSuperseded,
/// RunInterrupted.
RunOutcome runSharedMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                          const NewWorker& newWorker);

}  // namespace kt7::payroll
