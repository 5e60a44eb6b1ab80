#pragma once

#include <functional>
#include <memory>

#include <kt7/contract/data_obj.h>
#include <kt7/contract/platform.h>
#include <kt7/export.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>

namespace kt7::payroll {

/// What one worker works with: a platform and a data object that no other thread uses.
struct Workplace {
  std::unique_ptr<Platform> platform;
  std::unique_ptr<DataObj> dataObj;
  /// Waits until the data object's open connection sees what was committed anywhere before. For a
  /// cluster of servers; empty where one server answers.
  std::function<void(DataObj&)> catchUp = {};
};
/// Called by each worker in its own thread, so by several at a time.
using NewWorkplace = std::function<Workplace()>;

/// Pays a month: brings employee statuses and slip periods up to date, makes and posts the slip of
/// every employee who is due one, and takes away slips of the month that are not due any more.
/// Frozen periods stay as they are. Running it again gives the same slips and balances.
///
/// The platform's clock says when the run takes place: it must stand in the month. The data object
/// may be closed, and is left as it was found. More jobs than one need `newWorkplace`; without it
/// the caller's thread pays alone. It is called once for each job and once more.
///
/// RunStopped before anybody is paid: wrong input, or a shared run under way. RunInterrupted where
/// the listener wanted it. An Error where the database is lost; what was told as paid stands then,
/// and running the month again pays the others.
KT7_API RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                            RunListener& listener, const NewWorkplace& newWorkplace = {});

/// The same together with other processes that pay the month with the same input, by
/// `request.sharing`: each takes a part after the other, and a part whose process is gone is paid
/// by another. Tells and counts what this process did; returns when the month is paid. Calls
/// `newWorkplace` once more than the request has jobs. RunStopped also where a run with another
/// input or type is under way. RunSuperseded.
KT7_API RunOutcome paySharedMonth(const RunRequest& request, RunListener& listener,
                                  const NewWorkplace& newWorkplace);

}  // namespace kt7::payroll
