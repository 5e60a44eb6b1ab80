// Any number of workers pays the same: slips, numbers, register, and what is told.
#include <atomic>
#include <set>

#include "paid_company.h"

namespace kt7::payroll {

namespace {

class Jobs : public PaidCompany {
 protected:
  /// Enough of two types to keep several pages under way.
  void hire(int employees) {
    std::string people, more;
    for (int i = 0; i < employees; ++i) {
      const std::string code = "'Z" + std::to_string(10000 + i) + "'";
      const std::string values = i == 0 ? "" : ", ";
      people += values + "(" + code + ", 'Z', " + (i % 3 == 0 ? "'W4'" : "'M1'") +
                ", '2024-01-01', " + std::to_string(i % 3 == 0 ? 500 : 15000 + i) + ", '00')";
      more += values + "(" + code + ", 1)";
    }
    sql("INSERT INTO KT7TEmployee (TEmpCode, TEmpFirstName, TEmpTEmTCode, TEmpSignDate, "
        "TEmpSalary, TEmpTBraCode) VALUES " +
        people);
    sql("INSERT INTO KT7TEmployee2 (TEm2TEmpCode, TEm2SocialInsured) VALUES " + more);
  }

  Told payBy(int jobs, std::vector<InputRow> input = {}) {
    Told told;
    const RunRequest request{Month(2026, 1), "", std::move(input), jobs};
    platform_.setNow(request.month.lastDay());
    host::HostDataObj dataObj(database_.connectionString());
    told.outcome = payMonth(platform_, dataObj, request, told, [this] { return workplace(); });
    return told;
  }

  Workplace workplace() {
    auto platform = std::make_unique<host::HostPlatform>(Month(2026, 1).lastDay());
    return {std::move(platform),
            std::make_unique<host::HostDataObj>(database_.connectionString())};
  }

  /// Everything that the run writes, but for the keys that the engine gives.
  std::vector<std::string> books() {
    std::vector<std::string> all = everything();
    for (const std::string& query :
         {joined({"TEHPTEmpCode", "TEHPLn", "TEHPStartDate", "TEHPSalary"}) +
              " AS line FROM KT7TEmpHisPosition ORDER BY TEHPTEmpCode, TEHPLn",
          joined({"TEAATEmpCode", "TEAATSaPDate", "TEAAType"}) +
              " AS line FROM KT7TEmpActiveAmass ORDER BY TEAATEmpCode, TEAATSaPDate"}) {
      const auto rows = lines("SELECT " + query);
      all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
  }
};

std::vector<std::string> inOrder(const Told& told) {
  std::vector<std::string> order;
  order.reserve(told.slips.size());
  for (const Slip& slip : told.slips) order.push_back(slip.number + " " + slip.employee);
  return order;
}

TEST_F(Jobs, NumberOfWorkersChangesNothing) {
  hire(330);
  // One who cannot be paid, in the midst of the others.
  sql("UPDATE KT7TEmployee SET TEmpSalary=NULL WHERE TEmpCode='Z10100'");
  const Told alone = payBy(1, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
  ASSERT_TRUE(alone.reasons.empty());
  ASSERT_GT(alone.outcome.paid, 600);
  EXPECT_EQ(alone.outcome.failed, 1);
  const auto expected = books();
  for (const int jobs : {2, 4}) {
    SCOPED_TRACE(jobs);
    forgetTheMonth();
    const Told told = payBy(jobs, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
    EXPECT_EQ(inOrder(told), inOrder(alone));
    EXPECT_EQ(told.failures, alone.failures);
    EXPECT_EQ(books(), expected);
  }
  const Told again = payBy(3, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
  EXPECT_EQ(inOrder(again), inOrder(alone));
  EXPECT_EQ(books(), expected);
}

TEST_F(Jobs, WritersTakeTurns) {
  hire(200);
  const Told told = payBy(8);
  EXPECT_EQ(told.outcome.failed, 0);
  if (test::engine().oneWriter) EXPECT_EQ(told.outcome.conflicts, 0);
}

TEST_F(Jobs, ErrorOfAWorkerEndsTheRunAndWhatWasToldHolds) {
  hire(330);
  std::atomic<int> places = 0;
  Told told;
  platform_.setNow(Month(2026, 1).lastDay());
  host::HostDataObj dataObj(database_.connectionString());
  EXPECT_THROW(payMonth(platform_, dataObj, {Month(2026, 1), "", {}, 3}, told,
                        [&]() -> Workplace {
                          if (++places == 3) throw std::runtime_error("no room for a third");
                          return workplace();
                        }),
               std::runtime_error);
  const auto standing = lines("SELECT TEPSNo AS line FROM KT7TEmpSlipDoc ORDER BY TEPSNo");
  std::set<std::string> numbers;
  for (const Slip& slip : told.slips) numbers.insert(test::plainNumbers(slip.number));
  EXPECT_EQ(std::vector<std::string>(numbers.begin(), numbers.end()), standing);
}

}  // namespace

}  // namespace kt7::payroll
