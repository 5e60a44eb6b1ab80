#pragma once

#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "payroll/month/month_plan.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/report.h"
#include "payroll/workers/page_numbers.h"

namespace kt7::payroll {

/// Hands out the pages of a month to workers and gives back their reports in page order, so that
/// the register does not depend on the number of workers. The number of pages handed out and not
/// reported yet is limited.
class PageQueue {
 public:
  PageQueue(const MonthPlan& plan, int workers);

  /// Reads the next page with the caller's services; none after the last one or once the run has
  /// stopped. A period begins when the pages of the one before are finished.
  std::optional<Page> take(RunServices& services);
  /// Numbers the slips of the pages, in page order too.
  SlipNumbers& numbers() { return numbers_; }
  /// The page is paid, or given up.
  void finish(const Page& page, Report report);
  /// A worker failed: no more pages are handed out.
  void stop(std::exception_ptr reason);

  /// Waits for the report of the next page in order; none after the last one, or if the run stopped
  /// before that page was finished.
  std::optional<Report> nextReport();
  /// The same without waiting. If no worker is left, reports after a missing page too.
  std::optional<Report> readyReport(bool workersLeft = true);
  /// Raises the error that stopped the run, if any.
  void raiseReason() const;

 private:
  bool readPage(RunServices& services, Page& page);
  bool nextPeriod();
  bool waitForRoom();
  bool endReached();
  std::optional<Report> takeReport(std::map<std::size_t, Report>::iterator next);

  const MonthPlan& plan_;
  const std::size_t window_;
  PageNumbers numbers_;

  std::mutex reading_;  // held while a page is read; lock before state_
  std::size_t period_ = 0;
  std::string afterCode_;
  bool periodRead_ = false;

  std::mutex state_;
  std::condition_variable changed_;
  std::size_t handedOut_ = 0;
  std::size_t finished_ = 0;
  std::size_t told_ = 0;
  std::size_t underWay_ = 0;  // pages handed out and not reported
  bool allHandedOut_ = false;
  bool stopped_ = false;
  std::exception_ptr reason_;
  std::map<std::size_t, Report> reports_;
};

}  // namespace kt7::payroll
