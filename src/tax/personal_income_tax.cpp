#include <kt7/hr_object.h>
#include "base/arithmetic.h"
#include "base/setting_names.h"
#include "support/opened.h"
#include "tax/brackets.h"
#include "tax/income_tax_rules.h"

namespace kt7 {

namespace {

constexpr int16_t kTaxDigits = 2;
constexpr int16_t kTaxRounding = 1;

void readExpenseAllowance(tax::Allowances& allowances, SettingStore& settings, DataObj& dataObj) {
  allowances.expensePercent =
      settings.GetNumberSetting(setting_name::kExpensesPercent, dataObj.ConnectionString());
  allowances.expenseCeiling =
      settings.GetNumberSetting(setting_name::kExpensesNotOver, dataObj.ConnectionString());
}

void readSocialSecurity(tax::Allowances& allowances, SettingStore& settings, DataObj& dataObj) {
  const auto setting = [&](const char* key) {
    return settings.GetNumberSetting(key, dataObj.ConnectionString());
  };
  setting(setting_name::kSelfAllowance);  // Intended 8: read and without effect.
  allowances.socialSecurityMinPay = setting(setting_name::kSocialSecurityMinPay);
  allowances.socialSecurityMaxPay = setting(setting_name::kSocialSecurityMaxPay);
  allowances.socialSecurityPercent = setting(setting_name::kSocialSecurityPercent);
}

std::vector<tax::Bracket> readBrackets(Platform& platform, DataTool& dataTool, DataObj& dataObj,
                                       ado::Connection& connection) {
  const std::string sql = dataTool.PrepareSql(
      "SELECT * FROM KT7TTaxRate WHERE TTxRTTaxAlias = 'PTAX' ORDER BY TTxRFromBase DESC",
      dataObj.DatabaseType());
  OpenRecordset rates(platform, sql, connection);
  std::vector<tax::Bracket> brackets;
  for (; !rates->Eof(); rates->MoveNext()) {
    const double from = rates->get("TTxRFromBase").toDouble();
    brackets.push_back({from, rates->get("TTxRRate").toDouble() / 100});
  }
  rates.close();
  return brackets;
}

}  // namespace

float HRObject::CalcPTAX(DataObj& dataObj, Currency iTaxBase, Date SignDate, int16_t YearCalc,
                         int16_t Condition, int16_t& iMoreMonth, Currency& Reduce,
                         Currency LastPTAX, Currency& CutStudySup, Currency& Donation,
                         Currency& CutWaive, Currency LastSalary, bool& FixtoTen) {
  return self().CalcPTAX2(dataObj, iTaxBase, Currency(), SignDate, YearCalc, Condition, iMoreMonth,
                          Reduce, LastPTAX, CutStudySup, Donation, CutWaive, LastSalary, FixtoTen);
}

float HRObject::CalcPTAX2(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                          int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen) {
  return self().CalcPTAX3(dataObj, iTaxBase, iBonus, SignDate, YearCalc, Condition, iMoreMonth,
                          Reduce, LastPTAX, CutStudySup, Donation, CutWaive, LastSalary, FixtoTen,
                          platform_.now().datePart());
}

float HRObject::CalcPTAX3(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date SignDate,
                          int16_t YearCalc, int16_t Condition, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen, Date PayDate) {
  return self().CalcPTAX4(dataObj, iTaxBase, iBonus, SignDate, YearCalc, Condition, iMoreMonth,
                          Reduce, LastPTAX, CutStudySup, Donation, CutWaive, LastSalary, FixtoTen,
                          PayDate, Currency());
}

float HRObject::CalcPTAX4(DataObj& dataObj, Currency iTaxBase, Currency iBonus, Date /*SignDate*/,
                          int16_t /*YearCalc*/, int16_t /*Condition*/, int16_t& iMoreMonth,
                          Currency& Reduce, Currency LastPTAX, Currency& CutStudySup,
                          Currency& Donation, Currency& CutWaive, Currency LastSalary,
                          bool& FixtoTen, Date PayDate, Currency LastSSO) {
  if (iTaxBase <= Currency()) return 0;
  const tax::MonthlyIncome income{iTaxBase, iBonus, tax::monthsToCome(iMoreMonth, PayDate),
                                  LastSalary};
  const double yearIncome = tax::projectedIncome(income).toDouble();
  tax::Allowances allowances;
  readExpenseAllowance(allowances, settings(), dataObj);
  const double expenses = tax::expenseAllowance(yearIncome, allowances);
  readSocialSecurity(allowances, settings(), dataObj);
  const double contribution = tax::projectedContribution(income, allowances);
  Donation = Currency();  // Intended 11: a donation never reduces the tax.
  const Currency net = tax::netIncome(yearIncome, expenses, contribution,
                                      {CutWaive, Reduce, CutStudySup, Donation}, LastSSO);

  OwnConnection connection(platform_, dataObj);
  const auto taxOn = [&](Currency netIncome) {
    return tax::walkBrackets(netIncome.toDouble(),
                             readBrackets(platform_, dataTool(), dataObj, *connection));
  };
  const double taxWithBonus = taxOn(net);
  const double taxWithoutBonus = taxOn(net - iBonus);
  connection.close();

  const double monthly =
      tax::monthlyTax(taxWithBonus, taxWithoutBonus, LastPTAX, income.monthsToCome);
  double tax = utility().RoundValue(monthly, kTaxDigits, kTaxRounding);
  if (FixtoTen) tax = tax::trimmedByLastDigit(tax);
  return toSingle(tax);
}

}  // namespace kt7
