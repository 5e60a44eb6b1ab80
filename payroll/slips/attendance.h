#pragma once

#include <set>
#include <span>

#include "payroll/ports/company.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/input.h"

namespace kt7::payroll {

/// The attendance allowance of employee types that have rates for it: every slip carries the
/// period's verdict, active where the input names no ABSENCE, and an active one the allowance that
/// the length of the run of active periods earns.
class Attendance {
 public:
  /// Reads which types have rates.
  explicit Attendance(RunServices& services);

  bool counts(const std::string& type) const { return types_.contains(type); }
  /// Sets the verdict and adds the allowance. The verdicts of earlier periods stand already.
  void addAllowance(std::span<const InputEntry> input, Slip& slip);

  /// Writes the verdict of a slip, inside the unit of work that writes the slip.
  void record(const Slip& slip);
  /// Takes the verdict of a slip away that is no longer due.
  void withdraw(const KnownSlip& slip);

 private:
  RunServices& services_;
  std::set<std::string> types_;
};

}  // namespace kt7::payroll
