#include "payroll/store/row_mapping.h"

#include "payroll/facts/pay_sums.h"
#include "payroll/facts/slip_period.h"
#include "payroll/ports/company.h"

namespace kt7::payroll {

namespace {

PeriodDays periodDaysIn(ado::Recordset& row, int number) {
  const auto day = [&](const char* stem) { return smallIn(row, stem + std::to_string(number)); };
  return {day("TEMTPaymentPeriod").value_or(std::int16_t{0}), day("TEMTStartPeriod"),
          day("TEMTEndPeriod"), day("TEMTOTStartPeriod"), day("TEMTOTEndPeriod")};
}

std::string fullName(ado::Recordset& row) {
  const std::string first = textIn(row, "TEmpPrefix") + textIn(row, "TEmpFirstName");
  const std::string last = textIn(row, "TEmpLastName");
  return last.empty() ? first : first + " " + last;
}

/// Empty where a host entered no days.
DaySpan spanIn(ado::Recordset& row, std::string_view first, std::string_view last) {
  const Value from = row.get(first);
  const Value to = row.get(last);
  if (from.isNull() || to.isNull()) return {Date().plusDays(1), Date()};
  return {from.toDate().datePart(), to.toDate().datePart()};
}

}  // namespace

TypeRow typeIn(ado::Recordset& row) {
  TypeRow type;
  type.code = textIn(row, "TEmTCode");
  type.hoursPerDay = smallIn(row, "TEmTHourPerDay");
  type.daysPerWeek = smallIn(row, "TEmTDayPerWeek");
  type.daysPerMonth = smallIn(row, "TEmTDayPerMonth");
  type.totalPeriods = smallIn(row, "TEMTTotalPeriod");
  // The profile reads a null of these two as 0.
  type.salaryType = smallIn(row, "TEmTSalaryType").value_or(std::int16_t{0});
  type.calculateType = smallIn(row, "TEmTCalculateType").value_or(std::int16_t{0});
  const int periods = type.totalPeriods.value_or(std::int16_t{0});
  for (int number = 1; number <= std::min<int>(periods, kMostPeriods); ++number) {
    type.periods.push_back(periodDaysIn(row, number));
  }
  return type;
}

SlipPeriod periodIn(ado::Recordset& row) {
  SlipPeriod period;
  period.type = textIn(row, "TSaPTEmTCode");
  period.number = wholeIn(row, "TSAPPeriodNo");
  period.payDate = row.get("TSAPDate").toDate();
  period.salary = spanIn(row, "TSAPStartDate", "TSAPEndDate");
  const auto status = smallIn(row, "TSAPStatus");
  period.frozen = status.has_value() && *status == 0;
  period.hasSlips = wholeIn(row, "SlipCount") > 0;
  return period;
}

Employee employeeIn(ado::Recordset& row, const Records& records) {
  Employee employee;
  employee.code = textIn(row, "TEmpCode");
  employee.fullName = fullName(row);
  employee.type = textIn(row, "TEmpTEmTCode");
  employee.branch = textIn(row, "TEmpTBraCode");
  employee.signDate = records.enteredDate(row.get("TEmpSignDate"));
  employee.resignDate = records.enteredDate(row.get("TEmpResignDate"));
  const Value salary = row.get("TEmpSalary");
  if (!salary.isNull()) employee.salary = salary.toCurrency();
  employee.custom = moneyIn(row, "TEmpCustom");
  employee.skipSlip = wholeIn(row, "TEm2SkipSlip") != 0;
  employee.socialInsured = wholeIn(row, "TEm2SocialInsured") != 0;
  employee.fundMember = wholeIn(row, "TEm2FundMember") != 0;
  employee.fundPercent = numberIn(row, "TEm2FundRate");
  employee.fundSignDate = records.enteredDate(row.get("TEm2FundSignDate"));
  employee.spouseNoIncome = wholeIn(row, "TEm2SpouseNoIncome") != 0;
  employee.children = wholeIn(row, "TEm2Children");
  employee.childrenSecondSince2018 = wholeIn(row, "TEm2ChildrenSecondSince2018");
  employee.parents = wholeIn(row, "TEm2Parents");
  employee.lifeInsurance = moneyIn(row, "TEm2LifeInsurance");
  employee.homeInterest = moneyIn(row, "TEm2HomeInterest");
  employee.cutWaive = moneyIn(row, "TEm2CutWaive");
  employee.cutStudySup = moneyIn(row, "TEm2CutStudySup");
  return employee;
}

PaySums balanceSumsIn(ado::Recordset& row) {
  PaySums sums;
  sums.income = moneyIn(row, "TEATAddTotal");
  sums.bonus = moneyIn(row, "TEATSubTipBonus");
  sums.salary = moneyIn(row, "TEATSubSalary");
  sums.socialSecurity = moneyIn(row, "TEATCutSTAX");
  sums.fund = moneyIn(row, "TEATCutSFund");
  sums.tax = moneyIn(row, "TEATCutTAX");
  return sums;
}

KnownSlip slipIn(ado::Recordset& row) {
  KnownSlip slip;
  slip.number = textIn(row, "TEPSNo");
  slip.employee = textIn(row, "TEpSTEmpCode");
  slip.type = textIn(row, "TEPSTEmTCode");
  slip.payDate = row.get("TEpsTSaPDate").toDate();
  slip.span = spanIn(row, "TEpsStartDate", "TEpsEndDate");
  slip.sums = balanceSumsIn(row);
  slip.sums.socialSecurityEmployer = moneyIn(row, "EmployerSTAX");
  slip.sums.fundEmployer = moneyIn(row, "EmployerSFUND");
  return slip;
}

Slip paidSlipIn(ado::Recordset& row) {
  Slip slip;
  slip.number = textIn(row, "TEPSNo");
  slip.employee = textIn(row, "TEpSTEmpCode");
  slip.fullName = fullName(row);
  slip.type = textIn(row, "TEPSTEmTCode");
  slip.payDate = row.get("TEpsTSaPDate").toDate();
  slip.span = spanIn(row, "TEpsStartDate", "TEpsEndDate");
  slip.payDays = numberIn(row, "TEPSTotalWorkDay");
  return slip;
}

SlipItem itemIn(ado::Recordset& row) {
  const auto counts = static_cast<Counts>(wholeIn(row, "TSmbCheckMoney"));
  return {textIn(row, "TSmbTAMTAlias"), textIn(row, "TSmbName"), numberIn(row, "TSmbQuantity"),
          counts, moneyIn(row, counts == Counts::Income ? "TSmbDebit" : "TSmbCrebit")};
}

}  // namespace kt7::payroll
