#include "payroll/share/part_lease.h"

namespace kt7::payroll {

void HeldPart::begin(const RunPart& part) {
  part_ = part;
  renewed_ = std::chrono::steady_clock::now();
}

void HeldPart::renew() {
  if (!services_.leases.mark(part_, worker_, PartState::Taken, until())) throw ClaimLost();
  renewed_ = std::chrono::steady_clock::now();
}

/// A clock that stands still while the machine sleeps does no harm here: `hold` looks every time.
void HeldPart::keep() {
  const auto age = std::chrono::steady_clock::now() - renewed_;
  if (age >= std::chrono::seconds(length_.seconds()) / 4) renew();
}

void HeldPart::hold() {
  if (!services_.leases.hold(part_, worker_, until())) throw ClaimLost();
}

}  // namespace kt7::payroll
