#pragma once

#include <cstdint>

#include <kt7/currency.h>
#include <kt7/date.h>

namespace kt7::tax {

/// The statutory figures of the settings table: percentages and amounts in baht.
struct Allowances {
  double expensePercent = 0;        // of the projected annual income
  double expenseCeiling = 0;        // a year
  double socialSecurityMinPay = 0;  // a month
  double socialSecurityMaxPay = 0;  // a month
  double socialSecurityPercent = 0;
};

/// What one employee's tax of the month is reckoned from; money in baht.
struct MonthlyIncome {
  Currency taxablePay;  // the bonus included
  Currency bonus;
  std::int16_t monthsToCome = 0;
  Currency earnedThisYear;
};

struct Deductions {
  Currency waived;
  Currency personal;
  Currency studySupport;
  Currency donation;
};

/// Pay months still to come: as given, or by the pay date where 12 is given.
std::int16_t monthsToCome(std::int16_t given, Date payDate);

/// The year's income: earned so far and the regular pay of the months to come.
Currency projectedIncome(const MonthlyIncome& income);

/// The expense allowance on a year's income: a percentage up to the ceiling.
double expenseAllowance(double yearIncome, const Allowances& allowances);

/// The social-security contribution of the months to come, on pay within its limits.
double projectedContribution(const MonthlyIncome& income, const Allowances& allowances);

/// Net taxable income of the year: expense allowance, deductions and contributions taken off the
/// year's income in their order, each rounded to a ten-thousandth first. Intended 9: study support
/// counts twice.
Currency netIncome(double yearIncome, double expenses, double contribution,
                   const Deductions& deductions, Currency socialSecurityPaid);

/// The tax of the month before rounding: what is still owed of the regular tax, spread over this
/// month and those to come, and the bonus's tax whole.
double monthlyTax(double taxWithBonus, double taxWithoutBonus, Currency withheld,
                  std::int16_t monthsToCome);

/// The tax less the last digit of its whole-number value: 1234.56 gives 1229.56. Intended 10: the
/// digit is that of the rounded value, so the result is not always a multiple of ten.
double trimmedByLastDigit(double tax);

}  // namespace kt7::tax
