#pragma once

#include "payroll/ports/claim.h"
#include "payroll/ports/run_services.h"
#include "payroll/post/report.h"
#include "payroll/post/slip_change.h"
#include "payroll/post/slip_numbers.h"
#include "payroll/retry/recovery.h"
#include "payroll/slips/attendance.h"
#include "payroll/slips/salary_history.h"

namespace kt7::payroll {

/// Writes the changes of some tens of employees as one unit, or one by one where that fails, so
/// that one employee's failure is that employee's alone. A unit that another connection was in the
/// way of is repeated, with other numbers where somebody took them; one that was lost while it was
/// being kept is looked for first. The report says what holds, and counts.
class SlipGroupWriter {
 public:
  /// Without a claim nobody else can take the employees over.
  SlipGroupWriter(RunServices& services, Attendance& attendance, Recovery& recovery, Report& report,
                  SlipNumbers& numbers, Claim* claim)
      : services_(services),
        attendance_(attendance),
        recovery_(recovery),
        report_(report),
        numbers_(numbers),
        claim_(claim) {}

  /// Whether all of it now holds. A unit that cannot even begin is the error of the whole run.
  /// ClaimLost where the employees were taken over.
  bool write(std::vector<SlipChange> changes);

 private:
  using Group = std::span<SlipChange>;

  struct Problem {
    std::string cause;
    bool changed = false;  // the employee, under whom nobody is to be paid any more
  };

  /// What went wrong; empty where all of it now holds.
  std::optional<Problem> writeTogether(Group group);
  void writeAll(Group group, bool again);
  void writeOne(const SlipChange& change);
  void readHistoriesNow(Group group);
  bool standsAlready(Group group);
  bool standsAlready(const SlipChange& change);
  void tell(Group group);
  void tellProblem(const SlipChange& change, const Problem& problem);

  RunServices& services_;
  Attendance& attendance_;
  Recovery& recovery_;
  Report& report_;
  SlipNumbers& numbers_;
  Claim* claim_;
};

}  // namespace kt7::payroll
