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

/// One worker: makes and writes the slips of a page after the other.
class PagePayer {
 public:
  /// Reads the rates. Everything outlives it. The claim is none where nobody else can take the
  /// employees over.
  PagePayer(const MonthPlan& plan, RunServices& services, SlipNumbers& numbers,
            Claim* claim = nullptr);

  /// Leaves the report. An Error where the database is lost, ClaimLost where the employees were
  /// taken over; what holds is reported then too.
  void pay(const Page& page);
  /// Takes slips away that nobody is due.
  void remove(const std::vector<KnownSlip>& slips);
  /// What happened since the last time it was asked.
  Report takeReport() { return std::exchange(report_, Report()); }
  /// What `work` answers, over lost connections.
  template <typename Work>
  auto doing(Work work) {
    return recovery_.doing(std::move(work));
  }
  /// The same, over conflicts too.
  template <typename Work>
  auto repeating(Work work) {
    return recovery_.repeating(std::move(work));
  }
  void countConflict() { ++report_.outcome.conflicts; }
  /// From here on it sees what other workers wrote.
  void catchUp() { recovery_.repeating(services_.catchUp); }

 private:
  struct Records;
  using Changes = std::vector<SlipChange>;

  Changes make(const Page& page, Report& attempt);
  Records recordsOf(const Page& page, const std::vector<const Employee*>& due);
  SlipChange changeOf(const Employee& employee, const Page& page, Records& records);
  void withdrawFirst(const Employee& employee, SlipChange& change);
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

/// Whether the run wrote the slip. It writes over its own slips and takes them away, never those of
/// another program.
bool isOwn(const KnownSlip& slip);

}  // namespace kt7::payroll
