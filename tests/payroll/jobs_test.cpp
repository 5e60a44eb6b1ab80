// Any number of workers pays the same: slips, numbers, register, and what is told.
#include <atomic>
#include <list>
#include <mutex>
#include <set>

#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_request.h>
#include "shared_company.h"

namespace kt7::payroll {

namespace {

class Jobs : public SharedCompany {
 protected:
  Told payBy(int jobs, std::vector<InputRow> input = {}) {
    return payOn(database_.connectionString(), {Month(2026, 1), "", std::move(input), jobs},
                 [this] { return workplace(); });
  }
};

std::vector<std::string> inOrder(const Told& told) {
  std::vector<std::string> order;
  for (const Slip& slip : told.slips) order.push_back(slip.number + " " + slip.employee);
  return order;
}

TEST_F(Jobs, NumberOfWorkersChangesNothing) {
  hire(160);
  // One who cannot be paid, in the midst of the others.
  sql("UPDATE KT7TEmployee SET TEmpSalary=NULL WHERE TEmpCode='Z10101'");
  const Told alone = payBy(1, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
  ASSERT_TRUE(alone.reasons.empty());
  ASSERT_GT(alone.outcome.paid, 300);
  EXPECT_EQ(alone.outcome.failed, 1);
  const auto expected = books();
  forgetTheMonth();
  const Told together = payBy(8, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
  if (test::engine().embedded) EXPECT_EQ(together.outcome.conflicts, 0) << "writers take turns";
  EXPECT_EQ(inOrder(together), inOrder(alone));
  EXPECT_EQ(together.failures, alone.failures);
  EXPECT_EQ(books(), expected);
  const Told again = payBy(2, {input("Z10007", "2026-01-31", "BONUS", "", "500")});
  EXPECT_EQ(inOrder(again), inOrder(alone));
  EXPECT_EQ(books(), expected);
}

TEST_F(Jobs, NoPeriodIsPaidBeforeWhatOthersWroteIsSeen) {
  hire(160);
  struct Place {
    std::string period;  // that it pays since it last caught up
    int periods = 0;
    Interruption look{[this](const trace::Step& step) {
      const std::size_t at = step.sql.find(" AND TEpsTSaPDate=");
      if (!step.sql.starts_with("SELECT * FROM KT7TEmpSlipDoc") || at == std::string_view::npos)
        return;
      if (period.empty()) ++periods;
      if (period.empty()) period = step.sql.substr(at);
      EXPECT_EQ(step.sql.substr(at), period);
    }};
  };
  for (const int jobs : {1, 3}) {
    SCOPED_TRACE(jobs);
    std::list<Place> places;
    std::mutex making;
    const NewWorkplace newPlace = [&] {
      const std::lock_guard lock(making);
      Place& place = places.emplace_back();
      Workplace made = placeWith(place.look);
      made.catchUp = [&](DataObj& dataObj) {
        // One job works at the place that the host itself gave.
        (jobs == 1 ? places.front() : place).period.clear();
        data::catchUp(dataObj.Connection());
      };
      return made;
    };
    Workplace own = newPlace();
    Told told;
    const RunRequest request{Month(2026, 1), "", {}, jobs};
    EXPECT_EQ(payMonth(*own.platform, *own.dataObj, request, told, newPlace).failed, 0);
    int periods = 0;
    for (const Place& place : places) periods += place.periods;
    EXPECT_GE(periods, 10);
  }
}

TEST_F(Jobs, ErrorOfAWorkerEndsTheRunAndWhatWasToldHolds) {
  hire(160);
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
