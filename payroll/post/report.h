#pragma once

#include <set>
#include <variant>

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>

namespace kt7::payroll {

/// Employees who were not paid, with the day number of the pay date.
using UnpaidSlips = std::set<std::pair<std::string, std::int32_t>>;

/// What is to be told of a part of the run, kept until its turn comes.
class Report : public RunListener {
 public:
  void paid(const Slip& slip) override { told_.emplace_back(slip); }
  void standing(const Slip& slip) override { told_.emplace_back(Standing{slip}); }
  void note(const std::string& text) override { told_.emplace_back(text); }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    told_.emplace_back(Unpaid{employee, payDate, cause});
  }

  /// As failed, and counts it.
  void countFailed(const std::string& employee, Date payDate, const std::string& cause);
  /// Tells what `other` tells after its own, and counts both.
  void append(const Report& other);
  void addUnpaidTo(UnpaidSlips& unpaid) const;
  /// Passes all of it on, in the order in which it came.
  void tellTo(RunListener& listener) const;

  RunOutcome outcome;
  int employees = 0;    // that were looked at
  bool ofPage = false;  // of one that was handed out

 private:
  struct Standing {
    Slip slip;
  };
  struct Unpaid {
    std::string employee;
    Date payDate;
    std::string cause;
  };
  std::vector<std::variant<Slip, Standing, std::string, Unpaid>> told_;
};

}  // namespace kt7::payroll
