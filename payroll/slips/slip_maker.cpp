#include "payroll/slips/slip_maker.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/setting_names.h"
#include "payroll/facts/pay_sums.h"
#include "payroll/ports/run_services.h"
#include "payroll/rules/deductions.h"

namespace kt7::payroll {

namespace {

constexpr int kMonthsOfYear = 12;

/// The tax operation reads 12 as "all months of the year that follow the pay date's".
constexpr std::int16_t kRestOfYear = 12;

void requireRecords(const Employee& employee) {
  if (!employee.signDate) throw NotPayable("no sign date");
  if (!employee.salary) throw NotPayable("no salary");
}

}  // namespace

SlipMaker::SlipMaker(RunServices& services, Attendance& attendance)
    : services_(services), attendance_(attendance), calendar_(services.hr, services.dataObj) {
  const auto setting = [&](const char* key) {
    return services.settings.GetNumberSetting(key, services.dataObj.ConnectionString());
  };
  selfRate_ = setting(setting_name::kSocialSecurityPercent);
  employerRate_ = setting(setting_name::kEmployerPercent);
  // Without a rate of its own the employer pays as much as the employee.
  if (employerRate_ == 0) employerRate_ = selfRate_;
}

Slip SlipMaker::make(const SlipOrder& order) {
  requireRecords(order.employee);
  Slip slip;
  slip.employee = order.employee.code;
  slip.fullName = order.employee.fullName;
  slip.type = order.type.code;
  slip.payDate = order.period.payDate;
  slip.periodNumber = order.period.number;
  slip.span = order.period.salary;
  addSalary(order, slip);
  addInput(order, slip);
  attendance_.addAllowance(order.input, slip);
  if (order.closing != nullptr) closeMonth(order, slip);
  return slip;
}

/// SetTypeCode traps its errors, a lost connection too: another attempt gets a new connection.
std::unique_ptr<_EmployeeObject> SlipMaker::profileOfType(const EmployeeType& type) {
  constexpr int kTries = 3;
  for (int i = 0; i < kTries; ++i) {
    auto profile = services_.newProfile();
    profile->SetTypeCode(type.code, services_.dataObj);
    if (holdsType(*profile, type)) return profile;
  }
  throw NotPayable("the settings of employee type " + type.code + " were not loaded");
}

std::unique_ptr<_EmployeeObject> SlipMaker::profileOf(const SlipOrder& order, double quantity) {
  const Employee& employee = order.employee;
  auto profile = profileOfType(order.type);
  profile->Code(employee.code);
  profile->FullName(employee.fullName);
  profile->SignDate(*employee.signDate);
  if (employee.resignDate) profile->ReSignDate(*employee.resignDate);
  profile->StartDate(order.period.salary.first);
  profile->EndDate(order.period.salary.last);
  const double salary = employee.salary->toDouble();
  profile->Salary1Base(salary);
  profile->SETSALARY(salary, 0, quantity);
  return profile;
}

void SlipMaker::addSalary(const SlipOrder& order, Slip& slip) {
  const DaySpan employed = employedDays(order.employee, order.period.salary);
  const bool monthly = order.type.basis == PayBasis::Monthly;
  const int counted =
      monthly ? employed.days() : calendar_.workDays(order.employee.branch, employed);
  const GivenTime given = givenTime(order.input);
  const PaidTime paid = paidTime(order.type, counted, given);
  const auto profile = profileOf(order, paid.quantity);
  const double amount = profile->CalculateSalary1();
  const MonthlyPay pay{*order.employee.salary,
                       amount,
                       profile->CalcMethodSalary() == "D",
                       employed.days(),
                       order.period.number == static_cast<int>(order.type.periods.size()),
                       order.type};
  slip.payDays = paid.days;
  slip.add(
      kind::kSalary, Counts::Income,
      monthly ? monthlyAmount(pay, given, services_.utility) : rounded(amount, services_.utility),
      paid.quantity);
}

void SlipMaker::addInput(const SlipOrder& order, Slip& slip) {
  double hourRate = 0;
  bool rateKnown = false;
  for (const InputEntry& entry : order.input) {
    const ItemKind kind = itemKind(entry.kind);
    if (kind.use == InputUse::Overtime) {
      if (!rateKnown) hourRate = services_.hr.GETHOURRATE(slip.employee, services_.dataObj);
      rateKnown = true;
      slip.add(entry.kind, kind.counts,
               rounded(entry.quantity * kind.times * hourRate, services_.utility), entry.quantity);
    } else if (kind.use == InputUse::Amount) {
      const bool deducts = kind.negativeDeducts && entry.amount < Currency();
      slip.add(entry.kind, deducts ? Counts::Deduction : kind.counts,
               deducts ? -entry.amount : entry.amount, entry.quantity);
    }
  }
}

void SlipMaker::closeMonth(const SlipOrder& order, Slip& slip) {
  PaySums month = sumsOf(slip);
  month += order.closing->restOfMonth;
  if (order.employee.socialInsured) addSocialSecurity(order, month, slip);
  if (contributesToFund(order.employee, slip.payDate)) addFund(order, month, slip);
  addTax(order, slip);
}

Currency SlipMaker::percentOf(double base, double percent) {
  return rounded(base * percent / 100, services_.utility);
}

void SlipMaker::addSocialSecurity(const SlipOrder& order, const PaySums& month, Slip& slip) {
  const PaySums& rest = order.closing->restOfMonth;
  const Currency pay = month.income - month.bonus;
  // The lowest base is for low pay; without pay no contribution is due.
  const double base =
      pay > Currency() ? services_.hr.TrimSTAXBase(pay.toDouble(), services_.dataObj) : 0;
  slip.add(kind::kSocialSecurity, Counts::Deduction,
           stillDue(percentOf(base, selfRate_), rest.socialSecurity));
  slip.add(kind::kSocialSecurityEmployer, Counts::Accumulation,
           stillDue(percentOf(base, employerRate_), rest.socialSecurityEmployer));
}

void SlipMaker::addFund(const SlipOrder& order, const PaySums& month, Slip& slip) {
  const PaySums& rest = order.closing->restOfMonth;
  const double base = services_.hr.TrimSFUNDBase(month.salary.toDouble(), services_.dataObj);
  const double employerPercent = services_.hr.GetSFUNDRate(services_.dataObj, order.type.code,
                                                           *order.employee.signDate, slip.payDate);
  slip.add(kind::kFund, Counts::Deduction,
           stillDue(percentOf(base, order.employee.fundPercent), rest.fund));
  slip.add(kind::kFundEmployer, Counts::Accumulation,
           stillDue(percentOf(base, employerPercent), rest.fundEmployer));
}

void SlipMaker::addTax(const SlipOrder& order, Slip& slip) {
  const Employee& employee = order.employee;
  const PaySums& before = order.closing->yearBefore;
  PaySums month = sumsOf(slip);
  month += order.closing->restOfMonth;
  const int monthsToCome = order.closing->leaves ? 0 : kMonthsOfYear - slip.payDate.month();
  std::int16_t moreMonth = order.closing->leaves ? std::int16_t{0} : kRestOfYear;
  Currency reduce = personalAllowances(employee) +
                    fundAllowance(before.fund + month.fund, month.fund, monthsToCome);
  Currency studySupport = employee.cutStudySup;
  Currency waive = employee.cutWaive;
  Currency donation;
  bool fixToTen = false;
  const float tax =
      services_.hr.CalcPTAX4(services_.dataObj, month.income, month.bonus, *employee.signDate,
                             narrow16(slip.payDate.year()), 0, moreMonth, reduce, before.tax,
                             studySupport, donation, waive, before.income + month.income, fixToTen,
                             slip.payDate, before.socialSecurity + month.socialSecurity);
  // A slip does not pay back what was withheld too much earlier in the year.
  slip.add(kind::kTax, Counts::Deduction,
           stillDue(rounded(widened(tax), services_.utility), order.closing->restOfMonth.tax));
}

}  // namespace kt7::payroll
