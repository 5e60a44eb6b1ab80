#pragma once

#include <set>

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// What a month's run pays, settled before it pays anybody.
struct MonthPlan {
  Month month;
  std::string onlyType;             // "" for all
  std::vector<EmployeeType> types;  // that are paid
  std::vector<SlipPeriod> periods;  // of those types, in the order of pay dates
  std::vector<SlipPeriod> frozen;   // of all types, those under former pay dates too
  MonthInput input;

  const EmployeeType& type(const std::string& code) const;
  /// Null where the type has no such pay date any more.
  const SlipPeriod* period(const std::string& type, Date payDate) const;
  bool isFrozen(const std::string& type, Date payDate) const;
};

/// The pay dates around a month in which a slip may cover days of the month too.
DaySpan neighbourhood(const Month& month);

/// Whether planning brings statuses and slip periods up to date or finds that done.
enum class Preparation { Done, ToDo };

/// Checks clock, types, spans and input, generates the slip periods, and answers what there is to
/// pay. Counts what had to be repeated of the two updates; everything else may be repeated by the
/// caller. RunStopped where something is wrong; only statuses and slip periods are written.
MonthPlan planMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    RunOutcome& outcome, Preparation preparation = Preparation::ToDo);

}  // namespace kt7::payroll
