#include "host/schema/description/table_groups.h"

namespace kt7::schema {
namespace {

constexpr int kMostPeriodsOfMonth = 10;
constexpr int kSalaryPeriodLength = 80;

Table employeeType() {
  std::vector<Column> columns{code("TEmTCode"),           text("TEmTName"),
                              text("TEmTName2"),          small("TEmTHourPerDay"),
                              small("TEmTDayPerWeek"),    small("TEmTDayPerMonth"),
                              small("TEMTTotalPeriod"),   small("TEmTDayPerPeriod"),
                              small("TEmTDayPerYear"),    number("TEmTHourPerPeriod"),
                              number("TEmTHourPerWeek"),  number("TEmTHourPerMonth"),
                              number("TEmTHourPerYear"),  small("TEmTSalaryType"),
                              small("TEmTCalculateType"), small("TEMTAutoPeriod")};
  for (const char* stem : {"TEMTPaymentPeriod", "TEMTPaymentCustom", "TEMTStartPeriod",
                           "TEMTEndPeriod", "TEMTOTStartPeriod", "TEMTOTEndPeriod"}) {
    appendNumbered(columns, small(stem), 1, kMostPeriodsOfMonth);
  }
  return marked("KT7TEmployeeType", "TEMT", std::move(columns), {unique("TEmTCode")});
}

Table slipPeriod() {
  return table(
      "KT7TEmpSlipPeriod", "TSaP",
      {code("TSaPTEmTCode"), date("TSAPDate"), date("TSAPCustomDate"), small("TSAPPeriodNo"),
       whole("TSAPYearPeriodNo"), date("TSAPStartDate"), date("TSAPEndDate"),
       date("TSAPOTStartDate"), date("TSAPOTEndDate"), date("TSAPMiscStartDate"),
       date("TSAPMiscEndDate"), small("TSAPStatus"), moment("TSAPFlag3")},
      {unique("TSaPTEmTCode, TSAPDate")});
}

void appendMoney(std::vector<Column>& columns, std::initializer_list<const char*> names) {
  for (const char* name : names) columns.push_back(money(name));
}

/// The sub-columns of welfare 10 to 15 exist under both of their published spellings.
void appendWelfare(std::vector<Column>& columns, const std::string& stem) {
  appendNumbered(columns, money(stem + "Welfare"), 1, 15);
  appendNumbered(columns, money(stem + "Welfar"), 10, 15);
}

Table balance() {
  std::vector<Column> columns{
      code("TEATTEmpCode"),     whole("TEATCheckGroup"),
      code("TEATTEmTCode"),     date("TEATPaymentDate"),
      small("TEATBalanceFlag"), text("TEATSalaryPeriod", kSalaryPeriodLength),
      whole("TEATMonth"),       whole("TEATYear"),
      code("TEATTBraCode"),     code("TEATTDivCode"),
      code("TEATDepCode"),      code("TEATSecCode"),
      number("TEATTotalDay"),   number("TEATSubDay"),
      number("TEATSubDayHol"),  number("TEATSubDayChild")};
  appendMoney(columns, {"TEATNetTotal", "TEATAddSalary", "TEATSubSalary", "TEATSubSalaryHol",
                        "TEATSubSalaryChild", "TEATAddOT", "TEATSubOT", "TEATSubOT15", "TEATSubOT2",
                        "TEATSubOT3", "TEATCutFund", "TEATCutSFund", "TEATAddTIP", "TEATSubTip",
                        "TEATSubTipBonus", "TEATSubTipCom", "TEATCutPunish", "TEATAddWelfare",
                        "TEATSubAddWelfare"});
  appendWelfare(columns, "TEATSubAdd");
  appendMoney(columns, {"TEATCutWelfare", "TEATSubCutWelfare"});
  appendWelfare(columns, "TEATSubCut");
  appendMoney(columns,
              {"TEATCutLoan", "TEATCutTAX", "TEATCutSTAX", "TEATAmassFundInt", "TEATAddMoneyFix",
               "TEATAddMoneyNoFix", "TEATCutMoneyFix", "TEATCutMoneyNoFix", "TEATCutTotal",
               "TEATCutAllTotal", "TEATAddTotal", "TEATAmassTotal"});
  return marked("KT7TEmpAmassType", "TEAT", std::move(columns),
                {unique("TEATTEmpCode, TEATPaymentDate, TEATTEmTCode, TEATCheckGroup, "
                        "TEATBalanceFlag"),
                 index("TEATTEmTCode, TEATPaymentDate")});
}

Table slip() {
  return marked(
      "KT7TEmpSlipDoc", "TEPS",
      {code("TEPSNo"), code("TEpSTEmpCode"), code("TEPSTEmTCode"), whole("TEPSCheckGroup"),
       text("TEPSSalaryPeriod", kSalaryPeriodLength), date("TEpsTSaPDate"), date("TEpsStartDate"),
       date("TEpsEndDate"), number("TEPSTotalWorkDay"), number("TEPSTotalLeaveHDay"),
       money("TEPSNetTotal")},
      {unique("TEPSNo"), index("TEpSTEmpCode, TEpsTSaPDate"), index("TEPSTEmTCode, TEpsTSaPDate"),
       // Two runs at once never pay the same twice.
       unique("TEpSTEmpCode, TEpsTSaPDate, TEPSTEmTCode, TEPSCheckGroup")});
}

Table slipItem() {
  return table("KT7TEmpSlipItem", "TSmb",
               {code("TSmbTEPSNo"), whole("TSmbLn"), code("TSmbTAMTAlias"), text("TSmbName"),
                number("TSmbQuantity"), small("TSmbCheckMoney"), small("TSmbCheckFix"),
                money("TSmbDebit"), money("TSmbCrebit")},
               {unique("TSmbTEPSNo, TSmbLn")});
}

Table attendance() {
  return marked("KT7TEmpActiveAmass", "TEAA",
                {code("TEAATSAPTEmTCode"), date("TEAATSaPDate"), code("TEAATEmpCode"),
                 text("TEAASalaryPeriod", kSalaryPeriodLength), small("TEAAType")},
                {unique("TEAATEmpCode, TEAATSAPTEmTCode, TEAATSaPDate")});
}

}  // namespace

std::vector<Table> employeeTypeTables() { return {employeeType(), slipPeriod()}; }

std::vector<Table> slipTables() { return {slip(), slipItem(), balance(), attendance()}; }

std::vector<Table> rateTables() {
  return {
      marked("KT7TTaxRate", "TTxR",
             {code("TTxRTTaxAlias"), money("TTxRFromBase"), number("TTxRRate")},
             {unique("TTxRTTaxAlias, TTxRFromBase")}),
      marked("KT7TFundRate", "TFuR",
             {code("TFuRTFunAlias"), code("TFurTEmTCode"), number("TFurFromBase"),
              number("TFuRShareRate1")},
             {unique("TFuRTFunAlias, TFurTEmTCode, TFurFromBase")}),
      marked("KT7TEmpTipRate", "TETR",
             {code("TETRTEmTCode"), whole("TETRFromBase"), number("TETRTipRate"),
              number("TETRActiveRate")},
             {unique("TETRTEmTCode, TETRFromBase")}),
      marked("KT7TEmpWorkRate", "TWRM",
             {code("TWRMCode"), text("TWRMName"), small("TWRMCalcType"), small("TWRMBaseType"),
              number("TWRMTarget"), number("TWRMTarget0"), number("TWRMRate")},
             {unique("TWRMCode")}),
  };
}

}  // namespace kt7::schema
