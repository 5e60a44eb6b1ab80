#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <kt7/export.h>

namespace kt7::payroll {

/// The run stopped before it paid anybody.
class KT7_API RunStopped : public std::runtime_error {
 public:
  enum class Cause { WrongUse, Refused };
  RunStopped(Cause cause, std::vector<std::string> reasons)
      : std::runtime_error(reasons.empty() ? "the run stopped" : reasons.front()),
        cause_(cause),
        reasons_(std::move(reasons)) {}

  Cause cause() const { return cause_; }
  const std::vector<std::string>& reasons() const { return reasons_; }

 private:
  Cause cause_;
  std::vector<std::string> reasons_;
};

/// A listener ended the run. Slips that were reported as paid are paid.
class KT7_API RunInterrupted : public std::runtime_error {
 public:
  RunInterrupted() : std::runtime_error("the run was interrupted") {}
};

/// A process of a shared run did not answer for longer than its lease, and meanwhile the run was
/// begun anew with other input, ended, or given up. What the process had paid stays paid; it wrote
/// nothing after that.
class KT7_API RunSuperseded : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace kt7::payroll
