#include <kt7/error.h>
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/register_amounts.h>
#include "paid_company.h"
#include "payroll/facts/slip_number.h"
#include "payroll/store/slip_store.h"

namespace kt7::payroll {

namespace {

/// A kind of item and the balance column that holds nothing else.
struct KindColumn {
  const char* kind;
  const char* column;
};

constexpr std::array<KindColumn, 10> kKindColumns{{{"SALARY", "TEATSubSalary"},
                                                   {"OT15", "TEATSubOT15"},
                                                   {"OT2", "TEATSubOT2"},
                                                   {"BONUS", "TEATSubTipBonus"},
                                                   {"LOAN", "TEATCutLoan"},
                                                   {"WELFARE3", "TEATSubAddWelfare3"},
                                                   {"STAX", "TEATCutSTAX"},
                                                   {"SFUND", "TEATCutSFund"},
                                                   {"PTAX", "TEATCutTAX"},
                                                   {"MEAL", "TEATAddMoneyNoFix"}}};

class Month2026 : public PaidCompany {
 protected:
  void expectBalancesHoldTheSlips() {
    EXPECT_EQ(count("KT7TEmpSlipDoc"), count("KT7TEmpAmassType"));
    for (const KindColumn& row : kKindColumns) {
      EXPECT_EQ(count("KT7TEmpSlipDoc INNER JOIN KT7TEmpAmassType ON TEATTEmpCode=TEpSTEmpCode AND "
                      "TEATPaymentDate=TEpsTSaPDate AND TEATTEmTCode=TEPSTEmTCode WHERE "
                      "ABS(COALESCE(" +
                      std::string(row.column) +
                      ",0)-COALESCE((SELECT SUM(TSmbDebit+TSmbCrebit) FROM KT7TEmpSlipItem WHERE "
                      "TSmbTEPSNo=TEPSNo AND TSmbTAMTAlias='" +
                      row.kind + "'),0))>0.00001"),
                0)
          << row.kind;
    }
    EXPECT_EQ(count("KT7TEmpSlipDoc INNER JOIN KT7TEmpAmassType ON TEATTEmpCode=TEpSTEmpCode AND "
                    "TEATPaymentDate=TEpsTSaPDate WHERE "
                    "ABS(TEPSNetTotal-(TEATAddTotal-TEATCutTotal))>0.00001"),
              0);
  }
};

TEST_F(Month2026, JanuaryIsPaidByTheRules) {
  const Told told = pay(1, {input("E0001", "2026-01-31", "BONUS", "", "10000"),
                            input("E0001", "2026-01-31", "WELFARE3", "", "500"),
                            input("E0001", "2026-01-31", "MEAL", "", "250.50"),
                            input("E0001", "2026-01-31", "LOAN", "", "3000"),
                            input("E0014", "2026-01-15", "ABSENCE", "1", ""),
                            input("E0016", "2026-01-20", "OT15", "2.5", ""),
                            input("E0016", "2026-01-20", "OT2", "8", ""),
                            input("E0031", "2026-01-10", "HOURS", "90", ""),
                            input("E0031", "2026-01-10", "BONUS", "", "1000")});
  EXPECT_TRUE(told.failures.empty() && told.reasons.empty());
  EXPECT_EQ(told.slipsOf("E0008"), 0);  // comes in April
  EXPECT_EQ(told.slipsOf("E0019"), 1);  // came after the first half's days
  EXPECT_EQ(told.slipsOf("E0023"), 4);
  expectBalancesHoldTheSlips();

  struct Row {
    const char *employee, *payDays, *salary, *gross, *socialSecurity, *fund, *fundEmployer;
  };
  for (const Row& row : std::vector<Row>{
           {"E0001", "31", "85000", "95750.5", "875", "8500", "12750"},
           {"E0003", "31", "26000", "26000", "875", "0", "0"},
           {"E0006", "31", "31500.5", "31500.5", "875", "630.01", "1260.02"},
           {"E0014", "16", "8750", "8750", "845.83", "0", "0"},    // 16,916.67 in the month
           {"E0016", "13", "5200", "6187.5", "569.38", "0", "0"},  // 11,387.50 in the month
           {"E0031", "11.25", "5400", "6400", "270", "0", "0"},
           {"E0034", "31", "33000", "33000", "875", "990", "1650"}}) {
    const RegisterAmounts amounts = told.amounts(row.employee);
    EXPECT_EQ(told.slip(row.employee).payDays, std::stod(row.payDays)) << row.employee;
    EXPECT_EQ(amounts.salary, baht(row.salary)) << row.employee;
    EXPECT_EQ(amounts.gross, baht(row.gross)) << row.employee;
    EXPECT_EQ(amounts.socialSecurity, baht(row.socialSecurity)) << row.employee;
    EXPECT_EQ(amounts.fundEmployee, baht(row.fund)) << row.employee;
    EXPECT_EQ(amounts.fundEmployer, baht(row.fundEmployer)) << row.employee;
    EXPECT_EQ(told.slip(row.employee).number.find(row.employee), std::string::npos);
  }
  EXPECT_EQ(told.amounts("E0039").socialSecurity, Currency());  // not insured
}

TEST_F(Month2026, PaidTwiceIsPaidOnce) {
  const std::vector<InputRow> rows{input("E0001", "2026-01-31", "BONUS", "", "10000"),
                                   input("E0016", "2026-01-05", "LOAN", "", "100")};
  pay(1, rows);
  const auto first = books();
  EXPECT_EQ(pay(1, rows).outcome.removed, 0);
  EXPECT_EQ(books(), first);
  pay(1, rows, "D2");
  EXPECT_EQ(books(), first);
  // An item that is not given any more goes.
  pay(1);
  EXPECT_EQ(count("KT7TEmpSlipItem WHERE TSmbTAMTAlias IN ('BONUS','LOAN')"), 0);
  expectBalancesHoldTheSlips();
}

TEST_F(Month2026, ChangedPayDayMovesTheSlips) {
  const Told first = pay(1);
  const auto moved = std::count_if(first.slips.begin(), first.slips.end(),
                                   [](const Slip& slip) { return slip.type[0] == 'M'; });
  sql("UPDATE KT7TEmployeeType SET TEMTPaymentPeriod1=25 WHERE TEmTCode='M1'");
  sql("UPDATE KT7TEmployeeType SET TEMTPaymentPeriod1=12, TEMTPaymentPeriod2=25 "
      "WHERE TEmTCode='M2'");
  const Told second = pay(1);
  EXPECT_TRUE(second.failures.empty());
  EXPECT_EQ(second.outcome.paid, first.outcome.paid);
  EXPECT_EQ(second.outcome.removed, moved);
  EXPECT_TRUE(second.noted("no longer due: removed"));
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEPSTEmTCode='M1' AND TEpsTSaPDate<>'2026-01-25'"), 0);
  EXPECT_EQ(second.amounts("E0001").tax, first.amounts("E0001").tax);
  EXPECT_EQ(second.amounts("E0011").tax, first.amounts("E0011").tax);
  expectBalancesHoldTheSlips();
}

TEST_F(Month2026, FrozenPeriodStaysAndCountsInTheMonth) {
  const Told first = pay(1);
  sql("UPDATE KT7TEmpSlipPeriod SET TSAPStatus=0 WHERE TSaPTEmTCode='M2' AND "
      "TSAPDate='2026-01-15'");
  sql("UPDATE KT7TEmployee SET TEmpSalary=35000 WHERE TEmpCode='E0011'");
  sql("UPDATE KT7TEmployee SET TEmpTEmTCode='M1' WHERE TEmpCode='E0012'");
  const Told second = pay(1, {input("E0011", "2026-01-15", "BONUS", "", "5000")});
  EXPECT_TRUE(second.noted("M2 on 2026-01-15 is frozen"));
  ASSERT_EQ(second.frozen.size(), 7u);
  for (const Slip& slip : second.frozen) {
    const auto paid = std::ranges::find(first.slips, slip.number, &Slip::number);
    ASSERT_NE(paid, first.slips.end()) << slip.number;
    EXPECT_EQ(slip.employee + slip.fullName + slip.type,
              paid->employee + paid->fullName + paid->type);
    EXPECT_EQ(slip.payDays, paid->payDays);
    EXPECT_EQ(registerAmounts(slip).salary, registerAmounts(*paid).salary);
    EXPECT_EQ(registerAmounts(slip).net, registerAmounts(*paid).net);
    EXPECT_EQ(slip.items.size(), paid->items.size());
  }
  EXPECT_EQ(second.slipsOf("E0011"), 1);
  EXPECT_EQ(second.amounts("E0011").gross, baht("17500"));
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEpSTEmpCode='E0011' AND TEPSNetTotal=14000"), 1);
  // 14,000 of the frozen half and 17,500: above the ceiling; the fund on the whole month's salary.
  EXPECT_EQ(second.amounts("E0011").socialSecurity, baht("875"));
  EXPECT_EQ(second.amounts("E0011").fundEmployee, baht("945"));

  // The frozen half of somebody whose type has changed stays, and is not paid again.
  ASSERT_EQ(second.failures.size(), 1u);
  EXPECT_NE(second.failures[0].find("E0012: 2026-01-01 to 2026-01-15 was paid already"),
            std::string::npos);
  EXPECT_EQ(lines("SELECT TEpsTSaPDate||'' AS line FROM KT7TEmpSlipDoc WHERE "
                  "TEpSTEmpCode='E0012'"),
            std::vector<std::string>{"2026-01-15"});

  // A frozen period that closed the month keeps what was withheld; nothing is withheld twice.
  sql("UPDATE KT7TEmpSlipPeriod SET TSAPStatus=0 WHERE TSaPTEmTCode='M1'");
  sql("UPDATE KT7TEmployeeType SET TEMTPaymentPeriod1=25 WHERE TEmTCode='M1'");
  const auto before = books();
  const Told third = pay(1);
  ASSERT_FALSE(third.reasons.empty());
  EXPECT_NE(third.reasons[0].find("overlap"), std::string::npos);
  EXPECT_EQ(books(), before);
}

TEST_F(Month2026, LeaverClosesWithTheLastSlip) {
  pay(1);
  sql("UPDATE KT7TEmployee SET TEmpResignDate='2026-01-10' WHERE TEmpCode='E0013'");
  sql("UPDATE KT7TEmployee SET TEmpResignDate='2026-01-31' WHERE TEmpCode='E0007'");
  const Told told = pay(1);
  EXPECT_TRUE(told.noted("of E0013 (M2 on 2026-01-31) is no longer due"));
  const RegisterAmounts amounts = told.amounts("E0013");
  EXPECT_EQ(told.slip("E0013").payDate, Date::fromIsoText("2026-01-15"));
  EXPECT_EQ(amounts.gross, baht("21666.67"));  // 65,000 x 10 / 30
  EXPECT_EQ(amounts.socialSecurity, baht("875"));
  EXPECT_EQ(amounts.fundEmployee, baht("1083.33"));
  // No month follows: what the year has paid is below the allowances, also of a high salary.
  EXPECT_EQ(amounts.tax, Currency());
  EXPECT_EQ(told.amounts("E0007").gross, baht("95000"));
  EXPECT_EQ(told.amounts("E0007").tax, Currency());

  sql("UPDATE KT7TEmployee2 SET TEm2SkipSlip=1 WHERE TEm2TEmpCode='E0001'");
  sql("UPDATE KT7TEmployee SET TEmpTEmTCode='M1' WHERE TEmpCode='E0011'");
  const Told again = pay(1, {}, "M1");
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEpSTEmpCode='E0001'"), 0);
  EXPECT_EQ(count("KT7TEmpAmassType WHERE TEATTEmpCode='E0001'"), 0);
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEpSTEmpCode='E0011'"), 1);
  EXPECT_EQ(again.amounts("E0011").gross, baht("28000"));
  EXPECT_EQ(again.outcome.removed, 3);
  expectBalancesHoldTheSlips();
}

TEST_F(Month2026, NothingRunsOnWrongRecords) {
  const auto stops = [&](const Told& told, const char* reason) {
    ASSERT_FALSE(told.reasons.empty()) << reason;
    EXPECT_NE(told.reasons[0].find(reason), std::string::npos) << told.reasons[0];
    EXPECT_EQ(count("KT7TEmpSlipDoc"), 0);
    EXPECT_EQ(count("KT7TEmpSlipPeriod"), 0);
  };
  stops(pay(1, {input("E0001", "2026-01-15", "BONUS", "", "1")}), "has no pay date 2026-01-15");
  stops(pay(1, {}, "X"), "no employee type 'X'");
  sql("UPDATE KT7TEmployeeType SET TEMTStartPeriod2=15 WHERE TEmTCode='M2'");
  stops(pay(1), "overlap");
  sql("UPDATE KT7TEmployeeType SET TEMTStartPeriod2=16, TEmTHourPerDay=NULL WHERE TEmTCode='M2'");
  stops(pay(1), "hours a day is empty");
  EXPECT_TRUE(messages_.empty());
  // A broken type that is not paid itself still keeps the periods from being generated.
  sql("UPDATE KT7TEmployeeType SET TEMTStartPeriod2=NULL WHERE TEmTCode='M2'");
  stops(pay(1, {}, "M1"), "could not be generated");
  EXPECT_EQ(messages_.size(), 1u);
  host::HostDataObj dataObj(database_.connectionString());
  sql("UPDATE KT7TEmployeeType SET TEMTStartPeriod2=16 WHERE TEmTCode='M2'");
  Told told;
  platform_.setNow(Date::fromIsoText("2026-02-01"));
  EXPECT_THROW(payMonth(platform_, dataObj, {Month(2026, 1), "H1", {}}, told), RunStopped);
  EXPECT_TRUE(told.slips.empty()) << "the clock does not stand in the month";
}

TEST_F(Month2026, WhateverStandsInACodeIsPaidAsAnyOther) {
  const Told before = pay(1);
  forgetTheMonth();
  sql("DELETE FROM KT7TEmpSlipPeriod");
  for (const std::string table : {"KT7TEmployee SET TEmpCode", "KT7TEmployee2 SET TEm2TEmpCode"}) {
    const std::string column = table.substr(table.find("SET ") + 4);
    for (const auto& [to, from] :
         {std::pair{"E#$2026-01-31#$", "E0005"}, {"E#$#$", "E0007"}, {"E\x1b[2J#$", "E0016"}}) {
      std::string text = "UPDATE ";
      text.append(table).append("='").append(to).append("' WHERE ");
      sql(text.append(column).append("='").append(from).append("'"));
    }
  }
  sql("UPDATE KT7TEmployeeType SET TEmTCode='M#$2026-01-31#$' WHERE TEmTCode='M2'");
  sql("UPDATE KT7TEmployee SET TEmpTEmTCode='M#$2026-01-31#$' WHERE TEmpTEmTCode='M2'");
  const Told told = pay(1);
  EXPECT_TRUE(told.failures.empty() && told.reasons.empty()) << told.failures.size();
  EXPECT_EQ(told.outcome.paid, before.outcome.paid);
  EXPECT_EQ(told.amounts("E#$2026-01-31#$").net, before.amounts("E0005").net);
  EXPECT_EQ(told.amounts("E#$#$").net, before.amounts("E0007").net);
}

TEST_F(Month2026, OneFailureIsNobodyElses) {
  sql("UPDATE KT7TEmployee SET TEmpSalary=NULL WHERE TEmpCode='E0005'");
  // Posting composes its statements with the code as it stands.
  sql("UPDATE KT7TEmployee SET TEmpCode='E''7' WHERE TEmpCode='E0007'");
  const Told told = pay(1);
  ASSERT_EQ(told.failures.size(), 2u);
  EXPECT_EQ(told.failures[0], "E0005: no salary");
  EXPECT_EQ(told.failures[1].find("E'7: database error -2147217900"), 0u) << told.failures[1];
  EXPECT_TRUE(told.failures[1].ends_with("the code holds a quote: give the employee another one"));
  EXPECT_TRUE(told.noted("statuses of the employees could not"));
  EXPECT_EQ(told.outcome.failed, 2);
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEPSTEmTCode='M1'"), 14);
  EXPECT_EQ(count("KT7TEmpSlipItem WHERE TSmbTEPSNo NOT IN (SELECT TEPSNo FROM KT7TEmpSlipDoc)"),
            0);
  expectBalancesHoldTheSlips();
}

TEST_F(Month2026, SlipOfAnotherRunIsNotPaidBeside) {
  host::HostDataObj dataObj(database_.connectionString());
  dataObj.OpenConnection();
  Records records(platform_, dataObj);
  SlipStore book(records, dataObj);
  Slip slip;
  slip.employee = "E0001";
  slip.type = "M1";
  slip.payDate = Date::fromIsoText("2026-01-31");
  slip.span = {Date::fromIsoText("2026-01-01"), slip.payDate};
  slip.number = slipNumber(slip.payDate, 1);
  slip.add("SALARY", Counts::Income, baht("85000"));
  book.begin();
  book.save(slip);
  book.commit();
  slip.number = slipNumber(slip.payDate, 2);
  book.begin();
  EXPECT_THROW(book.save(slip), Error);
  book.rollback();
  EXPECT_EQ(lines("SELECT TEPSNo AS line FROM KT7TEmpSlipDoc"),
            std::vector<std::string>{"20260131-0000001"});
}

TEST_F(Month2026, SlipsOfOtherProgramsAreLeftAlone) {
  sql("INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSTEmTCode, TEPSCheckGroup, "
      "TEpsTSaPDate, TEPSNetTotal) VALUES ('X1', 'E0001', 'M1', 1, '2026-01-31', 5), "
      "('X2', 'E0002', 'M1', 1, '2026-01-20', 7)");
  const Told told = pay(1);
  ASSERT_EQ(told.failures.size(), 1u);
  EXPECT_EQ(told.failures[0], "E0001: slip X1 of another program stands on that pay date");
  EXPECT_EQ(told.slipsOf("E0002"), 1);
  EXPECT_EQ(lines("SELECT TEPSNetTotal AS line FROM KT7TEmpSlipDoc WHERE TEPSNo LIKE 'X%' ORDER BY "
                  "TEPSNo"),
            (std::vector<std::string>{"5", "7"}));
}

TEST_F(Month2026, DaysAreNotPaidAgainUnderAnotherType) {
  pay(1);
  // Daily pay in February begins with 21 January, which the January salary has paid.
  sql("UPDATE KT7TEmployee SET TEmpTEmTCode='D2', TEmpSalary=500 WHERE TEmpCode='E0003'");
  const Told told = pay(2);
  ASSERT_EQ(told.failures.size(), 1u);
  EXPECT_NE(told.failures[0].find("E0003: 2026-01-21 to 2026-01-31 was paid already"),
            std::string::npos);
  EXPECT_EQ(told.slipsOf("E0003"), 1);
}

}  // namespace

}  // namespace kt7::payroll
