#pragma once

#include <kt7/payroll/run_request.h>
#include "payroll/month/month_plan.h"

/// The fingerprint in the head of a shared run: a process with another request or plan is refused.
namespace kt7::payroll {

/// Of type and input: the head's while its worker plans the month.
std::string requestFingerprint(const RunRequest& request);
/// That and the slip periods of the plan: the head's once the parts are published, whose names
/// count the periods.
std::string runFingerprint(const std::string& requestFingerprint, const MonthPlan& plan);

/// Whether the parts are published, not given up.
bool isPlanned(const PartRow& head);
bool isOfRequest(const PartRow& head, const std::string& requestFingerprint);

}  // namespace kt7::payroll
