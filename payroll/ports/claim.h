#pragma once

#include <stdexcept>

namespace kt7::payroll {

/// Raised in a worker whose employees were taken over while it did not answer. What it was about to
/// write is not kept.
class ClaimLost : public std::runtime_error {
 public:
  ClaimLost() : std::runtime_error("another worker has taken the employees over") {}
};

/// What a worker has its employees by, where others may take them over. Both members raise
/// ClaimLost where that has happened.
class Claim {
 public:
  virtual ~Claim() = default;

  /// A sign of life where one is due; between units of work.
  virtual void keep() = 0;
  /// The first step of a unit of work. Whoever takes over changes what this changes, so that of the
  /// two only one can be kept.
  virtual void hold() = 0;
};

}  // namespace kt7::payroll
