#include "payroll/share/shared_worker.h"

#include <algorithm>
#include <random>

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/month/other_runs.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/work/month_end.h"

namespace kt7::payroll {

namespace {

constexpr std::chrono::milliseconds kLongestPause(300);

/// Not always the first one: others look at the same time.
const PartRow& anyOf(const std::vector<PartRow>& rows) {
  thread_local std::minstd_rand random{std::random_device{}()};
  std::uniform_int_distribution<std::size_t> place(0, rows.size() - 1);
  return rows[place(random)];
}

}  // namespace

void PartNumbers::give(const Page& page, std::vector<SlipChange>& changes, RunServices&) {
  numberNew(changes, [&](const SlipChange& change) {
    const auto place = std::find_if(
        page.employees.begin(), page.employees.end(),
        [&](const Employee& employee) { return employee.code == change.slip->employee; });
    const auto before = static_cast<std::size_t>(place - page.employees.begin()) + page.index;
    return held_.part().firstNumber + static_cast<int>(before) + 1;
  });
}

void PartNumbers::replace(std::span<SlipChange> changes, RunServices& services) {
  std::optional<int> last;
  numberAnew(changes, [&](const SlipChange& change) {
    if (!last) last = lastSequenceOn(change.slip->payDate, services.company);
    return ++*last;
  });
}

SharedWorker::SharedWorker(const SharedPlan& shared, const Sharing& sharing, RunServices& services,
                           std::string name)
    : shared_(shared),
      services_(services),
      held_(services, std::move(name), sharing.leaseSeconds),
      numbers_(held_),
      payer_(shared.plan, services, numbers_, &held_) {}

/// One look at the parts of that name, and the taking of one that is free.
SharedWorker::Look SharedWorker::takeOne(const std::string& parts) {
  services_.catchUp();
  RunLeases& leases = services_.leases;
  const auto head = leases.head(shared_.head.run);
  if (!head || head->worker != shared_.planner || head->part.to != shared_.head.to) {
    return Look::BegunAnew;
  }
  const auto free = leases.freeParts(parts, held_.worker(), leases.now());
  if (free.empty()) return leases.countUndone(parts) == 0 ? Look::AllDone : Look::Wait;
  const auto own = std::find_if(free.begin(), free.end(), [this](const PartRow& row) {
    return row.worker == held_.worker();
  });
  const PartRow& chosen = own == free.end() ? anyOf(free) : *own;
  try {
    if (!leases.take(chosen, held_.worker(), held_.until())) return Look::Wait;
  } catch (const Error& error) {
    if (failureOf(error) != Failure::Conflict) throw;
    payer_.countConflict();
    return Look::Wait;
  }
  held_.begin(chosen.part);
  waiting_.ends();
  return Look::Taken;
}

bool SharedWorker::payParts(ReportQueue& reports) {
  for (std::size_t i = 0; i < shared_.plan.periods.size(); ++i) {
    if (!shared_.plan.periods[i].frozen && !payPeriod(i, reports)) return false;
  }
  return true;
}

bool SharedWorker::payPeriod(std::size_t period, ReportQueue& reports) {
  while (!reports.stopped()) {
    switch (payer_.repeating([&] { return takeOne(shared_.partsOf(period)); })) {
      case Look::Taken:
        if (!payPart(shared_.plan.periods[period], reports)) reports.put(reportOfLost());
        break;
      case Look::Wait:
        waitFor(shared_.partsOf(period), [&](const Report& report) { reports.put(report); });
        break;
      case Look::AllDone:
        return true;
      case Look::BegunAnew:
        return false;
    }
  }
  return true;
}

bool SharedWorker::payPart(const SlipPeriod& period, ReportQueue& reports) {
  EmployeeQuery query{period.type, period.salary, held_.part().from, kEmployeesAtOnce,
                      held_.part().to};
  Page page{0, &period, {}};
  while (!reports.stopped()) {
    page.employees = payer_.doing([&] { return services_.company.employees(query); });
    if (page.employees.empty()) return markDone();
    try {
      payer_.pay(page);
    } catch (const ClaimLost&) {
      return false;
    } catch (...) {
      reports.put(payer_.takeReport());
      throw;
    }
    reports.put(payer_.takeReport());
    page.index += page.employees.size();
    query.afterCode = page.employees.back().code;
  }
  return true;
}

bool SharedWorker::markDone() {
  return payer_.repeating([&] {
    return services_.leases.mark(held_.part(), held_.worker(), PartState::Done, held_.until());
  });
}

/// What was kept before the part was taken over.
Report SharedWorker::reportOfLost() {
  held_.wasLost();
  Report report = payer_.takeReport();
  report.note(
      "a part of the month was taken over while this process did not answer: slips of it may stand "
      "in the other's register too");
  return report;
}

void SharedWorker::waitFor(const std::string& parts, const TakeReport& told) {
  waiting_.on(
      [&] {
        return payer_.repeating(
            [&] { return whoHasPart(shared_.head.run, parts, services_.leases); });
      },
      [&](const std::string& text) {
        Report report;
        report.note(text);
        told(report);
      });
  pauseUpTo(kLongestPause);
}

bool SharedWorker::end(RunListener& listener, const UnpaidSlips& named, const TakeReport& told) {
  for (;;) {
    switch (payer_.repeating([&] { return takeOne(shared_.end().run); })) {
      case Look::Taken:
        if (!endMonth(named, told)) {
          told(reportOfLost());
          break;
        }
        noteLaterMonths(shared_.plan, services_, payer_, listener);
        told(payer_.takeReport());
        return true;
      case Look::Wait:
        if (listener.wantsToStop()) throw RunInterrupted();
        waitFor(shared_.end().run, told);
        break;
      case Look::AllDone:
        told(payer_.takeReport());
        return true;
      case Look::BegunAnew:
        told(payer_.takeReport());
        return false;
    }
  }
}

/// False where another one ends the month, or has begun it anew.
bool SharedWorker::endMonth(const UnpaidSlips& named, const TakeReport& told) {
  try {
    removeUndueSlips(shared_.plan, services_, payer_, told);
    nameLeftOut(shared_.plan, services_, payer_, named, told);
  } catch (const ClaimLost&) {
    return false;
  }
  return markDone();
}

}  // namespace kt7::payroll
