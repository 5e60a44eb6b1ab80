#include "payroll/workers/page_payer.h"

#include <algorithm>

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_number.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/rules/period_plan.h"

namespace kt7::payroll {

/// The records of the employees of a page.
struct PagePayer::Records {
  std::map<std::string, std::vector<KnownSlip>> slips;
  std::map<std::string, PaySums> yearBefore;
  std::map<std::string, double> latestSalaries;
};

namespace {

DaySpan earlierInYear(const Month& month) {
  return {Date::fromYmd(month.year(), 1, 1), month.firstDay().plusDays(-1)};
}

void requireOwn(const KnownSlip& slip) {
  if (!isOwn(slip)) {
    throw NotPayable("slip " + slip.number + " of another program stands on that pay date");
  }
}

void refuseSecondPay(const KnownSlip& known, const SlipPeriod& period) {
  if (!known.span.overlaps(period.salary)) return;
  throw NotPayable(common(known.span, period.salary).text() + " was paid already on " +
                   known.payDate.isoDateText() + " with slip " + known.number);
}

}  // namespace

bool isOwn(const KnownSlip& slip) { return slipSequence(slip.number, slip.payDate) > 0; }

PagePayer::PagePayer(const MonthPlan& plan, RunServices& services, SlipNumbers& numbers,
                     Claim* claim)
    : plan_(plan),
      services_(services),
      numbers_(numbers),
      claim_(claim),
      recovery_(services, report_.outcome),
      attendance_(services),
      maker_(services, attendance_),
      writer_(services, attendance_, recovery_, report_, numbers, claim) {}

void PagePayer::pay(const Page& page) {
  report_.employees += static_cast<int>(page.employees.size());
  // Other workers may have written the slips of earlier periods, on which this one builds.
  if (page.period != caughtUpFor_) catchUp();
  caughtUpFor_ = page.period;
  Report attempt;
  Changes changes = recovery_.retryOnLoss([&] {
    attempt = Report();
    return make(page, attempt);
  });
  report_.append(attempt);
  recovery_.retryOnLoss([&] { numbers_.give(page, changes, services_); });
  writer_.write(std::move(changes));
  for (const Slip& slip : page.standing) report_.standing(slip);
}

void PagePayer::remove(const std::vector<KnownSlip>& slips) {
  Changes changes;
  for (const KnownSlip& slip : slips) {
    if (isOwn(slip)) changes.push_back({std::nullopt, {slip}});
  }
  writer_.write(std::move(changes));
}

PagePayer::Changes PagePayer::make(const Page& page, Report& attempt) {
  std::vector<const Employee*> due;
  for (const Employee& employee : page.employees) {
    if (isDue(employee, *page.period)) due.push_back(&employee);
  }
  Changes changes;
  if (due.empty()) return changes;
  Records records = recordsOf(page, due);
  changes.reserve(due.size());
  for (const Employee* const employee : due) {
    if (claim_ != nullptr) recovery_.retryOnLossOrConflict([&] { claim_->heartbeat(); });
    try {
      changes.push_back(changeOf(*employee, page, records));
    } catch (const Error& error) {
      if (isLoss(failureOf(error))) throw;
      attempt.countFailed(employee->code, page.period->payDate, causeOf(error));
    } catch (const NotPayable& reason) {
      attempt.countFailed(employee->code, page.period->payDate, reason.what());
    }
  }
  return changes;
}

PagePayer::Records PagePayer::recordsOf(const Page& page, const std::vector<const Employee*>& due) {
  Records records;
  std::vector<std::string> codes;
  codes.reserve(due.size());
  for (const Employee* const employee : due) codes.push_back(employee->code);
  for (KnownSlip& slip : services_.company.slips(codes, neighbourhood(plan_.month))) {
    records.slips[slip.employee].push_back(std::move(slip));
  }
  const bool closes = std::any_of(due.begin(), due.end(), [&](const Employee* employee) {
    return isLast(*employee, *page.period, records.slips[employee->code]);
  });
  if (closes) {
    records.yearBefore = services_.company.balances(codes, earlierInYear(plan_.month));
    records.latestSalaries = services_.company.latestSalaries(codes);
  }
  return records;
}

SlipChange PagePayer::changeOf(const Employee& employee, const Page& page, Records& records) {
  const SlipPeriod& period = *page.period;
  SlipChange change;
  PaySums restOfMonth;
  std::string number;
  for (const KnownSlip& known : records.slips[employee.code]) {
    const bool samePayDate = known.type == period.type && known.payDate == period.payDate;
    if (samePayDate) requireOwn(known);
    if (samePayDate && number.empty()) {
      number = known.number;
    } else if (samePayDate || isUndue(known, employee)) {
      change.removals.push_back(known);
    } else {
      refuseSecondPay(known, period);
      if (plan_.month.days().contains(known.payDate)) restOfMonth += known.sums;
    }
  }
  removeUndueFirst(employee, change);
  const bool last = isLast(employee, period, records.slips[employee.code]);
  const MonthClosing closing{records.yearBefore[employee.code], restOfMonth, leaves(employee)};
  change.slip =
      maker_.make({employee, plan_.type(employee.type), period,
                   plan_.input.of(employee.code, period.payDate), last ? &closing : nullptr});
  change.slip->number = number;
  if (last) {
    change.history = HistoryChange{employee, historyStep(employee, records.latestSalaries),
                                   plan_.month.firstDay()};
  }
  return change;
}

/// Removes undue slips before the allowance is reckoned: it must not count their periods.
void PagePayer::removeUndueFirst(const Employee& employee, SlipChange& change) {
  if (!attendance_.counts(employee.type) || change.removals.empty()) return;
  if (!writer_.write({{std::nullopt, change.removals}})) {
    throw NotPayable("a slip that is no longer due stands in the way");
  }
  change.removals.clear();
}

/// Whether a slip of the month is of a period that no longer pays the employee.
bool PagePayer::isUndue(const KnownSlip& slip, const Employee& owner) const {
  if (!plan_.month.days().contains(slip.payDate)) return false;
  if (!isOwn(slip) || plan_.isFrozen(slip.type, slip.payDate)) return false;
  const SlipPeriod* period = plan_.period(slip.type, slip.payDate);
  return period == nullptr || !isDue(owner, *period);
}

/// Whether no later period of the month pays the employee. A frozen one counts only if it has paid
/// the employee.
bool PagePayer::isLast(const Employee& employee, const SlipPeriod& of,
                       const std::vector<KnownSlip>& slips) const {
  return std::none_of(plan_.periods.begin(), plan_.periods.end(), [&](const SlipPeriod& later) {
    if (!(of.payDate < later.payDate) || !isDue(employee, later)) return false;
    return !later.frozen || std::any_of(slips.begin(), slips.end(), [&](const KnownSlip& slip) {
      return slip.type == later.type && slip.payDate == later.payDate;
    });
  });
}

/// Whether the employee leaves before the first day that the next month pays.
bool PagePayer::leaves(const Employee& employee) const {
  if (!employee.resignDate) return false;
  const auto next = plannedPeriods(plan_.type(employee.type), plan_.month.plus(1));
  return std::all_of(next.begin(), next.end(), [&](const SlipPeriod& period) {
    return *employee.resignDate < period.salary.first;
  });
}

}  // namespace kt7::payroll
