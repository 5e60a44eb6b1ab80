#pragma once

#include <stdexcept>

#include "payroll/ports/company.h"

namespace kt7::payroll {

/// Raised where a slip's employee does not stand under the code and the type any more that the run
/// has read: somebody changed them meanwhile. Nothing of the unit may be kept.
class EmployeeChanged : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Slips written as one unit: what happens between begin and commit holds altogether or, after a
/// rollback, not at all. One unit may take any number of employees.
class SlipBook {
 public:
  virtual ~SlipBook() = default;

  virtual void begin() = 0;
  /// Writes the slip with its items over what stands under its number. Nobody changes the
  /// employee's code or type until the unit ends. EmployeeChanged.
  virtual void save(const Slip& slip) = 0;
  /// Takes away the slip, its items and its balance. EmployeeChanged.
  virtual void remove(const KnownSlip& slip) = 0;
  /// Whether this slip stands under its number with its items and its balance.
  virtual bool stands(const Slip& slip) = 0;
  virtual void commit() = 0;
  /// Never raises: the error that made it necessary is the one to tell.
  virtual void rollback() noexcept = 0;
};

}  // namespace kt7::payroll
