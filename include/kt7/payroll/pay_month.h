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

/// What a host gives each worker: a platform and a data object of its own.
struct Workplace {
  std::unique_ptr<Platform> platform;
  std::unique_ptr<DataObj> dataObj;
  /// On a cluster: waits until the data object's node has applied what other nodes committed.
  std::function<void(DataObj&)> catchUp = {};
};
using NewWorkplace = std::function<Workplace()>;

/// Pays a month on a host's platform and data object. The date of the platform's clock must lie in
/// the month. Several jobs need `newWorkplace`, which is called once for each and once more for its
/// `catchUp`. RunStopped before any slip is written; RunInterrupted; an Error if the database is
/// lost.
KT7_API RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                            RunListener& listener, const NewWorkplace& newWorkplace = {});

/// The same together with other processes (RunRequest::sharing); `newWorkplace` is called once for
/// each job and once more. Also RunSuperseded.
KT7_API RunOutcome paySharedMonth(const RunRequest& request, RunListener& listener,
                                  const NewWorkplace& newWorkplace);

}  // namespace kt7::payroll
