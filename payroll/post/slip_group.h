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

/// Writes the changes of some tens of employees in one transaction or, if that fails, in one
/// transaction each, so that one employee's failure stops no other. Repeats after a conflict, with
/// new slip numbers if another run took them. After a connection lost during COMMIT it first looks
/// whether the changes are there. Reports and counts what was written.
class SlipGroupWriter {
 public:
  /// `claim`: null if no other worker can take over the employees.
  SlipGroupWriter(RunServices& services, Attendance& attendance, Recovery& recovery, Report& report,
                  SlipNumbers& numbers, Claim* claim)
      : services_(services),
        attendance_(attendance),
        recovery_(recovery),
        report_(report),
        numbers_(numbers),
        claim_(claim) {}

  /// True if every change was written; the others are reported. An Error if no transaction can
  /// begin, ClaimLost if the employees were taken over.
  bool write(std::vector<SlipChange> changes);

 private:
  using Group = std::span<SlipChange>;

  struct Problem {
    std::string cause;
    bool changed = false;  // the employee's code or type has changed
  };

  /// Empty if every change was written.
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
