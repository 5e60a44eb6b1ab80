#pragma once

#include "payroll/run/pay_run.h"

namespace kt7 {
class Error;
}

namespace kt7::payroll {

/// What changes for one employee: slips that go and the one that comes. Both happen or neither.
struct SlipChange {
  std::optional<Slip> slip;
  std::vector<KnownSlip> removals;
};

/// Kind and text of an error, for people.
std::string causeOf(const Error& error);

/// Writes the changes of some tens of employees as one unit, or one by one where that fails, so
/// that one employee's failure is that employee's alone. Tells the listener what holds, and counts.
class SlipGroupWriter {
 public:
  SlipGroupWriter(RunServices& services, RunListener& listener, RunOutcome& outcome)
      : services_(services), listener_(listener), outcome_(outcome) {}

  /// A unit that cannot even begin is the error of the whole run.
  void write(const std::vector<SlipChange>& changes);
  void failed(const std::string& employee, Date payDate, const std::string& cause);

 private:
  using Group = std::span<const SlipChange>;

  /// What went wrong; empty where all of it now holds.
  std::optional<std::string> writeTogether(Group group);
  void writeOne(const SlipChange& change);
  void tell(Group group);
  void tellFailure(const SlipChange& change, const std::string& cause);

  RunServices& services_;
  RunListener& listener_;
  RunOutcome& outcome_;
};

}  // namespace kt7::payroll
