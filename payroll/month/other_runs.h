#pragma once

#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// Whether somebody works on the run of that head or has within the length of a lease.
bool isUnderWay(const PartRow& head, RunLeases& leases);

/// Sees to it that no shared run but the requested one pays employees whom this request pays too.
/// RunStopped where one is under way. One that was broken off is given up: a worker of it that
/// wakes up finds that its part is gone.
void endOtherRuns(const RunRequest& request, RunServices& services);

}  // namespace kt7::payroll
