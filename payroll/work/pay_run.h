#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// Pays a month: brings employee statuses and slip periods up to date, makes and posts the slip of
/// every employee who is due one, and takes away slips of the month that are not due any more.
/// Frozen periods stay as they are. Running it again gives the same slips and balances, whatever
/// the number of jobs. With more than one, `newWorker` makes each of them its services. The data
/// object's connection is opened and closed; slips are written some tens at a time, and one by one
/// where that fails. RunStopped before anything is written, also where a shared run of the same
/// employees is under way; RunInterrupted; an Error where the database is lost.
RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    const NewWorker& newWorker = {});

}  // namespace kt7::payroll
