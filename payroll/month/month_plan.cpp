#include "payroll/month/month_plan.h"

#include <algorithm>
#include <tuple>

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/month/month_updates.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/period_plan.h"

namespace kt7::payroll {

namespace {

using Reasons = std::vector<std::string>;

void refuseIf(const Reasons& reasons) {
  if (!reasons.empty()) throw RunStopped(RunStopped::Cause::Refused, reasons);
}

void append(Reasons& reasons, const Reasons& more) {
  reasons.insert(reasons.end(), more.begin(), more.end());
}

void requireClockIn(const Month& month, Date now) {
  if (month.days().contains(now.datePart())) return;
  throw RunStopped(RunStopped::Cause::WrongUse, {"the date to take for now, " + now.isoDateText() +
                                                 ", does not lie in " + month.text()});
}

std::vector<EmployeeType> soundTypes(const std::vector<TypeRow>& rows, const std::string& only) {
  Reasons problems;
  std::vector<EmployeeType> types;
  for (const TypeRow& row : rows) {
    if (!only.empty() && row.code != only) continue;
    const Reasons found = problemsOf(row);
    append(problems, found);
    if (found.empty()) types.push_back(typeOf(row));
  }
  refuseIf(problems);
  if (types.empty()) {
    throw RunStopped(only.empty() ? RunStopped::Cause::Refused : RunStopped::Cause::WrongUse,
                     {only.empty() ? "no employee type is in use"
                                   : "no employee type '" + only + "' is in use"});
  }
  return types;
}

std::vector<SlipPeriod> ofType(const std::vector<SlipPeriod>& periods, const std::string& type) {
  std::vector<SlipPeriod> result;
  std::copy_if(periods.begin(), periods.end(), std::back_inserter(result),
               [&](const SlipPeriod& period) { return period.type == type; });
  return result;
}

void refuseClashes(const MonthPlan& plan, const std::vector<SlipPeriod>& existing) {
  Reasons clashes;
  for (const EmployeeType& type : plan.types) {
    append(clashes, clashesOf(type, plan.month, ofType(existing, type.code)));
  }
  refuseIf(clashes);
}

bool inPayOrder(const SlipPeriod& a, const SlipPeriod& b) {
  return std::tuple(a.payDate.dayNumber(), std::string_view(a.type)) <
         std::tuple(b.payDate.dayNumber(), std::string_view(b.type));
}

/// The planned periods; a frozen one keeps the span of its row.
void setPeriods(MonthPlan& plan, const std::vector<SlipPeriod>& existing) {
  plan.frozen.clear();
  for (const SlipPeriod& row : existing) {
    if (row.frozen && plan.month.days().contains(row.payDate)) plan.frozen.push_back(row);
  }
  plan.periods.clear();
  for (const EmployeeType& type : plan.types) {
    for (SlipPeriod& period : plannedPeriods(type, plan.month)) {
      for (const SlipPeriod& row : plan.frozen) {
        if (row.type == type.code && row.payDate == period.payDate) {
          period.salary = row.salary;
          period.frozen = true;
        }
      }
      plan.periods.push_back(period);
    }
  }
  std::sort(plan.periods.begin(), plan.periods.end(), inPayOrder);
}

/// The employees that the input names, asked for in groups.
EmployeesByCode employeesOf(const std::vector<InputRow>& rows, Company& company) {
  constexpr std::size_t kCodesAtOnce = 50;
  std::set<std::string> codes;
  for (const InputRow& row : rows) codes.insert(row.employee);
  EmployeesByCode employees;
  for (auto next = codes.begin(); next != codes.end();) {
    std::vector<std::string> some;
    while (next != codes.end() && some.size() < kCodesAtOnce) some.push_back(*next++);
    for (Employee& employee : company.employees(some)) {
      std::string code = employee.code;
      employees.emplace(std::move(code), std::move(employee));
    }
  }
  return employees;
}

void takeInput(const RunRequest& request, RunServices& services, RunListener& listener,
               MonthPlan& plan) {
  CheckedInput checked =
      checkInput(request.input, employeesOf(request.input, services.company), plan.periods);
  refuseIf(checked.problems);
  plan.input = std::move(checked.input);
  if (checked.otherTypes > 0) {
    listener.note(std::to_string(checked.otherTypes) +
                  " input rows belong to employee types that this run does not pay");
  }
}

/// The generated rows must be the periods that were checked.
void requireGenerated(const MonthPlan& plan, const std::vector<SlipPeriod>& existing) {
  Reasons reasons;
  for (const SlipPeriod& period : plan.periods) {
    const bool stands = std::any_of(existing.begin(), existing.end(), [&](const SlipPeriod& row) {
      return row.type == period.type && row.payDate == period.payDate &&
             row.salary == period.salary && row.frozen == period.frozen;
    });
    if (!stands) {
      reasons.push_back("the slip period " + period.name() + " does not stand for " +
                        period.salary.text() + " after it was generated");
    }
  }
  refuseIf(reasons);
}

}  // namespace

const EmployeeType& MonthPlan::type(const std::string& code) const {
  return *std::find_if(types.begin(), types.end(),
                       [&](const EmployeeType& candidate) { return candidate.code == code; });
}

const SlipPeriod* MonthPlan::period(const std::string& type, Date payDate) const {
  for (const SlipPeriod& candidate : periods) {
    if (candidate.type == type && candidate.payDate == payDate) return &candidate;
  }
  return nullptr;
}

bool MonthPlan::isFrozen(const std::string& type, Date payDate) const {
  return std::any_of(frozen.begin(), frozen.end(), [&](const SlipPeriod& row) {
    return row.type == type && row.payDate == payDate;
  });
}

DaySpan neighbourhood(const Month& month) {
  // A span begins no earlier than in the month before its pay date.
  return {month.plus(-1).firstDay(), month.plus(1).lastDay()};
}

MonthPlan planMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    RunOutcome& outcome, Preparation preparation) {
  requireClockIn(request.month, services.now());
  Company& company = services.company;
  MonthPlan plan{
      request.month, request.type, soundTypes(company.types(), request.type), {}, {}, {}};
  const DaySpan around = neighbourhood(request.month);
  const std::vector<SlipPeriod> before = company.slipPeriods(around);
  refuseClashes(plan, before);
  setPeriods(plan, before);
  takeInput(request, services, listener, plan);
  if (preparation == Preparation::ToDo) {
    updateStatuses(services, listener, outcome);
    generatePeriods(plan.month, services, outcome);
    services.catchUp();  // they were written on a connection of the operation's own
  }
  requireGenerated(plan, company.slipPeriods(request.month.days()));
  return plan;
}

}  // namespace kt7::payroll
