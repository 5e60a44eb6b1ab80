#include <kt7/payroll/pay_month.h>

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/api/store_worker.h"
#include "payroll/ports/run_services.h"
#include "payroll/share/shared_run.h"
#include "payroll/workers/pay_run.h"

namespace kt7::payroll {

namespace {

NewWorker workersIn(const NewWorkplace& newWorkplace) {
  if (!newWorkplace) return {};
  return [&newWorkplace] { return std::make_unique<WorkplaceWorker>(newWorkplace()); };
}

}  // namespace

RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                    RunListener& listener, const NewWorkplace& newWorkplace) {
  // The host's own data object catches up as those of its workplaces do.
  StoreWorker own(platform, dataObj, newWorkplace ? newWorkplace().catchUp : nullptr);
  return runMonth(request, own.services(), listener, workersIn(newWorkplace));
}

RunOutcome paySharedMonth(const RunRequest& request, RunListener& listener,
                          const NewWorkplace& newWorkplace) {
  WorkplaceWorker own(newWorkplace());
  return runSharedMonth(request, own.services(), listener, workersIn(newWorkplace));
}

}  // namespace kt7::payroll
