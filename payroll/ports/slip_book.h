#pragma once

#include <stdexcept>

#include "payroll/ports/company.h"

namespace kt7::payroll {

/// Raised when an employee's code or type has changed since the run read it. The transaction must
/// roll back.
class EmployeeChanged : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes slips in transactions, each of any number of employees.
class SlipBook {
 public:
  virtual ~SlipBook() = default;

  virtual void begin() = 0;
  /// Writes the slip and its items, replacing those of its number. Locks the employee's code and
  /// type until the transaction ends. EmployeeChanged.
  virtual void save(const Slip& slip) = 0;
  /// Deletes the slip, its items and its balance. EmployeeChanged.
  virtual void remove(const KnownSlip& slip) = 0;
  /// Whether the database holds exactly this slip, with its items and its balance.
  virtual bool stands(const Slip& slip) = 0;
  virtual void commit() = 0;
  /// Never raises: the error to report is the one that led here.
  virtual void rollback() noexcept = 0;
};

}  // namespace kt7::payroll
