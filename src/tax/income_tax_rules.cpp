#include "tax/income_tax_rules.h"

#include <cmath>

#include "base/arithmetic.h"
#include "tax/brackets.h"

namespace kt7::tax {

namespace {

constexpr std::int16_t kFromPayDate = 12;
constexpr std::int16_t kMonthsPerYear = 12;

}  // namespace

double walkBrackets(double netIncome, std::span<const Bracket> brackets) {
  double remainder = netIncome;
  double tax = 0;
  for (const Bracket& bracket : brackets) {
    if (!(remainder > bracket.from)) continue;
    const double share = remainder - bracket.from;
    tax = finite(tax + bracket.rate * share);
    remainder -= share;
  }
  return tax;
}

std::int16_t monthsToCome(std::int16_t given, Date payDate) {
  if (given != kFromPayDate) return given;
  return static_cast<std::int16_t>(kMonthsPerYear - payDate.month());
}

Currency projectedIncome(const MonthlyIncome& income) {
  return income.earnedThisYear + income.monthsToCome * (income.taxablePay - income.bonus);
}

double expenseAllowance(double yearIncome, const Allowances& allowances) {
  const double allowance = finite(allowances.expensePercent * yearIncome / 100);
  return allowance > allowances.expenseCeiling ? allowances.expenseCeiling : allowance;
}

double projectedContribution(const MonthlyIncome& income, const Allowances& allowances) {
  double base = income.taxablePay.toDouble();
  if (base < allowances.socialSecurityMinPay) {
    base = allowances.socialSecurityMinPay;
  } else if (base > allowances.socialSecurityMaxPay) {
    base = allowances.socialSecurityMaxPay;
  }
  return finite(allowances.socialSecurityPercent * base / 100 * income.monthsToCome);
}

Currency netIncome(double yearIncome, double expenses, double contribution,
                   const Deductions& deductions, Currency socialSecurityPaid) {
  return Currency::fromDouble(yearIncome) - deductions.waived - Currency::fromDouble(expenses) -
         deductions.personal - 2 * deductions.studySupport - deductions.donation -
         Currency::fromDouble(contribution) - socialSecurityPaid;
}

double monthlyTax(double taxWithBonus, double taxWithoutBonus, Currency withheld,
                  std::int16_t monthsToCome) {
  const double causedByBonus = taxWithBonus - taxWithoutBonus;
  const Currency owed = Currency::fromDouble(taxWithoutBonus) - withheld;
  return finite(divide(owed.toDouble(), add16(monthsToCome, 1)) + causedByBonus);
}

double trimmedByLastDigit(double tax) {
  const double lastDigit = std::fmod(std::fabs(std::round(tax)), 10);
  return tax - lastDigit;
}

}  // namespace kt7::tax
