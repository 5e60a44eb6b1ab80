#pragma once

#include <stdexcept>

#include "payroll/run/input.h"
#include "payroll/run/ports.h"

namespace kt7::payroll {

/// A month to be paid.
struct RunRequest {
  Month month;
  std::string type;  // "" for all types in use
  std::vector<InputRow> input;
};

struct RunOutcome {
  int paid = 0;
  int failed = 0;  // slips that were due and could not be made or written
  int removed = 0;
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

/// Pays a month: brings employee statuses and slip periods up to date, makes and posts the slip of
/// every employee who is due one, and takes away slips of the month that are not due any more.
/// Frozen periods stay as they are. Running it again gives the same slips and balances. The data
/// object's connection is opened and closed; slips are written some tens at a time, and one by one
/// where that fails. RunStopped before anything is written; an Error where the database cannot be
/// worked with at all.
RunOutcome runMonth(const RunRequest& request, RunServices& services, RunListener& listener);

}  // namespace kt7::payroll
