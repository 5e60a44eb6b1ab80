#pragma once

#include <kt7/payroll/run_request.h>
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// The head or the part by which somebody works on the run of that head or has within the length of
/// a lease; none where nobody does.
std::optional<PartRow> signOfLife(const PartRow& head, RunLeases& leases);

/// "payserver 4711, who has until 2026-01-31T10:31:00 (UTC)": the process at work on it.
std::string whoHas(const PartRow& row);
/// The process at work on a part of that name; "" where nobody has one.
std::string whoHasPart(const std::string& run, const std::string& parts, RunLeases& leases);

/// Sees to it that no shared run but the requested one pays employees whom this request pays too.
/// SharedRunUnderWay where there is one. One that was broken off is given up: a worker of it that
/// wakes up finds that its part is gone.
void endOtherRuns(const RunRequest& request, RunServices& services);

}  // namespace kt7::payroll
