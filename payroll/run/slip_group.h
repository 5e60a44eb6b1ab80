#pragma once

#include "payroll/run/attendance.h"
#include "payroll/run/pay_run.h"
#include "payroll/run/salary_history.h"

namespace kt7 {
class Error;
}

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
/// that one employee's failure is that employee's alone. Tells the listener what holds, and counts.
class SlipGroupWriter {
 public:
  SlipGroupWriter(RunServices& services, Attendance& attendance, RunListener& listener,
                  RunOutcome& outcome)
      : services_(services), attendance_(attendance), listener_(listener), outcome_(outcome) {}

  /// Whether all of it now holds. A unit that cannot even begin is the error of the whole run.
  bool write(const std::vector<SlipChange>& changes);
  void failed(const std::string& employee, Date payDate, const std::string& cause);

 private:
  using Group = std::span<const SlipChange>;

  /// What went wrong; empty where all of it now holds.
  std::optional<std::string> writeTogether(Group group);
  void writeOne(const SlipChange& change);
  void tell(Group group);
  void tellFailure(const SlipChange& change, const std::string& cause);

  RunServices& services_;
  Attendance& attendance_;
  RunListener& listener_;
  RunOutcome& outcome_;
};

}  // namespace kt7::payroll
