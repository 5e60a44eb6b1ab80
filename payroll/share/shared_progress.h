#pragma once

#include <chrono>
#include <map>

#include <kt7/payroll/run_listener.h>
#include "payroll/ports/run_services.h"
#include "payroll/post/report.h"
#include "payroll/share/shared_plan.h"

namespace kt7::payroll {

/// The progress of a shared run, for a listener that wants it: the employees of the parts that any
/// process has done, or those that this process has paid if they are more.
class SharedProgress {
 public:
  SharedProgress(const SharedPlan& shared, RunServices& services, RunListener& listener);

  /// Counts the report of a worker of this process.
  void count(const Report& report);
  /// Reads the parts, at most once a second. A database error is ignored here.
  void look();

 private:
  int employeesDone();
  void tell();

  const SharedPlan& shared_;
  RunServices& services_;
  RunListener& listener_;
  std::map<std::string, int> employees_;  // by the name of their parts
  int total_ = 0;
  int done_ = 0;
  int own_ = 0;
  std::chrono::steady_clock::time_point looked_;
};

}  // namespace kt7::payroll
