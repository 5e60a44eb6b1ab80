#pragma once

#include <chrono>

#include "payroll/ports/claim.h"
#include "payroll/ports/lease_length.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

/// A worker's lease on a part of a shared run, or on the run's head while it plans the month.
class PartLease : public Claim {
 public:
  PartLease(RunServices& services, std::string worker, int leaseSeconds)
      : services_(services), worker_(std::move(worker)), length_(leaseSeconds) {}

  const std::string& worker() const { return worker_; }
  /// When a lease taken now ends.
  Date until() { return length_.from(services_.leases.now()); }
  /// Call when a lease has been taken.
  void begin(const RunPart& part);
  const RunPart& part() const { return part_; }
  /// Call after losing the lease; the next one lasts longer.
  void wasLost() { length_.wasTooShort(); }

  /// Renews the lease now. ClaimLost if another worker took it.
  void renew();
  void heartbeat() override;
  void confirmInTransaction() override;

 private:
  RunServices& services_;
  std::string worker_;
  LeaseLength length_;
  RunPart part_;
  std::chrono::steady_clock::time_point renewed_;
};

}  // namespace kt7::payroll
