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
  std::string planner;  // the worker that planned it; changes when the run is planned again
  MonthPlan plan;

  /// The name of the parts of a slip period, by its index in the plan.
  std::string partsOf(std::size_t period) const;
  /// The last part of a run: ending the month, once everybody is paid.
  RunPart end() const;
};

/// Joins the run of that month that is under way, or plans one if there is none or its leases have
/// ended. `worker`: a unique name. RunStopped if the month cannot be paid, or if the run under way
/// has another request or plan. `rejoins`: the process has worked on this run already; then the
/// answer is none if the month has been paid meanwhile, and RunSuperseded if it is another run by
/// now.
std::optional<SharedPlan> joinRun(const RunRequest& request, RunServices& services,
                                  RunListener& listener, const std::string& worker, bool rejoins);

}  // namespace kt7::payroll
