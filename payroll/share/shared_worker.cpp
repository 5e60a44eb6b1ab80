#include "payroll/share/shared_worker.h"

#include <algorithm>
#include <random>

#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "payroll/facts/slip_period.h"
#include "payroll/month/competing_runs.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/workers/month_end.h"

namespace kt7::payroll {

namespace {

constexpr std::chrono::milliseconds kLongestPause(300);

/// A random one: other workers choose from the same rows.
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
    const auto before =
        static_cast<std::size_t>(place - page.employees.begin()) + page.employeesBefore;
    return lease_.part().sequenceBefore + static_cast<int>(before) + 1;
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
      lease_(services, std::move(name), sharing.leaseSeconds),
      numbers_(lease_),
      payer_(shared.plan, services, numbers_, &lease_) {}

/// Takes a free part of that name, if there is one.
SharedWorker::TakeResult SharedWorker::takePart(const std::string& parts) {
  services_.catchUp();
  RunLeases& leases = services_.leases;
  const auto head = leases.head(shared_.head.name);
  if (!head || head->worker != shared_.planner ||
      head->part.fingerprint != shared_.head.fingerprint) {
    return TakeResult::BegunAnew;
  }
  const auto free = leases.freeParts(parts, lease_.worker(), leases.now());
  if (free.empty()) return leases.countUndone(parts) == 0 ? TakeResult::AllDone : TakeResult::Wait;
  const auto own = std::find_if(free.begin(), free.end(), [this](const PartRow& row) {
    return row.worker == lease_.worker();
  });
  const PartRow& chosen = own == free.end() ? anyOf(free) : *own;
  try {
    if (!leases.take(chosen, lease_.worker(), lease_.until())) return TakeResult::Wait;
  } catch (const Error& error) {
    if (failureOf(error) != Failure::Conflict) throw;
    payer_.countConflict();
    return TakeResult::Wait;
  }
  lease_.begin(chosen.part);
  waiting_.end();
  return TakeResult::Taken;
}

RunState SharedWorker::payParts(ReportQueue& reports) {
  for (std::size_t i = 0; i < shared_.plan.periods.size(); ++i) {
    if (shared_.plan.periods[i].frozen) continue;
    if (payPeriod(i, reports) == RunState::BegunAnew) return RunState::BegunAnew;
  }
  return RunState::Done;
}

RunState SharedWorker::payPeriod(std::size_t period, ReportQueue& reports) {
  while (!reports.stopped()) {
    switch (payer_.retryOnLossOrConflict([&] { return takePart(shared_.partsOf(period)); })) {
      case TakeResult::Taken:
        if (payPart(shared_.plan.periods[period], reports) == PartResult::TakenOver) {
          reports.put(lostPartReport());
        }
        break;
      case TakeResult::Wait:
        waitFor(shared_.partsOf(period), [&](const Report& report) { reports.put(report); });
        break;
      case TakeResult::AllDone:
        return RunState::Done;
      case TakeResult::BegunAnew:
        return RunState::BegunAnew;
    }
  }
  return RunState::Done;
}

SharedWorker::PartResult SharedWorker::payPart(const SlipPeriod& period, ReportQueue& reports) {
  EmployeeQuery query{period.type, period.salary, lease_.part().afterCode, kEmployeesAtOnce,
                      lease_.part().lastCode};
  Page page{.period = &period, .employees = {}};
  while (!reports.stopped()) {
    page.employees = payer_.retryOnLoss([&] { return services_.company.employees(query); });
    if (page.employees.empty()) return markDone();
    try {
      payer_.pay(page);
    } catch (const ClaimLost&) {
      return PartResult::TakenOver;
    } catch (...) {
      reports.put(payer_.takeReport());
      throw;
    }
    reports.put(payer_.takeReport());
    page.employeesBefore += page.employees.size();
    query.afterCode = page.employees.back().code;
  }
  return PartResult::Done;
}

SharedWorker::PartResult SharedWorker::markDone() {
  return payer_.retryOnLossOrConflict([&] {
    const bool marked =
        services_.leases.mark(lease_.part(), lease_.worker(), PartState::Done, lease_.until());
    return marked ? PartResult::Done : PartResult::TakenOver;
  });
}

/// Of the slips that were committed before another worker took the part.
Report SharedWorker::lostPartReport() {
  lease_.wasLost();
  Report report = payer_.takeReport();
  report.note(
      "a part of the month was taken over while this process did not answer: slips of it may stand "
      "in the other's register too");
  return report;
}

void SharedWorker::waitFor(const std::string& parts, const ReportSink& told) {
  waiting_.stillWaiting(
      [&] {
        return payer_.retryOnLossOrConflict(
            [&] { return partHolder(shared_.head.name, parts, services_.leases); });
      },
      [&](const std::string& text) {
        Report report;
        report.note(text);
        told(report);
      });
  pauseUpTo(kLongestPause);
}

RunState SharedWorker::end(RunListener& listener, const UnpaidSlips& named,
                           const ReportSink& told) {
  for (;;) {
    switch (payer_.retryOnLossOrConflict([&] { return takePart(shared_.end().name); })) {
      case TakeResult::Taken:
        if (endMonth(named, told) == PartResult::TakenOver) {
          told(lostPartReport());
          break;
        }
        noteLaterMonths(shared_.plan, services_, payer_, listener);
        told(payer_.takeReport());
        return RunState::Done;
      case TakeResult::Wait:
        if (listener.wantsToStop()) throw RunInterrupted();
        waitFor(shared_.end().name, told);
        break;
      case TakeResult::AllDone:
        told(payer_.takeReport());
        return RunState::Done;
      case TakeResult::BegunAnew:
        told(payer_.takeReport());
        return RunState::BegunAnew;
    }
  }
}

/// TakenOver also where another process has begun the run anew.
SharedWorker::PartResult SharedWorker::endMonth(const UnpaidSlips& named, const ReportSink& told) {
  try {
    removeUndueSlips(shared_.plan, services_, payer_, told);
    reportMissingSlips(shared_.plan, services_, payer_, named, told);
  } catch (const ClaimLost&) {
    return PartResult::TakenOver;
  }
  return markDone();
}

}  // namespace kt7::payroll
