#include <kt7/payroll/run_outcome.h>

namespace kt7::payroll {

RunOutcome& RunOutcome::operator+=(const RunOutcome& other) {
  paid += other.paid;
  failed += other.failed;
  removed += other.removed;
  conflicts += other.conflicts;
  losses += other.losses;
  retries += other.retries;
  return *this;
}

}  // namespace kt7::payroll
