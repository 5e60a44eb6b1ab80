// Slip numbers that somebody else was quicker to give, or that are used up.
#include "shared_company.h"

#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_outcome.h>

namespace kt7::payroll {

namespace {

using Numbers = SharedCompany;

TEST_F(Numbers, RunsOnOnePayDateGiveWayToEachOther) {
  hire(80);
  pay(1, {}, "W4");
  pay(1, {}, "M1");
  const auto expected = amounts();
  for (const bool shared : {false, true}) {
    SCOPED_TRACE(shared);
    forgetTheMonth();
    sql("DELETE FROM KT7TRunLease");
    Interruption meanwhile = once(shared ? kPaying : "", [&] {
      Told told;
      EXPECT_EQ((shared ? share(told, requestFor({}, "W4")) : pay(1, {}, "W4").outcome).failed, 0);
    });
    Told told;
    const RunOutcome outcome = shared ? share(told, requestFor({}, "M1"), meanwhile)
                                      : payAlone(told, {Month(2026, 1), "M1", {}}, meanwhile);
    EXPECT_EQ(told.failures, std::vector<std::string>{});
    EXPECT_GT(outcome.retries, 0);
    EXPECT_EQ(amounts(), expected);
  }
}

TEST_F(Numbers, EmployeesWhoComeWhileAMonthIsSharedTakeNobodysNumber) {
  hire(90);
  Interruption meanwhile = once(kPaying, [&] {
    for (const char* const code : {"'Z10005A'", "'Z10040A'", "'Z10070A'"}) {
      sql(std::string("INSERT INTO KT7TEmployee (TEmpCode, TEmpFirstName, TEmpTEmTCode, "
                      "TEmpSignDate, TEmpSalary, TEmpTBraCode) VALUES (") +
          code + ", 'Z', 'M1', '2024-01-01', 20000, '00')");
    }
  });
  Told told;
  share(told, requestFor({}, "M1"), meanwhile);
  EXPECT_EQ(amounts().size(), told.slips.size());
  // One of them may belong to a page that had been read already, and is named.
  const int paid = count("KT7TEmpSlipDoc WHERE TEpSTEmpCode LIKE 'Z%A'");
  EXPECT_GE(paid, 2);
  EXPECT_EQ(told.failures.size(), 3u - static_cast<std::size_t>(paid));
}

TEST_F(Numbers, DateWhoseNumbersAreUsedUpIsRefusedClearly) {
  sql("INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSTEmTCode, TEPSCheckGroup, "
      "TEpsTSaPDate) VALUES ('20260131-9999998', 'X', 'X', 1, '2026-01-31')");
  const Told told = pay(1, {}, "M1");
  ASSERT_EQ(told.slips.size(), 1u);
  EXPECT_EQ(told.slips.front().number, "20260131-9999999");
  ASSERT_FALSE(told.failures.empty());
  EXPECT_NE(told.failures.front().find("numbers of 2026-01-31 are used up"), std::string::npos);
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEPSNo NOT LIKE '20260131-_______'"), 0);
}

}  // namespace

}  // namespace kt7::payroll
