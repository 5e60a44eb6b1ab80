// Several that share a run pay what one alone would have paid, whoever of them ends on the way.
#include <thread>

#include <kt7/error.h>
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_errors.h>
#include "shared_company.h"

namespace kt7::payroll {

namespace {

/// One who looks how far the run is.
struct Watching : Told {
  bool wantsProgress() const override { return true; }
  void progress(int done, int total) override { seen.emplace_back(done, total); }
  std::vector<std::pair<int, int>> seen;
};

using Share = SharedCompany;

TEST_F(Share, TogetherTheyPayWhatOneAlonePays) {
  hire(120);
  const auto expected = booksOfOneAlone();
  Told first, second;
  std::thread other([&] { second.outcome = share(second, {}, 2); });
  first.outcome = share(first);
  other.join();
  EXPECT_EQ(first.outcome.failed + second.outcome.failed, 0);
  EXPECT_GE(first.slips.size() + second.slips.size(),
            static_cast<std::size_t>(count("KT7TEmpSlipDoc")));
  EXPECT_EQ(books(), expected);
  EXPECT_EQ(count("KT7TRunLease WHERE TRLeState<>2"), 0);
}

TEST_F(Share, PartsOfOneThatEndedAreTakenOver) {
  hire(200);
  const auto expected = booksOfOneAlone();
  Dying dying;
  EXPECT_THROW(share(dying, {}, 1, 200), std::runtime_error);
  EXPECT_GT(count("KT7TRunLease WHERE TRLeState=1"), 0);
  letLeasesRunOut("TRLeState=1");
  Told heir;
  heir.outcome = share(heir);
  EXPECT_EQ(heir.outcome.failed, 0);
  EXPECT_EQ(books(), expected);
  EXPECT_EQ(count("KT7TRunLease WHERE TRLeState<>2"), 0);
}

TEST_F(Share, ProgressCountsWhatOthersHaveDone) {
  hire(120);
  host::HostDataObj dataObj(database_.connectionString());
  Watching alone;
  payMonth(platform_, dataObj, {Month(2026, 1), "", {}}, alone);
  const auto all = alone.seen.back();
  EXPECT_EQ(all.first, all.second);
  forgetTheMonth();

  Watching first;
  share(first, {}, 1, 50);
  EXPECT_EQ(first.seen.front(), (std::pair{0, all.second}));
  EXPECT_EQ(first.seen.back(), all);

  // Some parts of the last period that has several are left.
  const std::string several = " FROM KT7TRunLease WHERE TRLeFrom>='Z'";
  const std::string run = lines("SELECT MAX(TRLeRun) AS line" + several).front();
  const std::string from =
      lines("SELECT MIN(TRLeFrom) AS line" + several + " AND TRLeRun='" + run + "'").front();
  const int employeesLeft =
      count("KT7TEmployee WHERE TEmpTEmTCode='M1' AND TEmpCode>'" + from + "'");
  ASSERT_GT(employeesLeft, 0);
  sql("UPDATE KT7TRunLease SET TRLeState=0 WHERE TRLeFrom>='Z' AND TRLeRun='" + run + "'");
  Watching heir;
  share(heir, {}, 1, 50);
  EXPECT_EQ(heir.seen.front(), (std::pair{all.second - employeesLeft, all.second}));
}

TEST_F(Share, WaitsForTheClusterInVainAreRepeated) {
  int waits = 0;
  Told told;
  told.outcome = paySharedMonth(requestFor(), told, [&] {
    Workplace place = workplace();
    place.catchUp = [&](DataObj&) {
      if (++waits % 4 == 0) raiseStatementFailed("no sync", {"SELECT 1", 1205, "HY000"});
    };
    return place;
  });
  EXPECT_GT(waits, 12);
  EXPECT_EQ(told.outcome.failed, 0);
  EXPECT_EQ(told.slips.size(), static_cast<std::size_t>(count("KT7TEmpSlipDoc")));
}

TEST_F(Share, InputMustBeTheSameWhileARunIsUnderWay) {
  hire(5);
  Dying dying;
  EXPECT_THROW(share(dying), std::runtime_error);
  const std::vector<InputRow> bonus{input("E0001", "2026-01-31", "BONUS", "", "10000")};
  Told refused;
  EXPECT_THROW(share(refused, bonus), RunStopped);
  // Nobody has worked on it for the length of a lease: it is begun anew.
  letLeasesRunOut("TRLeRun<>''");
  Told anew;
  share(anew, bonus);
  EXPECT_EQ(anew.amounts("E0001").otherIncome, baht("10000"));
  EXPECT_EQ(anew.slips.size(), static_cast<std::size_t>(count("KT7TEmpSlipDoc")));
}

}  // namespace

}  // namespace kt7::payroll
