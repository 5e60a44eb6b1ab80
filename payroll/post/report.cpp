#include "payroll/post/report.h"

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>

namespace kt7::payroll {

void Report::tellTo(RunListener& listener) const {
  for (const auto& told : told_) {
    if (const auto* const slip = std::get_if<Slip>(&told)) {
      listener.paid(*slip);
    } else if (const auto* const frozen = std::get_if<Standing>(&told)) {
      listener.standing(frozen->slip);
    } else if (const auto* const text = std::get_if<std::string>(&told)) {
      listener.note(*text);
    } else {
      const Unpaid& unpaid = std::get<Unpaid>(told);
      listener.failed(unpaid.employee, unpaid.payDate, unpaid.cause);
    }
  }
}

void Report::countFailed(const std::string& employee, Date payDate, const std::string& cause) {
  ++outcome.failed;
  // The operations put the code into their statements as it is.
  const bool quote = employee.find('\'') != std::string::npos;
  failed(employee, payDate,
         quote ? cause + "; the code holds a quote: give the employee another one" : cause);
}

void Report::addUnpaidTo(UnpaidSlips& unpaid) const {
  for (const auto& told : told_) {
    const auto* const slip = std::get_if<Unpaid>(&told);
    if (slip != nullptr) unpaid.emplace(slip->employee, slip->payDate.dayNumber());
  }
}

void Report::append(const Report& other) {
  told_.insert(told_.end(), other.told_.begin(), other.told_.end());
  outcome += other.outcome;
  employees += other.employees;
}

}  // namespace kt7::payroll
