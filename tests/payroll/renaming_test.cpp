// Employees get other codes while their month is paid. Nobody is left out in silence, and once the
// month is run again everything is as if they had had the new codes from the start.
#include <thread>

#include <kt7/error.h>
#include <kt7/payroll/input_row.h>
#include <kt7/payroll/run_request.h>
#include "host/records/employee_renaming.h"
#include "payroll/ports/run_services.h"
#include "shared_company.h"
#include "support/opened.h"

namespace kt7::payroll {

namespace {

class Renaming : public SharedCompany {
 protected:
  void rename(const std::string& from, const std::string& to) {
    host::HostPlatform platform(Month(2026, 1).lastDay());
    host::HostDataObj dataObj(database_.connectionString());
    HRObject hr(platform);
    const OpenData open(dataObj);
    cli::renameEmployee(hr, dataObj, from, to);
  }
  /// Before the first step of that text.
  Interruption at(std::string part, std::function<void()> meanwhile) {
    return Interruption([part = std::move(part), meanwhile = std::move(meanwhile),
                         done = false](const trace::Step& step) mutable {
      if (done || step.sql.find(part) == std::string_view::npos) return;
      done = true;
      meanwhile();
    });
  }
  /// Balances that no slip has, and slips that no employee has.
  int strays() {
    return count(
               "KT7TEmpAmassType WHERE TEATTEmTCode='' OR NOT EXISTS (SELECT TEPSNo FROM "
               "KT7TEmpSlipDoc WHERE TEpSTEmpCode=TEATTEmpCode AND TEpsTSaPDate=TEATPaymentDate)") +
           count(
               "KT7TEmpSlipDoc WHERE NOT EXISTS (SELECT TEmpCode FROM KT7TEmployee WHERE "
               "TEmpCode=TEpSTEmpCode)");
  }
};

TEST_F(Renaming, NobodyIsLeftOutInSilence) {
  struct Case {
    const char* name;
    const char* step;  // of planning, reading, writing
    const char* to;
    std::vector<InputRow> input;
    std::vector<std::string> unpaid;
  };
  constexpr const char* kPlanned = "NOT EXISTS (SELECT TEmTCode";
  constexpr const char* kPageRead = "TEpSTEmpCode IN ('E0001'";
  constexpr const char* kEnding = "TEPSCheckGroup=1 AND TEPSNo>";
  for (const Case& row :
       std::vector<Case>{{"before a page", kPlanned, "A0006", {}, {}},
                         {"after it was paid", kEnding, "X0006", {}, {}},
                         {"read already, to a code behind", kPageRead, "X0006", {}, {"X0006"}},
                         {"read already, to a code before", kPageRead, "A0006", {}, {"A0006"}},
                         {"with input",
                          kPlanned,
                          "A0006",
                          {input("E0006", "2026-01-31", "BONUS", "", "100")},
                          {"E0006"}}}) {
    SCOPED_TRACE(row.name);
    Interruption meanwhile = at(row.step, [&] { rename("E0006", row.to); });
    Told told;
    payAlone(told, {Month(2026, 1), "", row.input}, meanwhile);
    ASSERT_EQ(told.failures.size(), row.unpaid.size());
    for (std::size_t i = 0; i < row.unpaid.size(); ++i) {
      EXPECT_TRUE(told.failures[i].starts_with(row.unpaid[i] + ": ")) << told.failures[i];
    }
    if (!row.unpaid.empty()) EXPECT_EQ(told.slipsOf("E0006"), 0) << "told as paid";
    EXPECT_EQ(strays(), 0);
    Told again = pay(1);
    EXPECT_EQ(again.outcome.failed, 0);
    EXPECT_EQ(again.slips.size(), 63u);
    EXPECT_EQ(again.slipsOf(row.to), 1);
    rename(row.to, "E0006");
    forgetTheMonth();
  }
}

TEST_F(Renaming, PaidAgainUnderACodeAheadCountsOnce) {
  hire(120);
  // While the page behind the employee's is read.
  Interruption meanwhile = at("TEpSTEmpCode IN ('Z", [&] { rename("E0006", "ZZ006"); });
  Told told;
  told.outcome = payAlone(told, {Month(2026, 1), "", {}}, meanwhile);
  EXPECT_EQ(told.slipsOf("E0006") + told.slipsOf("ZZ006"), 1);
  EXPECT_EQ(told.outcome.paid, count("KT7TEmpSlipDoc"));
  EXPECT_EQ(told.slips.size(), static_cast<std::size_t>(told.outcome.paid));
  EXPECT_EQ(pay(1).slipsOf("ZZ006"), 1);
}

TEST_F(Renaming, RemovalFindsABalanceWithoutAType) {
  pay(1, {}, "M1");
  sql("UPDATE KT7TEmpAmassType SET TEATTEmTCode='' WHERE TEATTEmpCode='E0006'");
  sql("UPDATE KT7TEmployee SET TEmpResignDate='2025-01-01' WHERE TEmpCode='E0006'");
  EXPECT_EQ(pay(1, {}, "M1").outcome.removed, 1);
  EXPECT_EQ(count("KT7TEmpAmassType WHERE TEATTEmpCode='E0006'"), 0);
}

TEST_F(Renaming, FiftyAtTheSideOfARunChangeNothingInTheEnd) {
  constexpr int kRenamed = 50;
  hire(120);
  const auto code = [](char first, int i) { return first + std::to_string(10000 + 2 * i); };
  for (int i = 0; i < kRenamed; ++i) rename(code('Z', i), code(i % 2 == 0 ? 'A' : 'Y', i));
  pay(1);
  const auto expected = amounts();
  for (int i = 0; i < kRenamed; ++i) rename(code(i % 2 == 0 ? 'A' : 'Y', i), code('Z', i));
  forgetTheMonth();

  std::thread renamer([&] {
    for (int i = 0; i < kRenamed; ++i) {
      try {
        rename(code('Z', i), code(i % 2 == 0 ? 'A' : 'Y', i));
      } catch (const Error&) {
        --i;  // the run was in the way
      }
    }
  });
  const Told told = payOn(database_.connectionString(), {Month(2026, 1), "", {}, 2},
                          [this] { return workplace(); });
  const int unpaid = static_cast<int>(expected.size()) - count("KT7TEmpSlipDoc");
  renamer.join();
  EXPECT_EQ(strays(), 0);
  EXPECT_EQ(told.outcome.failed, unpaid);
  EXPECT_EQ(pay(1).outcome.failed, 0);
  EXPECT_EQ(amounts(), expected);
}

}  // namespace

}  // namespace kt7::payroll
