#include "payroll/share/part_lease.h"

namespace kt7::payroll {

void PartLease::begin(const RunPart& part) {
  part_ = part;
  renewed_ = std::chrono::steady_clock::now();
}

void PartLease::renew() {
  if (!services_.leases.mark(part_, worker_, PartState::Taken, until())) throw ClaimLost();
  renewed_ = std::chrono::steady_clock::now();
}

/// The steady clock may stop while the machine sleeps; confirmInTransaction always asks the
/// database.
void PartLease::heartbeat() {
  const auto age = std::chrono::steady_clock::now() - renewed_;
  if (age >= std::chrono::seconds(length_.seconds()) / 4) renew();
}

void PartLease::confirmInTransaction() {
  if (!services_.leases.prolongInTransaction(part_, worker_, until())) throw ClaimLost();
}

}  // namespace kt7::payroll
