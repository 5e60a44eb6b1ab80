#include "payroll/run/shared_worker.h"

#include <algorithm>
#include <random>

#include "payroll/run/month_end.h"

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
  for (SlipChange& change : changes) {
    if (!change.slip || !change.slip->number.empty()) continue;
    const auto place = std::find_if(
        page.employees.begin(), page.employees.end(),
        [&](const Employee& employee) { return employee.code == change.slip->employee; });
    const auto before = static_cast<std::size_t>(place - page.employees.begin()) + page.index;
    change.slip->number =
        slipNumber(change.slip->payDate, part_->firstNumber + static_cast<int>(before) + 1);
  }
}

SharedWorker::SharedWorker(const SharedPlan& shared, const Sharing& sharing, RunServices& services,
                           std::string name)
    : shared_(shared),
      sharing_(sharing),
      services_(services),
      name_(std::move(name)),
      payer_(shared.plan, services, numbers_) {}

/// One look at the parts of that name, and the taking of one that is free.
SharedWorker::Look SharedWorker::takeOne(const std::string& parts, RunPart& taken) {
  if (services_.catchUp) services_.catchUp();
  RunLeases& leases = services_.leases;
  const auto head = leases.head(shared_.head.run);
  if (!head || head->worker != shared_.planner || head->part.to != shared_.head.to) {
    return Look::BegunAnew;
  }
  const auto free = leases.freeParts(parts, name_, leases.now());
  if (free.empty()) return leases.countUndone(parts) == 0 ? Look::AllDone : Look::Wait;
  const auto own = std::find_if(free.begin(), free.end(),
                                [this](const PartRow& row) { return row.worker == name_; });
  const PartRow& chosen = own == free.end() ? anyOf(free) : *own;
  try {
    if (!leases.take(chosen, name_, until())) return Look::Wait;
  } catch (const Error& error) {
    if (failureOf(error) != Failure::Conflict) throw;
    payer_.countConflict();
    return Look::Wait;
  }
  taken = chosen.part;
  prolonged_ = std::chrono::steady_clock::now();
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
    RunPart part;
    switch (payer_.doing([&] { return takeOne(shared_.partsOf(period), part); })) {
      case Look::Taken:
        payPart(shared_.plan.periods[period], part, reports);
        break;
      case Look::Wait:
        pauseUpTo(kLongestPause);
        break;
      case Look::AllDone:
        return true;
      case Look::BegunAnew:
        return false;
    }
  }
  return true;
}

void SharedWorker::payPart(const SlipPeriod& period, const RunPart& part, ReportQueue& reports) {
  numbers_.begin(part);
  EmployeeQuery query{period.type, period.salary, part.from, kEmployeesAtOnce, part.to};
  Page page{0, &period, {}};
  for (;;) {
    page.employees = payer_.doing([&] { return services_.company.employees(query); });
    if (page.employees.empty()) break;
    try {
      payer_.pay(page);
    } catch (...) {
      reports.put(payer_.takeReport());
      throw;
    }
    reports.put(payer_.takeReport());
    page.index += page.employees.size();
    query.afterCode = page.employees.back().code;
    if (reports.stopped() || !prolong(part, PartState::Taken)) return;
  }
  prolong(part, PartState::Done);
}

bool SharedWorker::prolong(const RunPart& part, PartState state) {
  const auto now = std::chrono::steady_clock::now();
  const bool young = now - prolonged_ < std::chrono::seconds(sharing_.leaseSeconds) / 4;
  if (state == PartState::Taken && young) return true;
  prolonged_ = now;
  return payer_.repeating([&] { return services_.leases.mark(part, name_, state, until()); });
}

bool SharedWorker::end(RunListener& listener, const TakeReport& told) {
  for (;;) {
    RunPart part;
    switch (payer_.doing([&] { return takeOne(shared_.end().run, part); })) {
      case Look::Taken:
        removeUndueSlips(shared_.plan, services_, payer_, [&](const Report& report) {
          told(report);
          prolong(part, PartState::Taken);
        });
        noteLaterMonths(shared_.plan, services_, payer_, listener);
        prolong(part, PartState::Done);
        told(payer_.takeReport());
        return true;
      case Look::Wait:
        pauseUpTo(kLongestPause);
        break;
      case Look::AllDone:
        told(payer_.takeReport());
        return true;
      case Look::BegunAnew:
        return false;
    }
  }
}

}  // namespace kt7::payroll
