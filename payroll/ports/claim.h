#pragma once

#include <stdexcept>

namespace kt7::payroll {

/// Raised when another worker has taken over the employees; the open transaction must roll back.
class ClaimLost : public std::runtime_error {
 public:
  ClaimLost() : std::runtime_error("another worker has taken the employees over") {}
};

/// A worker's right to write its employees, which another worker can take over. Both members raise
/// ClaimLost once that has happened.
class Claim {
 public:
  virtual ~Claim() = default;

  /// Renews the claim when a renewal is due; outside transactions.
  virtual void heartbeat() = 0;
  /// First step of every transaction: renews the claim in it. A takeover changes the same row, so
  /// only one of the two can commit.
  virtual void confirmInTransaction() = 0;
};

}  // namespace kt7::payroll
