#pragma once

#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <stdexcept>

#include "payroll/month/month_plan.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/report.h"
#include "payroll/post/slip_numbers.h"

namespace kt7::payroll {

/// Raised in workers that wait when another one stopped the run.
class RunAbandoned : public std::runtime_error {
 public:
  RunAbandoned() : std::runtime_error("the run was given up") {}
};

/// Hands the pages of a month out to workers and gives their reports back in the order of the
/// pages, so that neither slip numbers nor the register depend on how many workers there are. A
/// bounded number of pages is under way or waits to be told.
class PageQueue : public SlipNumbers {
 public:
  PageQueue(const MonthPlan& plan, int workers);

  /// The next page, read by the caller's services; none where all are handed out or the run
  /// stopped. Pages of a period are handed out when those of the period before are finished.
  std::optional<Page> take(RunServices& services);
  /// Waits until all pages before have been numbered: numbers rise in the order of the pages.
  void give(const Page& page, std::vector<SlipChange>& changes, RunServices& services) override;
  void replace(std::span<SlipChange> changes, RunServices& services) override;
  /// The page is done with, or given up.
  void finish(const Page& page, Report report);
  /// A worker could not go on: nothing is handed out any more.
  void stop(std::exception_ptr reason);

  /// The report of the next page in order, waited for; none after the last one or where the run
  /// stopped before it.
  std::optional<Report> nextReport();
  /// The same where it is there already. When no worker is left, also reports behind a gap.
  std::optional<Report> readyReport(bool workersLeft = true);
  /// Raises what stopped the run.
  void raiseReason() const;

 private:
  bool readPage(RunServices& services, Page& page);
  bool nextPeriod();
  bool waitForRoom();
  bool endReached();
  std::optional<Report> takeReport(std::map<std::size_t, Report>::iterator next);
  int& lastSequence(Date payDate, RunServices& services);

  const MonthPlan& plan_;
  const std::size_t window_;

  std::mutex reading_;  // who reads the next page; taken before state_
  std::size_t period_ = 0;
  std::string afterCode_;
  bool periodRead_ = false;

  std::mutex state_;
  std::condition_variable changed_;
  std::size_t handedOut_ = 0;
  std::size_t numbered_ = 0;
  std::size_t finished_ = 0;
  std::size_t told_ = 0;
  std::size_t underWay_ = 0;  // pages that were handed out and not told
  bool allHandedOut_ = false;
  bool stopped_ = false;
  std::exception_ptr reason_;
  std::map<std::size_t, Report> reports_;

  std::mutex numbering_;
  std::map<std::int32_t, int> lastSequence_;  // by pay date
};

}  // namespace kt7::payroll
