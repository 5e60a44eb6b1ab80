#pragma once

#include <chrono>

#include "payroll/ports/claim.h"
#include "payroll/ports/lease_length.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// What a worker of a shared run has taken: a part, or the run's head while it plans.
class HeldPart : public Claim {
 public:
  HeldPart(RunServices& services, std::string worker, int leaseSeconds)
      : services_(services), worker_(std::move(worker)), length_(leaseSeconds) {}

  const std::string& worker() const { return worker_; }
  /// The moment until which something is taken that is taken now.
  Date until() { return length_.from(services_.leases.now()); }
  /// It has just been taken.
  void begin(const RunPart& part);
  const RunPart& part() const { return part_; }
  /// It has been taken over: the next one is taken for longer.
  void wasLost() { length_.wasTooShort(); }

  /// A sign of life. ClaimLost where it has been taken over.
  void renew();
  void keep() override;
  void hold() override;

 private:
  RunServices& services_;
  std::string worker_;
  LeaseLength length_;
  RunPart part_;
  std::chrono::steady_clock::time_point renewed_;
};

}  // namespace kt7::payroll
