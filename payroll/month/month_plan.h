#pragma once

#include <set>

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// What a run will pay; made and checked before the first slip.
struct MonthPlan {
  Month month;
  std::string onlyType;             // "" for all
  std::vector<EmployeeType> types;  // that are paid
  std::vector<SlipPeriod> periods;  // of those types, in pay-date order
  std::vector<SlipPeriod> frozen;   // of all types, former pay dates included
  MonthInput input;

  const EmployeeType& type(const std::string& code) const;
  /// Null if the type no longer has that pay date.
  const SlipPeriod* period(const std::string& type, Date payDate) const;
  bool isFrozen(const std::string& type, Date payDate) const;
};

/// The span of pay dates whose slips can cover days of the month.
DaySpan neighbourhood(const Month& month);

/// Whether planMonth still has to update employee statuses and slip periods.
enum class Preparation { Done, ToDo };

/// Checks clock, types, spans and input, updates statuses and slip periods, and answers the plan.
/// Writes nothing else. Repeats and counts failures of the two updates only; the caller may repeat
/// the call. RunStopped if a check fails.
MonthPlan planMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    RunOutcome& outcome, Preparation preparation = Preparation::ToDo);

}  // namespace kt7::payroll
