// A worker of a shared run sleeps for longer than its lease, between reckoning and writing.
// Whatever was paid meanwhile stands when it wakes up.
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_errors.h>
#include "shared_company.h"

namespace kt7::payroll {

namespace {

enum class Then { ItIsTold, ItGoesOn };

class Woken : public SharedCompany {
 protected:
  void payTogether(std::vector<InputRow> input, const std::string& type = "") {
    Told told;
    EXPECT_EQ(share(told, requestFor(std::move(input), type)).failed, 0);
  }
  /// A worker sleeps once the rows are as `where` says, while that happens.
  void expectNothingChangesAfter(const char* where, const std::function<void()>& meanwhile,
                                 Then then) {
    std::vector<std::string> standing;
    Interruption sleep = once(where, [&] {
      letLeasesRunOut("TRLeRun<>''");
      meanwhile();
      standing = books();
    });
    Told told;
    if (then == Then::ItIsTold) {
      EXPECT_THROW(share(told, requestFor(), sleep), RunSuperseded);
    } else {
      EXPECT_EQ(share(told, requestFor(), sleep).failed, 0);
      EXPECT_TRUE(told.noted("was taken over"));
    }
    ASSERT_FALSE(standing.empty()) << "it never slept";
    EXPECT_EQ(books(), standing);
  }
};

TEST_F(Woken, PaysNothingThatWasPaidMeanwhile) {
  const std::vector<InputRow> corrected{input("E0016", "2026-01-05", "BONUS", "", "10000"),
                                        input("E0031", "2026-01-10", "OT15", "10", "")};
  struct Case {
    const char* name;
    std::function<void()> meanwhile;
    Then then;
  };
  const std::vector<Case> cases{
      {"the same", [&] { payTogether({}); }, Then::ItGoesOn},
      {"other input", [&] { payTogether(corrected); }, Then::ItIsTold},
      {"by one alone", [&] { EXPECT_EQ(pay(1, corrected).outcome.failed, 0); }, Then::ItIsTold},
      {"only that type", [&] { payTogether(corrected, "D2"); }, Then::ItIsTold},
      {"employees of another type",
       [&] {
         sql("UPDATE KT7TEmployee SET TEmpTEmTCode='W4' WHERE TEmpTEmTCode='D2'");
         payTogether({});
       },
       Then::ItGoesOn}};
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    forgetTheMonth();
    sql("DELETE FROM KT7TRunLease");
    expectNothingChangesAfter(kPaying, row.meanwhile, row.then);
  }
}

TEST_F(Woken, RemovesNothingThatIsDueAgain) {
  pay(1);
  const auto resignsOn = [this](const char* date) {
    sql(std::string("UPDATE KT7TEmployee SET TEmpResignDate=") + date + " WHERE TEmpCode='E0031'");
  };
  resignsOn("'2025-12-01'");
  expectNothingChangesAfter(
      kEnding,
      [&] {
        resignsOn("NULL");
        payTogether({});
      },
      Then::ItGoesOn);
  EXPECT_EQ(count("KT7TEmpSlipDoc WHERE TEpSTEmpCode='E0031'"), 1);
}

}  // namespace

}  // namespace kt7::payroll
