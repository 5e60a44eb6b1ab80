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

/// A shared run pays some of the same employees: wait for its end, or take part in it.
class KT7_API SharedRunUnderWay : public RunStopped {
 public:
  /// `atWork`: the process that works on it, for people; "" where none is known.
  SharedRunUnderWay(std::string run, std::string atWork)
      : RunStopped(Cause::Refused, {"a shared run of " + run +
                                    " is under way: wait for its end, or take part in it" +
                                    (atWork.empty() ? "" : "; at work is " + atWork)}),
        run_(std::move(run)),
        atWork_(std::move(atWork)) {}

  /// Its month and type: "2026-01 M1".
  const std::string& run() const { return run_; }
  const std::string& atWork() const { return atWork_; }

 private:
  std::string run_;
  std::string atWork_;
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
