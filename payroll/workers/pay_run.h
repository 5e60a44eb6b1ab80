#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// Pays a month: updates employee statuses and slip periods, makes and posts the slip of every
/// employee who is due one, and removes slips of the month that are no longer due. Frozen periods
/// are left alone. Another run gives the same slips and balances, whatever the number of jobs.
/// `newWorker` makes the services of each job if there are several. Opens and closes the data
/// object's connection. RunStopped before any slip is written, also if a shared run of the same
/// employees is under way; RunInterrupted; an Error if the database is lost.
RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    const NewWorker& newWorker = {});

}  // namespace kt7::payroll
