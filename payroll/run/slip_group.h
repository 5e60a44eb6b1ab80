#pragma once

#include "payroll/run/attendance.h"
#include "payroll/run/recovery.h"
#include "payroll/run/report.h"
#include "payroll/run/salary_history.h"

namespace kt7::payroll {

/// A step of the position history, from that day on.
struct HistoryChange {
  Employee employee;
  HistoryStep step;
  Date from;
};

/// What changes for one employee: slips that go, the one that comes, and the position history. All
/// of it happens or nothing.
struct SlipChange {
  std::optional<Slip> slip;
  std::vector<KnownSlip> removals;
  std::optional<HistoryChange> history = {};
};

/// Kind and text of an error, for people.
std::string causeOf(const Error& error);

/// Writes the changes of some tens of employees as one unit, or one by one where that fails, so
/// that one employee's failure is that employee's alone. A unit that another connection was in the
/// way of is repeated; one that was lost while it was being kept is looked for first. The report
/// says what holds, and counts.
class SlipGroupWriter {
 public:
  SlipGroupWriter(RunServices& services, Attendance& attendance, Recovery& recovery, Report& report)
      : services_(services), attendance_(attendance), recovery_(recovery), report_(report) {}

  /// Whether all of it now holds. A unit that cannot even begin is the error of the whole run.
  bool write(const std::vector<SlipChange>& changes);

 private:
  using Group = std::span<const SlipChange>;

  /// What went wrong; empty where all of it now holds.
  std::optional<std::string> writeTogether(Group group);
  void writeOne(const SlipChange& change, bool again);
  bool standsAlready(Group group);
  bool standsAlready(const SlipChange& change);
  HistoryStep historyStepNow(const HistoryChange& history);
  void tell(Group group);
  void tellFailure(const SlipChange& change, const std::string& cause);

  RunServices& services_;
  Attendance& attendance_;
  Recovery& recovery_;
  Report& report_;
};

}  // namespace kt7::payroll
