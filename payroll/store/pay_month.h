#pragma once

#include "collab/platform.h"
#include "payroll/run/pay_run.h"

namespace kt7::payroll {

/// runMonth on a host's platform and data object. The platform's clock says when the run takes
/// place: it must stand in the month.
RunOutcome payMonth(Platform& platform, DataObj& dataObj, const RunRequest& request,
                    RunListener& listener);

}  // namespace kt7::payroll
