#include <algorithm>
#include <cmath>

#include <kt7/payroll/input_row.h>
#include "host/schema/transfer/dump.h"
#include "paid_company.h"

namespace kt7::payroll {

namespace {

double yearTax(double net) {
  constexpr std::array<std::pair<double, double>, 8> kBrackets{{{0, 0},
                                                                {150000, .05},
                                                                {300000, .10},
                                                                {500000, .15},
                                                                {750000, .20},
                                                                {1000000, .25},
                                                                {2000000, .30},
                                                                {5000000, .35}}};
  double tax = 0;
  for (std::size_t i = 0; i < kBrackets.size(); ++i) {
    const double top = i + 1 < kBrackets.size() ? kBrackets[i + 1].first : 1e18;
    tax += std::max(0.0, std::min(net, top) - kBrackets[i].first) * kBrackets[i].second;
  }
  return tax;
}

/// What the year's slips of an employee add up to, counted here.
struct Year {
  std::string type;
  double income = 0, socialSecurity = 0, fund = 0, tax = 0;
};

class Year2026 : public PaidCompany {
 protected:
  void add(const Told& told) {
    for (const Slip& slip : told.slips) {
      Year& year = years_[slip.employee];
      year.type = slip.type;
      for (const SlipItem& item : slip.items) {
        const double amount = item.amount.toDouble();
        if (item.counts == Counts::Income) year.income += amount;
        if (item.kind == "STAX") year.socialSecurity += amount;
        if (item.kind == "SFUND") year.fund += amount;
        if (item.kind == "PTAX") year.tax += amount;
      }
    }
  }

  /// January to December, with what happened in them.
  std::vector<Told> payYear(const std::string& connectionString) {
    std::vector<Told> year;
    for (int month = 1; month <= 12; ++month) {
      std::vector<InputRow> rows;
      if (month == 4) rows.push_back(input("E0001", "2026-04-30", "BONUS", "", "120000"));
      if (month == 6) rows.push_back(input("E0012", "2026-06-15", "BONUS", "", "50000"));
      if (month == 12) rows.push_back(input("E0003", "2026-12-31", "BONUS", "", "90000"));
      if (month == 7) {
        test::execute(connectionString,
                      "UPDATE KT7TEmployee SET TEmpSalary=47500.25 WHERE TEmpCode='E0002'");
      }
      year.push_back(payIn(connectionString, month, rows));
      EXPECT_TRUE(year.back().failures.empty() && year.back().reasons.empty()) << month;
      EXPECT_EQ(year.back().outcome.removed, 0) << month;
    }
    return year;
  }

  /// The rows of a table without their ids, which engines give as they like.
  std::vector<std::string> rowsOf(const std::string& connectionString, const schema::Table& table) {
    std::vector<std::string> rows;
    const auto connection = data::createConnection();
    connection->Open(connectionString);
    schema::dumpTable(*connection, table, schema::RowIds::LeftOut,
                      [&](std::string_view line) { rows.emplace_back(line); });
    std::ranges::sort(rows);
    return rows;
  }

  void expectTheSameOnTheEmbeddedEngine() {
    if (test::engine().embedded) return;
    const test::TemporaryDatabase embedded(test::embeddedEngine());
    test::makeSampleCompany(embedded);
    payYear(embedded.connectionString());
    for (const schema::Table& table : schema::tables()) {
      const auto here = rowsOf(database_.connectionString(), table);
      const auto there = rowsOf(embedded.connectionString(), table);
      EXPECT_EQ(here.size(), there.size()) << table.name;
      const auto differs = std::ranges::mismatch(here, there);
      if (differs.in1 == here.end() || differs.in2 == there.end()) continue;
      ADD_FAILURE() << table.name << "\n" << *differs.in1 << "\n" << *differs.in2;
    }
  }

  double number(const std::string& employee, const std::string& column) {
    return std::stod(
        lines("SELECT " + column + " AS line FROM KT7VEmployee WHERE TEmpCode='" + employee + "'")
            .front());
  }

  /// The law's allowances of an employee, off the master row.
  double allowances(const std::string& code) {
    return 60000 + 60000 * number(code, "TEm2SpouseNoIncome") +
           30000 * number(code, "TEm2Children+TEm2ChildrenSecondSince2018") +
           30000 * number(code, "TEm2Parents") +
           std::min(number(code, "TEm2LifeInsurance"), 100000.0) +
           std::min(number(code, "TEm2HomeInterest"), 100000.0);
  }

  std::map<std::string, Year> years_;
};

TEST_F(Year2026, WithheldTaxIsTheYearsTax) {
  for (const Told& told : payYear(database_.connectionString())) add(told);

  int checked = 0;
  for (const auto& [code, year] : years_) {
    const bool monthly = year.type == "M1" || year.type == "M2";
    if (!monthly || code == "E0009") continue;  // E0009 left in May
    const double net = year.income - number(code, "TEm2CutWaive") -
                       std::min(year.income * .5, 100000.0) - allowances(code) -
                       std::min(year.fund, 500000.0) - 2 * number(code, "TEm2CutStudySup") -
                       year.socialSecurity;
    EXPECT_NEAR(year.tax, yearTax(net), 0.12) << code;
    ++checked;
  }
  EXPECT_EQ(checked, 23);

  expectTheSameOnTheEmbeddedEngine();

  // A month of the middle run again counts neither itself nor what came after.
  const Told again = pay(5);
  EXPECT_TRUE(again.noted("run them again"));
  for (const Slip& slip : again.slips) {
    EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEPSNo='" + slip.number + "' AND TEpSTEmpCode='" +
                    slip.employee + "'"),
              1);
  }
}

TEST_F(Year2026, SpanOfDaysAcrossTheYearIsPaidByItsPayDate) {
  const Told told = pay(1);
  // 21 December to 5 January without three Sundays; all of it is income of 2026.
  EXPECT_EQ(told.slips.front().payDate, Date::fromIsoText("2026-01-05"));
  EXPECT_EQ(told.slips.front().type, "D2");
  EXPECT_EQ(told.slips.front().payDays, 13.0);
  EXPECT_EQ(count("KT7TEmpAmassType WHERE TEATYear<>2026 OR TEATMonth<>1"), 0);
}

}  // namespace

}  // namespace kt7::payroll
