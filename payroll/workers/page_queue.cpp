#include "payroll/workers/page_queue.h"

#include <algorithm>
#include <utility>

#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

namespace {

/// Pages handed out and not reported, for each worker.
constexpr std::size_t kPagesForEach = 4;

}  // namespace

PageQueue::PageQueue(const MonthPlan& plan, int workers)
    : plan_(plan), window_(static_cast<std::size_t>(workers) * kPagesForEach) {}

std::optional<Page> PageQueue::take(RunServices& services) {
  const std::lock_guard readersTurn(reading_);
  while (!endReached()) {
    const SlipPeriod& period = plan_.periods[period_];
    if (!periodRead_) {
      if (!waitForRoom()) return std::nullopt;
      Page page{.period = &period, .employees = {}};
      if (readPage(services, page)) {
        const std::lock_guard lock(state_);
        page.index = handedOut_++;
        ++underWay_;
        return page;
      }
    }
    if (!nextPeriod()) return std::nullopt;
  }
  return std::nullopt;
}

bool PageQueue::endReached() {
  if (period_ < plan_.periods.size()) return false;
  const std::lock_guard lock(state_);
  allHandedOut_ = true;
  changed_.notify_all();
  return true;
}

bool PageQueue::readPage(RunServices& services, Page& page) {
  const SlipPeriod& period = *page.period;
  if (period.frozen) {
    page.standing =
        services.company.paidSlips({period.type, period.payDate}, afterCode_, kEmployeesAtOnce);
    if (!page.standing.empty()) afterCode_ = page.standing.back().employee;
  } else {
    page.employees =
        services.company.employees({period.type, period.salary, afterCode_, kEmployeesAtOnce});
    if (!page.employees.empty()) afterCode_ = page.employees.back().code;
  }
  const std::size_t read = page.employees.size() + page.standing.size();
  periodRead_ = read < static_cast<std::size_t>(kEmployeesAtOnce);
  return read > 0;
}

bool PageQueue::waitForRoom() {
  std::unique_lock lock(state_);
  changed_.wait(lock, [this] { return stopped_ || underWay_ < window_; });
  return !stopped_;
}

/// Waits until the slips of this period are written, because the next period builds on them.
bool PageQueue::nextPeriod() {
  std::unique_lock lock(state_);
  changed_.wait(lock, [this] { return stopped_ || finished_ == handedOut_; });
  if (stopped_) return false;
  const SlipPeriod& period = plan_.periods[period_++];
  afterCode_.clear();
  periodRead_ = false;
  if (!period.frozen) return true;
  Report report;
  report.note("slip period " + period.name() + " is frozen: left alone");
  reports_.emplace(handedOut_++, std::move(report));
  numbers_.skipPage();
  ++finished_;
  changed_.notify_all();
  return true;
}

void PageQueue::finish(const Page& page, Report report) {
  report.ofPage = true;
  const std::lock_guard lock(state_);
  reports_.emplace(page.index, std::move(report));
  ++finished_;
  changed_.notify_all();
}

void PageQueue::stop(std::exception_ptr reason) {
  {
    const std::lock_guard lock(state_);
    if (!stopped_) reason_ = std::move(reason);
    stopped_ = true;
    changed_.notify_all();
  }
  numbers_.stop();  // after the reason is set: the workers that it wakes stop the queue too
}

std::optional<Report> PageQueue::nextReport() {
  std::unique_lock lock(state_);
  changed_.wait(lock, [this] {
    return stopped_ || reports_.contains(told_) || (allHandedOut_ && told_ == handedOut_);
  });
  return takeReport(reports_.find(told_));
}

std::optional<Report> PageQueue::readyReport(bool workersLeft) {
  const std::lock_guard lock(state_);
  return takeReport(workersLeft ? reports_.find(told_) : reports_.begin());
}

std::optional<Report> PageQueue::takeReport(std::map<std::size_t, Report>::iterator next) {
  if (next == reports_.end()) return std::nullopt;
  told_ = next->first + 1;
  Report report = std::move(next->second);
  reports_.erase(next);
  if (report.ofPage) --underWay_;
  changed_.notify_all();
  return report;
}

void PageQueue::raiseReason() const {
  if (reason_) std::rethrow_exception(reason_);
}

}  // namespace kt7::payroll
