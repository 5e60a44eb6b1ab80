#include "payroll/run/slip.h"

#include <array>

#include "base/text.h"

namespace kt7::payroll {

namespace {

constexpr int kSequenceWidth = 7;
constexpr std::int64_t kSatang = Currency::kScale / 100;

std::string numberPrefix(Date payDate) {
  return padded(payDate.year(), 4) + padded(payDate.month(), 2) + padded(payDate.day(), 2) + "-";
}

}  // namespace

void Slip::add(std::string_view kindCode, Counts counts, Currency amount, double quantity) {
  const ItemKind kind = itemKind(kindCode);
  items.push_back({std::string(kindCode), std::string(kind.name), quantity, counts, amount});
}

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

std::string slipNumber(Date payDate, int sequence) {
  if (sequence > kHighestSequence) return "";
  return numberPrefix(payDate) + padded(sequence, kSequenceWidth);
}

int slipSequence(const std::string& number, Date payDate) {
  const std::string prefix = numberPrefix(payDate);
  int sequence = 0;
  if (!number.starts_with(prefix)) return 0;
  DigitReader reader(std::string_view(number).substr(prefix.size()));
  return reader.number(kSequenceWidth, sequence) && reader.atEnd() ? sequence : 0;
}

Currency toSatang(Currency amount) {
  const std::int64_t count = amount.tenThousandths();
  const std::int64_t half = count < 0 ? -kSatang / 2 : kSatang / 2;
  return Currency::fromTenThousandths((count / kSatang + (count % kSatang + half) / kSatang) *
                                      kSatang);
}

}  // namespace kt7::payroll
