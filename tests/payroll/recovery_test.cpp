// A unit of work fails at its end, before or after it was kept. Everybody is paid once all the
// same, and the run says what it met.
#include <kt7/error.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/retry/failure.h"
#include "shared_company.h"

namespace kt7::payroll {

namespace {

enum class When { BeforeItIsKept, AfterItWasKept };

/// The n-th commit of a run fails.
class FailingCommit : public trace::StepObserver {
 public:
  FailingCommit(int commit, When when, const Error& error)
      : commit_(commit),
        when_(when),
        error_(error) {}  // NOLINT(bugprone-throw-keyword-missing): thrown by the commit

  void before(const trace::Step& step) override {
    if (isCommit(step) && ++commits_ == commit_ && when_ == When::BeforeItIsKept) throw error_;
  }
  void after(const trace::Step& step) override {
    if (isCommit(step) && commits_ == commit_) throw error_;
  }
  int commits() const { return commits_; }

 private:
  static bool isCommit(const trace::Step& step) {
    return step.kind == trace::StepKind::Commit && step.on == trace::kOnDataObject;
  }
  int commit_;
  int commits_ = 0;
  When when_;
  Error error_;
};

Error failureWith(const char* sqlState, std::int32_t code, bool connection) {
  return {ErrorKind::Database,
          connection ? error_number::kConnectionFailed : error_number::kStatementFailed,
          "as the engine says",
          {"COMMIT", code, sqlState}};
}

using Recovering = SharedCompany;

TEST_F(Recovering, WhateverTheEndOfAUnitMeetsEverybodyIsPaidOnce) {
  FailingCommit undisturbed(0, When::BeforeItIsKept, failureWith("", 0, false));
  const RunRequest january{Month(2026, 1), "", {}};
  Told clean;
  payAlone(clean, january, undisturbed);
  const auto expected = books();
  struct Case {
    const char* name;
    Error error;
    When when;
    int conflicts;
    int losses;
    int commitsMore;
  };
  const std::vector<Case> cases{
      {"certification", failureWith("40001", 1213, false), When::BeforeItIsKept, 1, 0, 1},
      {"deadlock", failureWith("40P01", 0, false), When::BeforeItIsKept, 1, 0, 1},
      {"lock wait", failureWith("HY000", 1205, false), When::BeforeItIsKept, 1, 0, 1},
      {"lost", failureWith("08006", 2013, true), When::BeforeItIsKept, 0, 1, 1},
      {"unknown and not kept", failureWith("08007", 2013, true), When::BeforeItIsKept, 0, 1, 1},
      {"unknown and kept", failureWith("08007", 2013, true), When::AfterItWasKept, 0, 1, 0}};
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    forgetTheMonth();
    FailingCommit failing(4, row.when, row.error);
    Told told;
    const RunOutcome outcome = payAlone(told, january, failing);
    EXPECT_EQ(outcome.failed, 0);
    EXPECT_EQ(told.slips.size(), clean.slips.size());
    EXPECT_EQ(outcome.conflicts, row.conflicts);
    EXPECT_EQ(outcome.losses, row.losses);
    EXPECT_EQ(outcome.retries, 1);
    EXPECT_EQ(failing.commits(), undisturbed.commits() + row.commitsMore);
    EXPECT_EQ(books(), expected);
  }
}

TEST_F(Recovering, SlipsOfAnEarlierRunAreNotTakenForThoseOfThisOne) {
  struct Case {
    const char* name;
    const char* change;  // that leaves the amounts as they are
  };
  for (const Case& row : {Case{"span", "KT7TEmpSlipDoc SET TEpsStartDate='2025-12-31'"},
                          Case{"days", "KT7TEmpSlipDoc SET TEPSTotalWorkDay=TEPSTotalWorkDay-0.5"},
                          Case{"quantity", "KT7TEmpSlipItem SET TSmbQuantity=TSmbQuantity+0.25"}}) {
    SCOPED_TRACE(row.name);
    pay(1, {}, "M1");
    const auto expected = books();
    sql(std::string("UPDATE ") + row.change);
    FailingCommit failing(1, When::BeforeItIsKept, failureWith("08007", 2013, true));
    Told told;
    EXPECT_EQ(payAlone(told, {Month(2026, 1), "M1", {}}, failing).losses, 1);
    EXPECT_EQ(books(), expected);
  }
}

TEST(Failures, AreToldApartByTheEnginesOwnCodes) {
  struct Case {
    const char* sqlState;
    std::int32_t code;
    bool connection;
    Failure expected;
  };
  for (const Case& row :
       {Case{"", 5, false, Failure::Conflict},                // busy
        Case{"", 517, false, Failure::Conflict},              // outdated snapshot
        Case{"", 2067, false, Failure::Duplicate},            // unique index
        Case{"", 1, false, Failure::Final},                   // syntax
        Case{"40001", 1213, false, Failure::Conflict},        // deadlock
        Case{"HY000", 1205, false, Failure::Conflict},        // lock wait
        Case{"HYT00", 5, false, Failure::Conflict},           // the same by the driver manager
        Case{"HY000", 1180, false, Failure::OutcomeUnknown},  // in the midst of a COMMIT
        Case{"23000", 1062, false, Failure::Duplicate},       // unique index
        Case{"23505", 0, false, Failure::Duplicate},          // the same
        Case{"42S02", 1146, false, Failure::Final},           // no such table
        Case{"HY000", 2003, true, Failure::Lost},             // cannot connect
        Case{"08006", 0, true, Failure::Lost}, Case{"08007", 0, true, Failure::OutcomeUnknown}}) {
    EXPECT_EQ(failureOf(failureWith(row.sqlState, row.code, row.connection)), row.expected)
        << row.sqlState << ' ' << row.code;
  }
}

}  // namespace

}  // namespace kt7::payroll
