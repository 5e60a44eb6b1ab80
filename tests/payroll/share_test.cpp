// Several that share a run pay what one alone would have paid, whoever of them ends on the way.
#include <thread>

#include "paid_company.h"

namespace kt7::payroll {

namespace {

/// A process that ends in the middle of its work.
struct Dying : Told {
  void paid(const Slip& slip) override {
    Told::paid(slip);
    if (slip.employee.starts_with('Z') && slip.type == "M1")
      throw std::runtime_error("the process was ended");
  }
};

/// One who looks how far the run is.
struct Watching : Told {
  bool wantsProgress() const override { return true; }
  void progress(int done, int total) override { seen.emplace_back(done, total); }
  std::vector<std::pair<int, int>> seen;
};

class Share : public PaidCompany {
 protected:
  Share() { platform_.setNow(Month(2026, 1).lastDay()); }

  RunOutcome share(RunListener& told, std::vector<InputRow> input = {}, int jobs = 1,
                   int partSize = 30) {
    RunRequest request{Month(2026, 1), "", std::move(input), jobs, Sharing{"test", 600, partSize}};
    return paySharedMonth(request, told, [this] { return workplace(); });
  }
  void letLeasesRunOut(const std::string& where) {
    sql("UPDATE KT7TRunLease SET TRLeUntil='2020-01-01 00:00:00' WHERE " + where);
  }
  std::vector<std::string> booksOfOneAlone() {
    host::HostDataObj dataObj(database_.connectionString());
    Told told;
    payMonth(platform_, dataObj, {Month(2026, 1), "", {}}, told);
    std::vector<std::string> books = this->books();
    forgetTheMonth();
    return books;
  }
};

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
