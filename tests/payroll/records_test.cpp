// What the pay run keeps beside the slips: verdicts, statuses, position history, renamed employees.
#include "tests/payroll/paid_company.h"

namespace kt7::payroll {
namespace {

using Lines = std::vector<std::string>;
using Records2026 = PaidCompany;

TEST_F(Records2026, ARunOfActivePeriodsEarnsTheAllowance) {
  pay(1, {input("E0023", "2026-01-14", "ABSENCE", "1", "")});
  const Told february = pay(2);
  // E0024 was never absent: the sixth period of the year is the second of February.
  EXPECT_EQ(lines("SELECT TEpsTSaPDate || ' ' || TSmbDebit AS line FROM KT7VEmployeeSlip WHERE "
                  "TSmbTAMTAlias='TIP' AND TEpSTEmpCode='E0024' ORDER BY TEpsTSaPDate"),
            (Lines{"2026-02-14 300", "2026-02-21 300", "2026-02-28 300"}));
  // E0023 began anew after the absence: its sixth active period is the last of February.
  EXPECT_EQ(lines("SELECT TEpsTSaPDate || '' AS line FROM KT7VEmployeeSlip WHERE "
                  "TSmbTAMTAlias='TIP' AND TEpSTEmpCode='E0023'"),
            Lines{"2026-02-28"});
  EXPECT_EQ(february.amounts("E0024").otherIncome, baht("300"));
  EXPECT_EQ(lines("SELECT TEm2BonusAmass AS line FROM KT7TEmployee2 WHERE TEm2TEmpCode IN "
                  "('E0023','E0024') ORDER BY TEm2TEmpCode"),
            (Lines{"6", "8"}));
  EXPECT_EQ(count("KT7TEmpActiveAmass WHERE TEAATEmpCode='E0001'"), 0) << "no rates, no verdicts";

  const Lines balances = lines(
      "SELECT TEATTEmpCode || TEATPaymentDate || TEATSubTip AS line FROM "
      "KT7TEmpAmassType ORDER BY TEATRowID");
  pay(2);
  EXPECT_EQ(lines("SELECT TEATTEmpCode || TEATPaymentDate || TEATSubTip AS line FROM "
                  "KT7TEmpAmassType ORDER BY TEATTEmpCode, TEATPaymentDate")
                .size(),
            balances.size());
  EXPECT_EQ(count("KT7TEmpActiveAmass WHERE TEAATEmpCode='E0024'"), 8);
}

TEST_F(Records2026, AChangedPayDayTakesItsVerdictsAlong) {
  pay(1);
  sql("UPDATE KT7TEmployeeType SET TEMTPaymentPeriod1=8 WHERE TEmTCode='W4'");
  pay(1);
  EXPECT_EQ(lines("SELECT TEAATSaPDate || '' AS line FROM KT7TEmpActiveAmass WHERE "
                  "TEAATEmpCode='E0024' ORDER BY TEAATSaPDate"),
            (Lines{"2026-01-08", "2026-01-14", "2026-01-21", "2026-01-31"}));
  const Told february = pay(2);
  EXPECT_EQ(february.failures, Lines{});
  EXPECT_EQ(lines("SELECT MIN(TEpsTSaPDate) || '' AS line FROM KT7VEmployeeSlip WHERE "
                  "TSmbTAMTAlias='TIP' AND TEpSTEmpCode='E0024'"),
            Lines{"2026-02-14"})
      << "a moved period counts once";
}

TEST_F(Records2026, HistoryBeginsWithTheFirstRunAndFollowsTheSalary) {
  const auto history = [&] {
    return lines(
        "SELECT TEHPLn || ' ' || TEHPStartDate || ' ' || TEHPSalary AS line FROM "
        "KT7TEmpHisPosition WHERE TEHPTEmpCode='E0003' ORDER BY TEHPLn");
  };
  pay(1);
  EXPECT_EQ(history(), Lines{"1 2024-02-29 26000"});
  sql("UPDATE KT7TEmployee SET TEmpSalary=27500.25 WHERE TEmpCode='E0003'");
  pay(2);
  pay(2);
  EXPECT_EQ(history(), (Lines{"1 2024-02-29 26000", "2 2026-02-01 27500.25"}));
}

TEST_F(Records2026, CodesMayHoldAnyCharacter) {
  constexpr int kMoreThanAPage = 60;
  for (int i = 0; i < kMoreThanAPage; ++i) {
    sql("INSERT INTO KT7TEmployee (TEmpCode, TEmpFirstName, TEmpTEmTCode, TEmpSignDate, "
        "TEmpSalary, "
        "TEmpTBraCode) VALUES ('N\\" +
        std::to_string(100 + i) + "', 'N', 'M1', '2024-01-01', 20000, '00')");
  }
  for (int run = 0; run < 2; ++run) {
    const Told told = pay(1, {}, "M1");
    EXPECT_EQ(told.failures, Lines{});
    EXPECT_EQ(std::count_if(told.slips.begin(), told.slips.end(),
                            [](const Slip& slip) { return slip.employee.starts_with("N\\1"); }),
              kMoreThanAPage);
  }
}

TEST_F(Records2026, StatusesFollowTheResignationDates) {
  const auto status = [&] {
    return lines("SELECT TEmpStatus AS line FROM KT7TEmployee WHERE TEmpCode='E0021'");
  };
  pay(3, {}, "M1");  // on 31 March the employee who left on the 20th has gone
  EXPECT_EQ(status(), Lines{"4"});
  sql("UPDATE KT7TEmployee SET TEmpResignDate='2026-12-31' WHERE TEmpCode='E0021'");
  pay(3, {}, "M1");
  EXPECT_EQ(status(), Lines{"3"});
}

}  // namespace
}  // namespace kt7::payroll
