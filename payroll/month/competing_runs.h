#pragma once

#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// A lease that still holds on the run of that head, on the head itself while the month is planned,
/// else on a part; none if no process is at work.
std::optional<PartRow> activeLease(const PartRow& head, RunLeases& leases);

/// The process that holds the lease: "payserver 4711, who has until 2026-01-31T10:31:00 (UTC)".
std::string leaseHolder(const PartRow& row);
/// A process that holds a part of that name; "" if none does.
std::string partHolder(const std::string& run, const std::string& parts, RunLeases& leases);

/// Ends every abandoned shared run that would pay employees of this request, the requested run
/// itself excepted: its workers, should they wake up, find their parts gone. RunStopped if such a
/// run is under way.
void endCompetingRuns(const RunRequest& request, RunServices& services);

}  // namespace kt7::payroll
