#include <gtest/gtest.h>

#include <functional>

#include <kt7/host/platform.h>
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/register_amounts.h>
#include <kt7/payroll/slip.h>
#include "payroll/facts/pay_sums.h"
#include "payroll/facts/satang.h"
#include "payroll/facts/slip_number.h"
#include "payroll/facts/slip_period.h"
#include "payroll/rules/deductions.h"
#include "payroll/rules/input.h"
#include "payroll/rules/period_plan.h"
#include "payroll/rules/wages.h"

namespace kt7::payroll {

namespace {

Date day(const char* text) { return Date::fromIsoText(text); }
DaySpan span(const char* first, const char* last) { return {day(first), day(last)}; }
Currency baht(const char* text) { return Currency::fromText(text); }

PeriodDays periodDays(int payDay, int from, int to) {
  const auto small = [](int number) { return static_cast<std::int16_t>(number); };
  return {small(payDay), small(from), small(to), std::int16_t{1}, std::int16_t{31}};
}

EmployeeType typeWith(PayBasis basis, std::vector<PeriodDays> periods) {
  return {"T", basis, 0, 0, 8, 30, std::move(periods)};
}

std::string shown(const std::vector<SlipPeriod>& periods) {
  std::string text;
  for (const SlipPeriod& period : periods) {
    text += period.payDate.isoDateText() + ": " + period.salary.text() + "; ";
  }
  return text;
}

TEST(PeriodPlan, DaysOfTheMonthBecomeDates) {
  struct Case {
    std::vector<PeriodDays> days;
    Month month;
    const char* periods;
  };
  const std::vector<Case> cases{
      {{periodDays(31, 1, 31)}, {2026, 2}, "2026-02-28: 2026-02-01 to 2026-02-28; "},
      {{periodDays(15, 1, 15), periodDays(31, 16, 31)},
       {2024, 2},
       "2024-02-15: 2024-02-01 to 2024-02-15; 2024-02-29: 2024-02-16 to 2024-02-29; "},
      {{periodDays(5, 21, 5), periodDays(20, 6, 20)},
       {2026, 1},
       "2026-01-05: 2025-12-21 to 2026-01-05; 2026-01-20: 2026-01-06 to 2026-01-20; "},
      {{periodDays(10, 16, 16)}, {2026, 3}, "2026-03-10: 2026-02-16 to 2026-03-16; "},
      {{periodDays(10, 31, 10)}, {2026, 3}, "2026-03-10: 2026-02-28 to 2026-03-10; "}};
  for (const Case& c : cases) {
    EXPECT_EQ(shown(plannedPeriods(typeWith(PayBasis::Daily, c.days), c.month)), c.periods);
  }
}

TEST(PeriodPlan, ClashesAreFoundBeforeAnythingRuns) {
  SlipPeriod frozen{"T", 1, day("2026-01-31"), span("2026-01-01", "2026-01-31"), true, true};
  SlipPeriod open = frozen;
  open.frozen = false;
  SlipPeriod december{"T", 1, day("2025-12-31"), span("2025-12-01", "2025-12-31"), false, true};
  SlipPeriod unpaidDecember = december;
  unpaidDecember.hasSlips = false;
  struct Case {
    const char* name;
    std::vector<PeriodDays> days;
    Month month;
    std::vector<SlipPeriod> existing;
    std::size_t clashes;
  };
  const std::vector<Case> cases{
      {"whole month", {periodDays(31, 1, 31)}, {2026, 1}, {}, 0},
      {"crossing the month", {periodDays(20, 21, 20)}, {2026, 1}, {}, 0},
      {"two in one month", {periodDays(15, 1, 15), periodDays(31, 15, 31)}, {2026, 1}, {}, 1},
      {"with the months beside", {periodDays(5, 21, 5), periodDays(25, 6, 25)}, {2026, 1}, {}, 2},
      {"one day in two months", {periodDays(16, 16, 16)}, {2026, 1}, {}, 2},
      {"one pay date in February only",
       {periodDays(28, 1, 15), periodDays(31, 16, 31)},
       {2026, 2},
       {},
       1},
      {"the same in January", {periodDays(28, 1, 15), periodDays(31, 16, 31)}, {2026, 1}, {}, 0},
      {"frozen under a former pay date", {periodDays(25, 1, 31)}, {2026, 1}, {frozen}, 1},
      {"open under a former pay date", {periodDays(25, 1, 31)}, {2026, 1}, {open}, 0},
      {"frozen on its own date", {periodDays(31, 1, 31)}, {2026, 1}, {frozen}, 0},
      {"days paid in December", {periodDays(20, 21, 20)}, {2026, 1}, {december}, 1},
      {"December without slips", {periodDays(20, 21, 20)}, {2026, 1}, {unpaidDecember}, 0}};
  for (const Case& c : cases) {
    EXPECT_EQ(clashesOf(typeWith(PayBasis::Daily, c.days), c.month, c.existing).size(), c.clashes)
        << c.name;
  }
}

TEST(EmployeeTypes, RowsThatCannotBePaidByAreNamed) {
  struct Case {
    std::function<void(TypeRow& row)> change;
    const char* problem;
  };
  for (const Case& c : std::vector<Case>{
           {[](TypeRow& t) { t.hoursPerDay.reset(); }, "hours a day is empty"},
           {[](TypeRow& t) { t.hoursPerDay = std::int16_t{0}; }, "hours a day is 0"},
           {[](TypeRow& t) { t.daysPerMonth = std::int16_t{32}; }, "days a month is 32"},
           {[](TypeRow& t) { t.daysPerWeek.reset(); }, "days a week is empty"},
           {[](TypeRow& t) { t.totalPeriods = std::int16_t{0}; }, "the number of periods is 0"},
           {[](TypeRow& t) { t.salaryType = 1; }, "salary type 1"},
           {[](TypeRow& t) { t.calculateType = 2; }, "calculation type 2"},
           {[](TypeRow& t) { t.periods[0].salaryTo.reset(); }, "last salary day of period 1"},
           {[](TypeRow& t) { t.periods[0].payDay = 32; }, "the pay day of period 1 is 32"},
           {[](TypeRow& t) { t.periods[0].overtimeFrom = std::int16_t{0}; }, "first overtime"}}) {
    TypeRow row{"M1", std::int16_t{8},        std::int16_t{7}, std::int16_t{30}, std::int16_t{1}, 0,
                0,    {periodDays(31, 1, 31)}};
    EXPECT_TRUE(problemsOf(row).empty());
    c.change(row);
    const auto problems = problemsOf(row);
    ASSERT_EQ(problems.size(), 1u) << c.problem;
    EXPECT_NE(problems[0].find(c.problem), std::string::npos) << problems[0];
  }
}

struct InputCase {
  std::array<const char*, 5> cells;  // employee, pay date, kind, quantity, amount
  const char* problem;               // "" for a sound row
};

TEST(Input, EveryBadRowIsNamedWithItsLine) {
  Employee monthly;
  monthly.code = "E1";
  monthly.type = "M1";
  monthly.signDate = day("2020-01-01");
  Employee left = monthly;
  left.code = "E2";
  left.resignDate = day("2025-12-31");
  Employee other = monthly;
  other.code = "E3";
  other.type = "H1";
  const EmployeesByCode employees{{"E1", monthly}, {"E2", left}, {"E3", other}};
  const std::vector<SlipPeriod> periods{
      {"M1", 1, day("2026-01-31"), span("2026-01-01", "2026-01-31")}};
  const std::vector<InputCase> cases{
      {{"E1", "2026-01-31", "ot15", "2.5", ""}, ""},
      {{"E1", "2026-01-31", "BONUS", "", "1000.505"}, ""},
      {{"E3", "2026-01-10", "BONUS", "", "1"}, ""},
      {{"E1", "2026-01-31", "DAYS", "20", ""}, ""},
      {{"E1", "2026-01-31", "HOURS", "20", ""}, "given twice"},
      {{"E9", "2026-01-31", "BONUS", "", "1"}, "no employee"},
      {{"E1", "2026-01-30", "BONUS", "", "1"}, "no pay date"},
      {{"E1", "31/1/2026", "BONUS", "", "1"}, "not a date"},
      {{"E2", "2026-01-31", "BONUS", "", "1"}, "gets no slip"},
      {{"E1", "2026-01-31", "", "", "1"}, "no kind"},
      {{"E1", "2026-01-31", "BONUS", "", ""}, "needs an amount"},
      {{"E1", "2026-01-31", "BONUS", "", "1e3"}, "not a number"},
      {{"E1", "2026-01-31", "BONUS", "", "12,50"}, "not a number"},
      {{"E1", "2026-01-31", "BONUS", "", "nan"}, "not a number"},
      {{"E1", "2026-01-31", "BONUS", "", "99999999999999999"}, "not an amount"},
      {{"E1", "2026-01-31", "OT", "", "100"}, "needs a quantity"},
      {{"E1", "2026-01-31", "ABSENCE", "-1", ""}, "cannot be negative"},
      {{"E1", "2026-01-31", "SALARY", "", "1"}, "reckoned by the pay run"},
      {{"", "", "", "", ""}, "4 cells"}};
  std::vector<InputRow> rows;
  rows.reserve(cases.size());
  for (const InputCase& c : cases) {
    rows.push_back({static_cast<int>(rows.size()) + 2, c.cells[0], c.cells[1], c.cells[2],
                    c.cells[3], c.cells[4], ""});
  }
  rows.back().problem = "4 cells";
  const CheckedInput checked = checkInput(rows, employees, periods);
  std::size_t problem = 0;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    if (*cases[i].problem == '\0') continue;
    ASSERT_LT(problem, checked.problems.size());
    const std::string& text = checked.problems[problem++];
    EXPECT_EQ(text.find("input line " + std::to_string(i + 2) + ": "), 0u) << text;
    EXPECT_NE(text.find(cases[i].problem), std::string::npos) << text;
  }
  EXPECT_EQ(problem, checked.problems.size());
  EXPECT_EQ(checked.otherTypes, 1);
  const auto entries = checked.input.of("E1", day("2026-01-31"));
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].kind, "OT15");
  EXPECT_EQ(entries[1].amount, baht("1000.51"));
}

TEST(Wages, MonthlySalaryInParts) {
  host::HostPlatform platform;
  const auto utility = platform.createUtilityObject();
  const EmployeeType once = typeWith(PayBasis::Monthly, {periodDays(31, 1, 31)});
  const EmployeeType thrice = typeWith(
      PayBasis::Monthly, {periodDays(10, 1, 10), periodDays(20, 11, 20), periodDays(31, 21, 31)});
  struct Case {
    const EmployeeType& type;
    const char* salary;
    bool byDays;
    int employed;
    bool last;
    GivenTime given;
    const char* amount;
  };
  const std::vector<Case> cases{
      {once, "31500.50", false, 31, true, {}, "31500.50"},
      {thrice, "10000", false, 10, false, {}, "3333.33"},
      {thrice, "10000", false, 11, true, {}, "3333.34"},
      {once, "60000", true, 15, true, {}, "30000"},
      {once, "10000", true, 1, true, {}, "333.33"},
      {once, "31500.50", true, 15, true, {std::nullopt, std::nullopt, 15}, "0"},
      {once, "30000", false, 31, true, {std::nullopt, std::nullopt, 1.5}, "28500"},
      {once, "30000", false, 31, true, {20.0, std::nullopt, 1}, "19000"},
      {once, "30000", false, 31, true, {std::nullopt, 12.0, 0}, "1500"},
      {once, "30000", false, 31, true, {std::nullopt, std::nullopt, 40}, "0"}};
  for (const Case& c : cases) {
    const double part = baht(c.salary).toDouble() / static_cast<double>(c.type.periods.size());
    const MonthlyPay pay{baht(c.salary), part, c.byDays, c.employed, c.last, c.type};
    EXPECT_EQ(monthlyAmount(pay, c.given, *utility).toText(), baht(c.amount).toText()) << c.salary;
  }
}

TEST(Wages, DaysAndHoursPaid) {
  const EmployeeType daily = typeWith(PayBasis::Daily, {});
  const EmployeeType hourly = typeWith(PayBasis::Hourly, {});
  const auto paid = [](const EmployeeType& type, GivenTime given) {
    const PaidTime time = paidTime(type, 13, given);
    return std::pair(time.days, time.quantity);
  };
  EXPECT_EQ(paid(daily, {}), std::pair(13.0, 13.0));
  EXPECT_EQ(paid(hourly, {}), std::pair(13.0, 104.0));
  EXPECT_EQ(paid(daily, {std::nullopt, std::nullopt, 1.5}), std::pair(11.5, 11.5));
  EXPECT_EQ(paid(daily, {10.0, std::nullopt, 2}), std::pair(8.0, 8.0));
  EXPECT_EQ(paid(daily, {std::nullopt, 20.0, 0}), std::pair(2.5, 2.5));
  EXPECT_EQ(paid(hourly, {std::nullopt, 90.0, 1}), std::pair(82.0 / 8, 82.0));
  EXPECT_EQ(paid(hourly, {std::nullopt, std::nullopt, 14}), std::pair(0.0, 0.0));
}

TEST(Deductions, AllowancesOfCircumstances) {
  struct Case {
    bool spouse;
    int children, second, parents;
    const char *life, *home, *allowances;
  };
  const std::vector<Case> cases{{false, 0, 0, 0, "0", "0", "60000"},
                                {true, 2, 0, 2, "50000", "60000", "350000"},
                                {true, 1, 1, 2, "100000", "100000", "440000"},
                                {false, 2, 1, 0, "0", "0", "150000"},
                                {false, 1, 3, 0, "100000.01", "250000", "320000"}};
  for (const Case& c : cases) {
    Employee employee;
    employee.spouseNoIncome = c.spouse;
    employee.children = c.children;
    employee.childrenSecondSince2018 = c.second;
    employee.parents = c.parents;
    employee.lifeInsurance = baht(c.life);
    employee.homeInterest = baht(c.home);
    EXPECT_EQ(personalAllowances(employee), baht(c.allowances)) << c.allowances;
  }
  EXPECT_EQ(fundAllowance(baht("8500"), baht("8500"), 11), baht("102000"));
  EXPECT_EQ(fundAllowance(baht("67500"), baht("67500"), 11), baht("500000"));
  EXPECT_EQ(stillDue(baht("875"), baht("900")), Currency());
}

TEST(Slips, RegisterColumnsAddUp) {
  Slip slip;
  slip.add("SALARY", Counts::Income, baht("20000"));
  slip.add("OT2", Counts::Income, baht("500"));
  slip.add("OT15", Counts::Income, baht("100.25"));
  slip.add("BONUS", Counts::Income, baht("3000"));
  slip.add("CAR", Counts::Deduction, baht("70"));
  slip.add("LOAN", Counts::Deduction, baht("1000"));
  slip.add("STAX", Counts::Deduction, baht("875"));
  slip.add("SFUND", Counts::Deduction, baht("600"));
  slip.add("PTAX", Counts::Deduction, baht("1.5"));
  slip.add("SFUNDCO", Counts::Accumulation, baht("800"));
  slip.add("FINT", Counts::Accumulation, baht("5"));
  const RegisterAmounts amounts = registerAmounts(slip);
  EXPECT_EQ(amounts.overtime, baht("600.25"));
  EXPECT_EQ(amounts.otherIncome, baht("3000"));
  EXPECT_EQ(amounts.gross, baht("23600.25"));
  EXPECT_EQ(amounts.fundEmployer, baht("800"));
  EXPECT_EQ(amounts.otherDeductions, baht("1070"));
  EXPECT_EQ(amounts.net, baht("21053.75"));
  EXPECT_EQ(sumsOf(slip).bonus, baht("3000"));
}

TEST(Slips, NumbersAndSatang) {
  EXPECT_EQ(slipNumber(day("2026-01-05"), 42), "20260105-0000042");
  EXPECT_EQ(slipSequence("20260105-0000042", day("2026-01-05")), 42);
  EXPECT_EQ(slipSequence("20260105-0000042", day("2026-01-06")), 0);
  EXPECT_EQ(slipSequence("20260105-42", day("2026-01-05")), 0);
  EXPECT_EQ(toSatang(baht("1.0050")), baht("1.01"));
  EXPECT_EQ(toSatang(baht("1.0049")), baht("1.00"));
  EXPECT_EQ(toSatang(baht("-1.0050")), baht("-1.01"));
}

}  // namespace

}  // namespace kt7::payroll
