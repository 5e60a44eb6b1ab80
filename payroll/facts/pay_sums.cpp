#include "payroll/facts/pay_sums.h"

#include <array>

namespace kt7::payroll {

PaySums& PaySums::operator+=(const PaySums& other) {
  income += other.income;
  bonus += other.bonus;
  salary += other.salary;
  socialSecurity += other.socialSecurity;
  fund += other.fund;
  fundEmployer += other.fundEmployer;
  socialSecurityEmployer += other.socialSecurityEmployer;
  tax += other.tax;
  return *this;
}

PaySums sumsOf(const Slip& slip) {
  PaySums sums;
  const std::array<std::pair<std::string_view, Currency*>, 7> columns{
      {{kind::kBonus, &sums.bonus},
       {kind::kSalary, &sums.salary},
       {kind::kSocialSecurity, &sums.socialSecurity},
       {kind::kFund, &sums.fund},
       {kind::kFundEmployer, &sums.fundEmployer},
       {kind::kSocialSecurityEmployer, &sums.socialSecurityEmployer},
       {kind::kTax, &sums.tax}}};
  for (const SlipItem& item : slip.items) {
    if (item.counts == Counts::Income) sums.income += item.amount;
    for (const auto& [kind, sum] : columns) {
      if (item.kind == kind) *sum += item.amount;
    }
  }
  return sums;
}

}  // namespace kt7::payroll
