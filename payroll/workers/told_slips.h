#pragma once

#include <map>
#include <vector>

#include <kt7/payroll/run_listener.h>
#include "payroll/post/report.h"

namespace kt7::payroll {

/// Lets a run's listener hear of every slip once. An employee who is paid and then gets a code that
/// the run has yet to come to is paid again with the same slip. Keeps a bit for each number.
class ToldSlips : private RunListener {
 public:
  explicit ToldSlips(RunListener& listener) : listener_(listener) {}

  /// What happened, without the slips that were told before.
  RunOutcome tell(const Report& report);

 private:
  void paid(const Slip& slip) override;
  void standing(const Slip& slip) override;
  void note(const std::string& text) override { listener_.note(text); }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    listener_.failed(employee, payDate, cause);
  }
  bool isNew(const Slip& slip);

  RunListener& listener_;
  std::map<std::int32_t, std::vector<bool>> numbers_;  // by pay date
  int again_ = 0;                                      // paid slips of a report
};

}  // namespace kt7::payroll
