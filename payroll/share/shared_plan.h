#pragma once

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "payroll/month/month_plan.h"
#include "payroll/ports/run_services.h"
#include "payroll/retry/recovery.h"

namespace kt7::payroll {

/// A shared run that a process takes part in.
struct SharedPlan {
  RunPart head;
  std::string planner;  // who planned it; another one where it was begun anew
  MonthPlan plan;

  /// The parts of a slip period, by its place in the plan.
  std::string partsOf(std::size_t period) const;
  /// What is left when everybody is paid.
  RunPart end() const;
};

/// Joins the run of that month that is under way, or plans one where there is none or where nobody
/// has worked on it for the length of a lease. `worker` is a name that nobody else has. RunStopped
/// where the month cannot be paid, or where those at work were given or found something else.
/// A process that `rejoins` the run that it has worked on gets none where others have paid the
/// month since, and RunSuperseded where the run is another one by now.
std::optional<SharedPlan> joinRun(const RunRequest& request, RunServices& services,
                                  RunListener& listener, const std::string& worker, bool rejoins);

}  // namespace kt7::payroll
