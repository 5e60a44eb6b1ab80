#pragma once

#include <optional>
#include <stdexcept>

#include "payroll/run/input.h"
#include "payroll/run/ports.h"

namespace kt7::payroll {

/// How a process takes part in a run that several share.
struct Sharing {
  std::string name;       // of the process, for people
  int leaseSeconds = 60;  // after so long without a sign of life its part is taken over
  int employees = 200;    // of a part
};

/// A month to be paid.
struct RunRequest {
  Month month;
  std::string type;  // "" for all types in use
  std::vector<InputRow> input;
  int jobs = 1;  // workers that pay at a time
  std::optional<Sharing> sharing = {};
};

struct RunOutcome {
  int paid = 0;
  int failed = 0;  // slips that were due and could not be made or written
  int removed = 0;
  int conflicts = 0;  // units of work that another connection was in the way of
  int losses = 0;     // connections that were lost
  int retries = 0;    // units of work that were repeated, for whatever reason

  RunOutcome& operator+=(const RunOutcome& other);
};

/// The run stopped before it paid anybody.
class RunStopped : public std::runtime_error {
 public:
  enum class Cause { WrongUse, Refused };
  RunStopped(Cause cause, std::vector<std::string> reasons)
      : std::runtime_error(reasons.empty() ? "the run stopped" : reasons.front()),
        cause_(cause),
        reasons_(std::move(reasons)) {}

  Cause cause() const { return cause_; }
  const std::vector<std::string>& reasons() const { return reasons_; }

 private:
  Cause cause_;
  std::vector<std::string> reasons_;
};

/// A shared run went on without a process that had begun to work on it and did not answer for
/// longer than its lease: it was begun anew with other input, ended otherwise, or given up. What
/// the process paid until then was kept; what it was about to pay was not.
class RunSuperseded : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Pays a month: brings employee statuses and slip periods up to date, makes and posts the slip of
/// every employee who is due one, and takes away slips of the month that are not due any more.
/// Frozen periods stay as they are. Running it again gives the same slips and balances, whatever
/// the number of jobs. With more than one, `newWorker` makes each of them its services. The data
/// object's connection is opened and closed; slips are written some tens at a time, and one by one
/// where that fails. RunStopped before anything is written, also where a shared run of the same
/// employees is under way; an Error where the database is lost.
RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                    const NewWorker& newWorker = {});

/// The same together with other processes: the first one plans the month and divides it into parts,
/// each takes a part after the other, and the last one ends the run. A part whose process is gone
/// is paid by another. Tells and counts what this process did; returns when the month is paid.
/// RunStopped also where a run with another input or type is under way. RunSuperseded.
RunOutcome runSharedMonth(const RunRequest& request, RunServices& services, RunListener& listener,
                          const NewWorker& newWorker);

}  // namespace kt7::payroll
