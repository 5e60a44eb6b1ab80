#pragma once

#include <utility>

#include "payroll/facts/slip_period.h"
#include "payroll/month/month_plan.h"
#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_group.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/slips/attendance.h"
#include "payroll/slips/slip_maker.h"

namespace kt7::payroll {

/// One worker: makes and writes slips, page by page.
class PagePayer {
 public:
  /// Reads the rates. All arguments outlive it. `claim`: null if no other worker can take over the
  /// employees.
  PagePayer(const MonthPlan& plan, RunServices& services, SlipNumbers& numbers,
            Claim* claim = nullptr);

  /// Adds to the report. An Error if the database is lost, ClaimLost if the employees were taken
  /// over; the report then holds what was written before.
  void pay(const Page& page);
  /// Removes slips that are no longer due.
  void remove(const std::vector<KnownSlip>& slips);
  /// What happened since the last call.
  Report takeReport() { return std::exchange(report_, Report()); }
  /// As Recovery::retryOnLoss, counted in the report.
  template <typename Work>
  auto retryOnLoss(Work work) {
    return recovery_.retryOnLoss(std::move(work));
  }
  /// As Recovery::retryOnLossOrConflict.
  template <typename Work>
  auto retryOnLossOrConflict(Work work) {
    return recovery_.retryOnLossOrConflict(std::move(work));
  }
  void countConflict() { ++report_.outcome.conflicts; }
  /// Makes it see what other workers have committed (RunServices::catchUp).
  void catchUp() { recovery_.retryOnLossOrConflict(services_.catchUp); }

 private:
  struct Records;
  using Changes = std::vector<SlipChange>;

  Changes make(const Page& page, Report& attempt);
  Records recordsOf(const Page& page, const std::vector<const Employee*>& due);
  SlipChange changeOf(const Employee& employee, const Page& page, Records& records);
  void removeUndueFirst(const Employee& employee, SlipChange& change);
  bool isUndue(const KnownSlip& slip, const Employee& owner) const;
  bool isLast(const Employee& employee, const SlipPeriod& of,
              const std::vector<KnownSlip>& slips) const;
  bool leaves(const Employee& employee) const;

  const MonthPlan& plan_;
  RunServices& services_;
  SlipNumbers& numbers_;
  Claim* claim_;
  const SlipPeriod* caughtUpFor_ = nullptr;
  Report report_;
  Recovery recovery_;
  Attendance attendance_;
  SlipMaker maker_;
  SlipGroupWriter writer_;
};

/// Whether the pay run wrote the slip. It replaces and removes only its own, never those of another
/// program.
bool isOwn(const KnownSlip& slip);

}  // namespace kt7::payroll
