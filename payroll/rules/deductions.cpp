#include "payroll/rules/deductions.h"

#include <algorithm>

namespace kt7::payroll {

namespace {

// Baht a year.
constexpr std::int64_t kOwnAllowance = 60000;
constexpr std::int64_t kSpouseAllowance = 60000;
constexpr std::int64_t kChildAllowance = 30000;
constexpr std::int64_t kSecondChildAllowance = 60000;  // from the second child on, born since 2018
constexpr std::int64_t kParentAllowance = 30000;
constexpr std::int64_t kLifeInsuranceLimit = 100000;
constexpr std::int64_t kHomeInterestLimit = 100000;
constexpr std::int64_t kFundLimit = 500000;

Currency upTo(Currency amount, std::int64_t baht) {
  return std::min(amount, Currency::fromWhole(baht));
}

}  // namespace

Currency personalAllowances(const Employee& employee) {
  const int secondChildren = std::min(employee.childrenSecondSince2018, employee.children);
  std::int64_t baht = kOwnAllowance;
  if (employee.spouseNoIncome) baht += kSpouseAllowance;
  baht += kChildAllowance * (employee.children - secondChildren);
  baht += kSecondChildAllowance * secondChildren;
  baht += kParentAllowance * employee.parents;
  return Currency::fromWhole(baht) + upTo(employee.lifeInsurance, kLifeInsuranceLimit) +
         upTo(employee.homeInterest, kHomeInterestLimit);
}

Currency fundAllowance(Currency yearSoFar, Currency thisMonth, int monthsToCome) {
  return upTo(yearSoFar + monthsToCome * thisMonth, kFundLimit);
}

bool contributesToFund(const Employee& employee, Date payDate) {
  return employee.fundMember && !(employee.fundSignDate && payDate < *employee.fundSignDate);
}

Currency stillDue(Currency total, Currency withheld) {
  return std::max(total - withheld, Currency());
}

}  // namespace kt7::payroll
