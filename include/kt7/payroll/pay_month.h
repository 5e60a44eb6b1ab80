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

/// What a front gives one worker: a platform and a data object of its own.
struct Workplace {
  std::unique_ptr<Platform> platform;
  std::unique_ptr<DataObj> dataObj;
  /// As RunServices::catchUp, of this or any other data object of the front.
  std::function<void(DataObj&)> catchUp = {};
};
using NewWorkplace = std::function<Workplace()>;

/// runMonth on a host's platform and data object. The platform's clock says when the run takes
/// place: it must stand in the month. More jobs than one need a workplace for each; one more is
/// made to learn how the host catches up.
KT7_API RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                            RunListener& listener, const NewWorkplace& newWorkplace = {});

/// runSharedMonth in workplaces of its own, one more than the request has jobs.
KT7_API RunOutcome paySharedMonth(const RunRequest& request, RunListener& listener,
                                  const NewWorkplace& newWorkplace);

}  // namespace kt7::payroll
