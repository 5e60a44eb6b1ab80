#pragma once

#include <set>
#include <span>

#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// The attendance allowance of employee types that have rates for it. A period is active if the
/// input has no ABSENCE; the allowance grows with the number of active periods in a row.
class Attendance {
 public:
  /// Reads which types have rates.
  explicit Attendance(RunServices& services);

  bool counts(const std::string& type) const { return types_.contains(type); }
  /// Sets the slip's verdict and adds the allowance. Earlier periods must have been written.
  void addAllowance(std::span<const InputEntry> input, Slip& slip);

  /// Writes the verdict in the transaction that writes the slip.
  void record(const Slip& slip);
  /// Deletes the verdict of a slip that is no longer due.
  void withdraw(const KnownSlip& slip);

 private:
  RunServices& services_;
  std::set<std::string> types_;
};

}  // namespace kt7::payroll
