#pragma once

#include <kt7/payroll/run_request.h>
#include "payroll/month/month_plan.h"

/// What stands in the head of a shared run, so that nobody joins with something else in mind.
namespace kt7::payroll {

/// What all must have been given alike, as a short text: stands there while somebody plans.
std::string agreementOf(const RunRequest& request);
/// The same with what all must have found alike: parts are named by the places of their periods in
/// the plan. Stands there once the parts are laid.
std::string agreedPlan(const std::string& agreement, const MonthPlan& plan);

bool isPlanned(const PartRow& head);
bool isAgreed(const PartRow& head, const std::string& agreement);

}  // namespace kt7::payroll
