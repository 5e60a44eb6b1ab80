#include <gtest/gtest.h>

#include "calendar/service_length.h"
#include "calendar/weekly_pattern.h"
#include "periods/amount_columns.h"
#include "profile/salary_rules.h"
#include "rates/day_rate.h"
#include "records/organisation_text.h"
#include "support/raises.h"
#include "tax/brackets.h"
#include "tax/income_tax_rules.h"

namespace kt7 {
namespace {

using test::raised;

TEST(DayRate, DependsOnWhatTheSalaryPaysFor) {
  const struct {
    std::int16_t type;
    double salary, rate;
  } cases[] = {{0, 15000, 500}, {1, 2100, 300}, {2, 450, 450}, {3, 50, 400}, {4, 7500, 500},
               {5, 600, 200},   {6, 450, 0},    {9, 450, 0},   {-1, 450, 0}};
  for (const auto& [type, salary, rate] : cases) {
    EXPECT_EQ(rates::dayRate(type, salary), rate) << type;
  }
}

TEST(WeeklyPattern, MarksOnlyAnExactH) {
  const struct {
    const char* pattern;
    const char* marked;  // Sunday first
  } cases[] = {{"H;;;;;;H", "x.....x"}, {"h", "x......"},    {" H;H ;W;;", "......."},
               {"", "......."},         {";H;h", ".xx...."}, {"H;H;H;H;H;H;H;H", "xxxxxxx"}};
  for (const auto& [pattern, marked] : cases) {
    std::string got;
    for (int day = 0; day < 7; ++day) got += calendar::marksWeekday(pattern, day) ? 'x' : '.';
    EXPECT_EQ(got, marked) << pattern;
  }
}

TEST(ServiceLength, StepsMonthByMonthFromTheClippedDay) {
  const struct {
    const char* from;
    const char* to;
    int months;
  } cases[] = {{"2020-01-01", "2020-01-31", 0}, {"2010-03-15", "2020-03-14", 119},
               {"2020-01-01", "2020-02-01", 1}, {"2010-03-15", "2020-03-15", 120},
               {"2020-01-31", "2020-04-29", 3}, {"2020-01-31", "2020-04-28", 2},
               {"2020-05-01", "2020-01-01", 0}};
  for (const auto& [from, to, months] : cases) {
    EXPECT_EQ(calendar::monthsBetween(Date::fromIsoText(from), Date::fromIsoText(to)), months)
        << from << " " << to;
  }
  EXPECT_EQ(
      raised([] { calendar::monthsBetween(Date::fromYmd(200, 1, 1), Date::fromYmd(9000, 1, 1)); }),
      "overflow");
  EXPECT_EQ(raised([] {
              calendar::monthsBetween(Date::fromYmd(2020, 1, 1), Date::fromYmd(9999, 12, 31));
            }),
            "overflow");
}

TEST(Brackets, AddNothingAtABracketsOwnLowerBound) {
  const tax::Bracket table[] = {{500000, 0.15}, {300000, 0.1}, {150000, 0.05}, {0, 0}};
  EXPECT_EQ(tax::walkBrackets(150000, table), 0);
  EXPECT_EQ(tax::walkBrackets(300000, table), 7500);
  EXPECT_EQ(tax::walkBrackets(600000, table), 15000 + 20000 + 7500);
  EXPECT_EQ(tax::walkBrackets(-5, table), 0);
  EXPECT_EQ(tax::walkBrackets(600000, {}), 0);
}

TEST(IncomeTax, CutsTheExpenseAllowanceAndKeepsTheContributionWithinItsLimits) {
  const tax::Allowances allowances{50, 100000, 1650, 17500, 5};
  EXPECT_EQ(tax::expenseAllowance(199999, allowances), 99999.5);
  EXPECT_EQ(tax::expenseAllowance(200002, allowances), 100000);
  const auto contribution = [&](double pay) {
    return tax::projectedContribution({Currency::fromDouble(pay), {}, 2, {}}, allowances);
  };
  EXPECT_EQ(contribution(1000), 165);
  EXPECT_EQ(contribution(10000), 1000);
  EXPECT_EQ(contribution(99999), 1750);
}

TEST(IncomeTax, SpreadsTheRegularTaxAndTakesTheBonusTaxWhole) {
  EXPECT_EQ(tax::monthlyTax(13000, 12000, Currency::fromWhole(1000), 10), 1000 + 1000);
  EXPECT_EQ(tax::monthlyTax(0, 0, Currency::fromWhole(600), 11), -50);
  EXPECT_EQ(raised([] { tax::monthlyTax(0, 0, {}, -1); }), "division by zero");
  EXPECT_EQ(raised([] { tax::monthlyTax(0, 0, {}, 32767); }), "overflow");
  EXPECT_EQ(tax::monthsToCome(12, Date::fromYmd(2026, 12, 31)), 0);
  EXPECT_EQ(tax::monthsToCome(12, Date::fromYmd(2026, 1, 31)), 11);
  EXPECT_EQ(tax::monthsToCome(3, Date::fromYmd(2026, 1, 31)), 3);
}

TEST(IncomeTax, DropsTheLastDigitOfTheRoundedWholeNumber) {
  const struct {
    double tax, trimmed;
  } cases[] = {{1234.56, 1229.56}, {1234.40, 1230.40}, {0.5, -0.5}, {-1234.56, -1239.56}, {9, 0}};
  for (const auto& [tax, trimmed] : cases) {
    EXPECT_DOUBLE_EQ(tax::trimmedByLastDigit(tax), trimmed) << tax;
  }
}

TEST(AmountColumns, RouteAnItemByItsKind) {
  const std::optional<double> none;
  const struct {
    const char* kind;
    std::optional<double> money, fix;
    std::vector<std::string> columns;
  } cases[] = {
      {"salary", 1, 0, {"TEATAddSalary", "TEATSubSalary"}},
      {"Ot15", 1, 0, {"TEATAddOT", "TEATSubOT15"}},
      {"PTAX", 1, 1, {"TEATCutTAX"}},
      {"WELFARE", 1, 0, {"TEATAddWelfare", "TEATSubAddWelfare"}},
      {"WELFARE15", 1, 0, {"TEATAddWelfare", "TEATSubAddWelfare15"}},
      {"WELFARE3", 0, 0, {"TEATCutWelfare", "TEATSubCutWelfare3"}},
      {"WELFARE3", none, 0, {"TEATCutWelfare", "TEATSubCutWelfare3"}},
      {"WELFARE16", 1, 0, {"TEATAddMoneyNoFix"}},
      {"WELFARE01", 0, 1, {"TEATCutMoneyFix"}},
      {" SALARY", 1, 1, {"TEATAddMoneyFix"}},
      {"SFUNDCO", 2, none, {"TEATCutMoneyNoFix"}},
      {"", 2, 1, {"TEATCutMoneyFix"}},
  };
  for (const auto& [kind, money, fix, columns] : cases) {
    EXPECT_EQ(periods::amountColumns({kind, money, fix}), columns) << kind;
  }
  EXPECT_EQ(periods::totalColumns(2),
            (std::vector<std::string>{"TEATAmassTotal", "TEATCutAllTotal"}));
  EXPECT_TRUE(periods::totalColumns(3).empty());
  EXPECT_TRUE(periods::totalColumns(none).empty());
}

TEST(OrganisationText, FallsBackPieceByPiece) {
  const struct {
    const char* text;
    const char *code, *name, *name2, *docCode;
  } cases[] = {{"B1", "B1", "B1", "B1", ""},
               {"B1=Bangkok", "B1", "Bangkok", "Bangkok", ""},
               {"B1=Bangkok=BKK=D01=more", "B1", "Bangkok", "BKK", "D01"},
               {"B1==x", "B1", "", "x", ""},
               {"=n", "", "n", "n", ""}};
  for (const auto& [text, code, name, name2, docCode] : cases) {
    const records::OrganisationText parsed = records::parseOrganisationText(text);
    EXPECT_EQ(parsed.code, code) << text;
    EXPECT_EQ(parsed.name, name) << text;
    EXPECT_EQ(parsed.name2, name2) << text;
    EXPECT_EQ(parsed.docCode, docCode) << text;
  }
}

TEST(PartPeriod, StartingLateOrLeavingEarlyMeansByTheDay) {
  const Date unset = notSetDate();
  const auto day = [](const char* text) { return Date::fromIsoText(text); };
  const Date start = day("2024-01-01"), end = day("2024-01-31");
  EXPECT_TRUE(profile::workedPartOfPeriod(day("2024-01-10"), unset, start, end));
  EXPECT_FALSE(profile::workedPartOfPeriod(start, unset, start, end));
  EXPECT_TRUE(profile::workedPartOfPeriod(start, day("2024-01-30"), start, end));
  EXPECT_FALSE(profile::workedPartOfPeriod(start, Date(), start, end));
  EXPECT_FALSE(profile::workedPartOfPeriod(day("2024-01-10"), unset, unset, unset));
  EXPECT_FALSE(profile::workedPartOfPeriod(unset, unset, unset, unset));
}

}  // namespace
}  // namespace kt7
