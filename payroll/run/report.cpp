#include "payroll/run/report.h"

namespace kt7::payroll {

void Report::tellTo(RunListener& listener) const {
  for (const auto& told : told_) {
    if (const auto* const slip = std::get_if<Slip>(&told)) {
      listener.paid(*slip);
    } else if (const auto* const text = std::get_if<std::string>(&told)) {
      listener.note(*text);
    } else {
      const Unpaid& unpaid = std::get<Unpaid>(told);
      listener.failed(unpaid.employee, unpaid.payDate, unpaid.cause);
    }
  }
}

void Report::append(const Report& other) {
  told_.insert(told_.end(), other.told_.begin(), other.told_.end());
  outcome += other.outcome;
  employees += other.employees;
}

RunOutcome& RunOutcome::operator+=(const RunOutcome& other) {
  paid += other.paid;
  failed += other.failed;
  removed += other.removed;
  conflicts += other.conflicts;
  losses += other.losses;
  retries += other.retries;
  return *this;
}

}  // namespace kt7::payroll
