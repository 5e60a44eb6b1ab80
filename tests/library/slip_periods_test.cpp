#include <gtest/gtest.h>

#include <sstream>

#include <kt7/error.h>
#include "support/cases.h"
#include "support/company.h"
#include "support/raises.h"

namespace kt7 {
namespace {

using test::Company;
using Lines = std::vector<std::string>;

/// A type with one period: pay day, custom day, salary span and overtime span.
struct Days {
  std::string pay = "31", custom = "31", start = "1", end = "31", otStart = "1", otEnd = "31";
};

void addType(Company& company, const std::string& code, const Days& days,
             const std::string& flag = "1", const std::string& automatic = "1") {
  company.run(
      "INSERT INTO KT7TEmployeeType (TEmTCode, TEMTFlag1, TEMTAutoPeriod, TEMTTotalPeriod, "
      "TEMTPaymentPeriod1, TEMTPaymentCustom1, TEMTStartPeriod1, TEMTEndPeriod1, "
      "TEMTOTStartPeriod1, TEMTOTEndPeriod1) VALUES ('" +
      code + "'," + flag + "," + automatic + ",1," + days.pay + "," + days.custom + "," +
      days.start + "," + days.end + "," + days.otStart + "," + days.otEnd + ")");
}

Lines periods(Company& company) {
  return company.rows(
      "TSaPTEmTCode || ' ' || TSAPDate || ' ' || TSAPCustomDate || ' ' || TSAPStartDate || '..' || "
      "TSAPEndDate || ' ' || TSAPOTStartDate || '..' || TSAPOTEndDate || ' ' || TSAPPeriodNo || "
      "'/' || TSAPYearPeriodNo || ' ' || TSAPStatus AS line FROM KT7TEmpSlipPeriod ORDER BY "
      "TSaPTEmTCode, TSAPDate");
}

TEST(SlipPeriods, FollowTheDaysOfTheTypeInTheMonthOfTheClock) {
  for (const Lines& lines : test::casesOf("library/slip_periods.txt")) {
    Company company(lines[0].c_str());
    Days days;
    std::istringstream(lines[1]) >> days.pay >> days.custom >> days.start >> days.end >>
        days.otStart >> days.otEnd;
    addType(company, "M", days);
    company.hr().UpdatePeriodStatus(company.data(), false);
    const std::string month = std::to_string(Date::fromIsoText(lines[0]).month());
    EXPECT_EQ(periods(company), Lines{"M " + lines[2] + " 1/" + month + " 1"}) << lines[1];
    EXPECT_TRUE(company.messages().empty());
  }
}

TEST(SlipPeriods, CoverTheTypesInUseAndRewriteAllButFrozenRows) {
  Company company("2026-02-10");
  addType(company, "A", {"28", "28"});
  addType(company, "B", {"28", "28"}, "1", "0");
  addType(company, "C", {"28", "28"}, "0", "1");
  company.hr().UpdatePeriodStatus(company.data(), true);
  EXPECT_EQ(periods(company).size(), 1u);
  company.run("UPDATE KT7TEmpSlipPeriod SET TSAPStatus = 0, TSAPPeriodNo = 7, TSAPFlag3 = NULL");
  company.hr().UpdatePeriodStatus(company.data(), false);
  EXPECT_EQ(company.rows("TSaPTEmTCode || ' ' || TSAPPeriodNo || ' ' || TSAPStatus || CASE WHEN "
                         "TSAPFlag3 IS NULL THEN ' null' ELSE '' END AS line FROM "
                         "KT7TEmpSlipPeriod ORDER BY TSaPTEmTCode"),
            (Lines{"A 7 0 null", "B 1 1"}));
  company.run("UPDATE KT7TEmpSlipPeriod SET TSAPStatus = NULL, TSAPPeriodNo = 9");
  company.setNow("2026-02-11T08:30:00");
  company.hr().UpdatePeriodStatus(company.data(), false);
  EXPECT_EQ(
      company.rows(
          "TSAPPeriodNo || ' ' || TSAPStatus || ' ' || TSAPFlag3 AS line FROM KT7TEmpSlipPeriod "
          "ORDER BY TSaPTEmTCode"),
      (Lines{"1 1 2026-02-11 08:30:00", "1 1 2026-02-11 08:30:00"}));
}

TEST(SlipPeriods, AFailureLeavesTheTableAsItWasAndIsShownOnce) {
  const struct {
    Days bad;
    const char* cause;
  } cases[] = {{{"31", "31", "0", "31"}, "Overflow"},  // no date text ever fits day 0
               {{"31", "31", "NULL", "31"}, "Type mismatch: a null where a value is needed"}};
  for (const auto& [bad, cause] : cases) {
    Company company("2026-02-10");
    addType(company, "A", {});
    addType(company, "B", bad);
    company.hr().UpdatePeriodStatus(company.data(), false);
    EXPECT_TRUE(periods(company).empty()) << cause;
    EXPECT_EQ(company.messages(),
              Lines{"ไม่สามารถบันทึกข้อมูลได้ในขณะนี้ โปรดจดจำ หรือบันทึกข้อความต่อไปนี้ หรือ Print "
                    "Screen เพื่อแจ้งให้กับผู้ดูแลระบบ - " +
                    std::string(cause)});
  }
}

TEST(SlipPeriods, AConnectionThatCannotOpenReachesTheCaller) {
  Company company;
  company.steps().failAt(1, trace::FaultInjector::When::Before);
  EXPECT_EQ(test::raised([&] { company.hr().UpdatePeriodStatus(company.data(), false); }),
            "database");
  EXPECT_TRUE(company.messages().empty());
}

TEST(SlipPeriods, TheNumberInTheYearIsReckonedInSixteenBits) {
  Company company("2026-12-10");
  addType(company, "A", {});
  company.run("UPDATE KT7TEmployeeType SET TEMTTotalPeriod = 2979");
  company.hr().UpdatePeriodStatus(company.data(), false);
  ASSERT_EQ(company.messages().size(), 1u);
  EXPECT_TRUE(company.messages()[0].ends_with(" - Overflow")) << company.messages()[0];
}

class WindowlessPlatform : public host::HostPlatform {
 public:
  void showMessage(const std::string&) override { raiseCollaborator(440, "no window"); }
};

TEST(SlipPeriods, AMessageThatNobodyCanSeeIsALineOnStandardError) {
  Company company;
  addType(company, "A", {"31", "31", "NULL"});
  WindowlessPlatform platform;
  HRObject hr(platform);
  testing::internal::CaptureStderr();
  EXPECT_NO_THROW(hr.UpdatePeriodStatus(company.hostData(), false));
  const std::string line = testing::internal::GetCapturedStderr();
  EXPECT_NE(line.find("ผู้ดูแลระบบ - "), std::string::npos) << line;
  EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
}

TEST(SlipPeriods, ALockThatTheCallerHoldsIsNamedAsTheCause) {
  if (!test::engine().embedded) GTEST_SKIP() << "only there is it known who holds the lock";
  Company company;
  company.hostData().BeginTransaction();
  company.data().ExecuteSql("UPDATE KT7TEmployee SET TEmpNo = '1'");
  try {
    company.hr().UpdatePeriodStatus(company.data(), false);
    FAIL() << "the caller's own lock stands in the way";
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()).find("lock"), std::string::npos) << error.what();
  }
}

TEST(PeriodPosition, AnswersOneOrZero) {
  Company company;
  const Date march = Date::fromYmd(2026, 3, 31);
  const auto ofMonth = [&] {
    return company.hr().IsFirstPeriodOfMonth("M", march, company.data());
  };
  const auto ofYear = [&](Date date) {
    return company.hr().IsFirstPeriodOfYear("M", date, company.data());
  };
  EXPECT_EQ(ofMonth(), 1);
  EXPECT_EQ(ofYear(march), 1);
  const std::string add =
      "INSERT INTO KT7TEmpSlipPeriod (TSaPTEmTCode, TSAPDate, TSAPPeriodNo) VALUES ";
  company.run(add + "('X', '2026-01-01', 5)");
  company.run(add + "('M', '2025-12-31', 5)");
  EXPECT_EQ(ofMonth(), 1);
  company.run(add + "('M', '2026-03-15', 2)");
  EXPECT_EQ(ofMonth(), 0);
  EXPECT_EQ(ofYear(march), 0);
  EXPECT_EQ(ofYear(Date::fromYmd(2026, 3, 15)), 1);
  company.run("UPDATE KT7TEmpSlipPeriod SET TSAPPeriodNo = NULL");
  EXPECT_EQ(ofMonth(), 1);
}

}  // namespace
}  // namespace kt7
