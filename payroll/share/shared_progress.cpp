#include "payroll/share/shared_progress.h"

#include <algorithm>

#include <kt7/payroll/run_listener.h>
#include "payroll/facts/slip_period.h"
#include "payroll/ports/run_services.h"

namespace kt7::payroll {

SharedProgress::SharedProgress(const SharedPlan& shared, RunServices& services,
                               RunListener& listener)
    : shared_(shared), services_(services), listener_(listener) {
  if (!listener_.wantsProgress()) return;
  for (std::size_t i = 0; i < shared_.plan.periods.size(); ++i) {
    const SlipPeriod& period = shared_.plan.periods[i];
    if (period.frozen) continue;
    const int employees = services_.company.countEmployees(period.type, period.salary);
    employees_[shared_.partsOf(i)] = employees;
    total_ += employees;
  }
  look();
}

void SharedProgress::count(const Report& report) {
  own_ += report.employees;
  if (report.employees > 0) tell();
  look();
}

void SharedProgress::look() {
  const auto now = std::chrono::steady_clock::now();
  if (!listener_.wantsProgress() || now - looked_ < std::chrono::seconds(1)) return;
  looked_ = now;
  try {
    done_ = employeesDone();
  } catch (const Error&) {
    // The workers meet the same error and deal with it.
    return;
  }
  tell();
}

/// The number of employees of a part is the difference of its sequence and the next part's; the
/// last part of a period has the rest.
int SharedProgress::employeesDone() {
  const std::vector<PartRow> parts = services_.leases.parts(shared_.head.name);
  int done = 0;
  int first = 0;  // of the period
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const RunPart& part = parts[i].part;
    const auto period = employees_.find(part.name);
    if (period == employees_.end()) continue;
    if (i == 0 || parts[i - 1].part.name != part.name) first = part.sequenceBefore;
    const bool isLast = i + 1 == parts.size() || parts[i + 1].part.name != part.name;
    const int behind = isLast ? first + period->second : parts[i + 1].part.sequenceBefore;
    if (parts[i].state == PartState::Done) done += std::max(behind - part.sequenceBefore, 0);
  }
  return done;
}

void SharedProgress::tell() {
  if (listener_.wantsProgress()) {
    listener_.progress(std::min(std::max(done_, own_), total_), total_);
  }
}

}  // namespace kt7::payroll
