#include <kt7/payroll/register_amounts.h>

#include "payroll/facts/pay_sums.h"

namespace kt7::payroll {

RegisterAmounts& RegisterAmounts::operator+=(const RegisterAmounts& other) {
  salary += other.salary;
  overtime += other.overtime;
  otherIncome += other.otherIncome;
  gross += other.gross;
  socialSecurity += other.socialSecurity;
  fundEmployee += other.fundEmployee;
  fundEmployer += other.fundEmployer;
  tax += other.tax;
  otherDeductions += other.otherDeductions;
  net += other.net;
  return *this;
}

RegisterAmounts registerAmounts(const Slip& slip) {
  RegisterAmounts amounts;
  const PaySums sums = sumsOf(slip);
  amounts.salary = sums.salary;
  amounts.gross = sums.income;
  amounts.socialSecurity = sums.socialSecurity;
  amounts.fundEmployee = sums.fund;
  amounts.fundEmployer = sums.fundEmployer;
  amounts.tax = sums.tax;
  Currency deductions;
  for (const SlipItem& item : slip.items) {
    if (itemKind(item.kind).use == InputUse::Overtime) amounts.overtime += item.amount;
    if (item.counts == Counts::Deduction) deductions += item.amount;
  }
  amounts.otherIncome = amounts.gross - amounts.salary - amounts.overtime;
  amounts.otherDeductions =
      deductions - amounts.socialSecurity - amounts.fundEmployee - amounts.tax;
  amounts.net = amounts.gross - deductions;
  return amounts;
}

}  // namespace kt7::payroll
