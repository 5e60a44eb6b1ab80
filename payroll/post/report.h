#pragma once

#include <set>
#include <variant>

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>

namespace kt7::payroll {

/// Employees who were not paid: code, and day number of the pay date.
using UnpaidSlips = std::set<std::pair<std::string, std::int32_t>>;

/// A listener that records what a worker did, to pass it on to the run's listener later: reports
/// are told in order and in the caller's thread.
class Report : public RunListener {
 public:
  void paid(const Slip& slip) override { told_.emplace_back(slip); }
  void standing(const Slip& slip) override { told_.emplace_back(Standing{slip}); }
  void note(const std::string& text) override { told_.emplace_back(text); }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    told_.emplace_back(Unpaid{employee, payDate, cause});
  }

  /// As `failed`, and counts it in the outcome.
  void countFailed(const std::string& employee, Date payDate, const std::string& cause);
  /// Adds the records and counts of `other`.
  void append(const Report& other);
  void addUnpaidTo(UnpaidSlips& unpaid) const;
  /// Passes the records on, in their order.
  void tellTo(RunListener& listener) const;

  RunOutcome outcome;
  int employees = 0;    // handled, paid or not
  bool ofPage = false;  // of a page, not of a note between pages

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
