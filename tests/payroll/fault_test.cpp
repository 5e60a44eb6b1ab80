// Steps of a pay run fail, before and after they took effect. Nobody is paid twice, what was told
// as paid is paid, and the next run puts everything right.
#include <set>

#include <kt7/error.h>
#include <kt7/payroll/run_errors.h>
#include "base/text.h"
#include "host/trace/fault_injector.h"
#include "host/trace/traced_data_obj.h"
#include "host/trace/traced_platform.h"
#include "paid_company.h"
#include "support/opened.h"

namespace kt7::payroll {

namespace {

using trace::FaultInjector;

class FaultyRun : public PaidCompany {
 protected:
  FaultyRun() {
    pay(1, {}, "H1");
    sql("UPDATE KT7TEmployeeType SET TEMTPaymentPeriod1=12 WHERE TEmTCode='H1'");
    if (!test::engine().embedded) return;
    OwnConnection connection(platform_, database_.connectionString());
    OpenRecordset checkpoint(platform_, "PRAGMA wal_checkpoint(TRUNCATE)", *connection);
    checkpoint.close();
    connection.close();
    std::filesystem::copy_file(database_.file(), prepared());
  }

  void SetUp() override {
    if (!test::engine().embedded) GTEST_SKIP() << "the database is copied for every step";
  }
  std::filesystem::path prepared() const { return database_.folder() / "prepared.db"; }

  /// A run on a copy of the prepared company; answers whether the step was reached.
  bool run(int step, FaultInjector::When when, Told& told,
           FaultInjector::As as = FaultInjector::As::FailedStatement) {
    std::filesystem::copy_file(prepared(), copy_.emplace().file());
    FaultInjector faults;
    trace::TracedPlatform platform(platform_, faults);
    host::HostDataObj inner(copy_->connectionString());
    trace::TracedDataObj dataObj(inner, faults);
    platform_.setNow(Month(2026, 1).lastDay());
    faults.failAt(step, when, as);
    try {
      told.outcome = payMonth(platform, dataObj, {Month(2026, 1), "H1", {}}, told);
    } catch (const RunStopped& stopped) {
      told.reasons = stopped.reasons();
    } catch (const Error& error) {
      told.reasons = {error.what()};
    }
    lines_ = faults.lines();
    return faults.failed();
  }

  std::vector<std::string> slips() {
    return test::linesOf(copy_->connectionString(),
                         "SELECT TEpSTEmpCode||' '||TEpsTSaPDate||' '||TEPSNetTotal||' '||"
                         "COALESCE(TEATNetTotal,'unposted')||' '||(SELECT SUM(TSmbDebit) FROM "
                         "KT7TEmpSlipItem WHERE TSmbTEPSNo=TEPSNo) AS line FROM KT7TEmpSlipDoc "
                         "LEFT JOIN KT7TEmpAmassType ON TEATTEmpCode=TEpSTEmpCode AND "
                         "TEATPaymentDate=TEpsTSaPDate ORDER BY TEpSTEmpCode");
  }

  std::optional<test::TemporaryDatabase> copy_;
  std::vector<std::string> lines_;  // of the last run's steps
};

TEST_F(FaultyRun, PaysNobodyTwiceAndTellsTheTruth) {
  constexpr int kStride = 7;
  Told clean;
  ASSERT_FALSE(run(0, FaultInjector::When::Before, clean));
  const auto expected = slips();
  ASSERT_EQ(expected.size(), 4u);

  auto when = FaultInjector::When::Before;
  for (int step = 1;; step += kStride) {
    when = when == FaultInjector::When::Before ? FaultInjector::When::After
                                               : FaultInjector::When::Before;
    Told told;
    if (!run(step, when, told)) {
      EXPECT_GT(step, 100);
      break;
    }
    SCOPED_TRACE("step " + std::to_string(step));
    std::set<std::string> paid;
    for (const std::string& line : slips()) {
      const auto words = split(line, ' ');
      EXPECT_TRUE(paid.insert(words[0]).second) << line;
      EXPECT_EQ(words[2], words[3]) << line;
    }
    for (const Slip& slip : told.slips) EXPECT_EQ(paid.count(slip.employee), 1u);
    const bool allTold = told.reasons.empty() && told.outcome.failed == 0;
    if (allTold) EXPECT_EQ(slips(), expected);

    host::HostDataObj dataObj(copy_->connectionString());
    Told again;
    payMonth(platform_, dataObj, {Month(2026, 1), "H1", {}}, again);
    EXPECT_EQ(slips(), expected);
  }
}

TEST_F(FaultyRun, ConnectionThatIsLostWhileTheMonthIsPlannedChangesNothing) {
  Told clean;
  ASSERT_FALSE(run(0, FaultInjector::When::Before, clean));
  const auto expected = slips();
  const std::size_t notes = clean.notes.size();
  const auto firstUnit = std::ranges::find_if(lines_, [](const std::string& line) {
    return line.find("INSERT INTO KT7TEmpSlip") != std::string::npos ||
           line.find("KT7TEmpSlipDoc WHERE TEpSTEmpCode=") != std::string::npos;
  });
  const int planning = static_cast<int>(firstUnit - lines_.begin());
  ASSERT_GT(planning, 60);
  constexpr int kStride = 5;  // odd: both before and after
  ASSERT_LT(planning, static_cast<int>(lines_.size()));
  // The first step opens the connection: where there is none to begin with there is nothing to
  // mend.
  for (int step = 2; step <= planning; step += kStride) {
    SCOPED_TRACE("step " + std::to_string(step));
    const auto when = step % 2 == 0 ? FaultInjector::When::Before : FaultInjector::When::After;
    Told told;
    ASSERT_TRUE(run(step, when, told, FaultInjector::As::LostConnection));
    EXPECT_EQ(told.reasons, std::vector<std::string>{}) << lines_[std::size_t(step) - 1];
    EXPECT_EQ(told.outcome.failed, 0);
    EXPECT_EQ(told.notes.size(), notes);
    EXPECT_EQ(slips(), expected);
  }
}

}  // namespace

}  // namespace kt7::payroll
