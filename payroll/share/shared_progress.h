#pragma once

#include <chrono>
#include <map>

#include <kt7/payroll/run_listener.h>
#include "payroll/ports/run_services.h"
#include "payroll/post/report.h"
#include "payroll/share/shared_plan.h"

namespace kt7::payroll {

/// How far a shared run is, for a listener who wants to know: by the parts that are done, whoever
/// paid them, or by what this process has paid where that is more.
class SharedProgress {
 public:
  SharedProgress(const SharedPlan& shared, RunServices& services, RunListener& listener);

  /// Counts what a worker of this process has done.
  void count(const Report& report);
  /// Looks at the parts, but at most once a second. A look that fails tells nothing.
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
