// Every step of every writing operation fails in turn, before and after it took effect. What the
// caller was told is held against what the database holds.
#include <gtest/gtest.h>

#include <functional>

#include <kt7/error.h>
#include "support/cases.h"
#include "support/company.h"

namespace kt7 {
namespace {

using test::Company;
using Lines = std::vector<std::string>;

enum class Told { Success, Failure, Message };
using When = trace::FaultInjector::When;

struct Writing {
  const char* operation;
  std::function<void(Company&)> call;
  /// In a transaction of its own, or inside the caller's, who rolls back when told of a failure.
  bool ownTransaction;
};

class FaultSweep : public testing::TestWithParam<Writing> {};

void fill(Company& company) {
  static const auto kScript = test::casesOf("library/fault_sweep.sql");
  for (const std::string& sql : kScript[0]) company.run(sql);
}

Lines state(Company& company) {
  Lines all;
  for (const std::string& sql :
       {"TEmpCode || TEmpStatus || coalesce(" + test::asText("TEmpFlag3") +
            ", '') AS line FROM KT7TEmployee",
        std::string("TEm2TEmpCode || TEm2BonusAmass AS line FROM KT7TEmployee2"),
        std::string("TSaPTEmTCode || TSAPDate AS line FROM KT7TEmpSlipPeriod"),
        std::string("TEATTEmpCode || TEATAddSalary || TEATCutTAX AS line FROM KT7TEmpAmassType"),
        std::string("TEAATEmpCode || TEAAType AS line FROM KT7TEmpActiveAmass"),
        std::string("TBraCode AS line FROM KT7TBranch"),
        std::string("TSecCode AS line FROM KT7TSection"),
        std::string("TPSTCode AS line FROM KT7TPosition"),
        std::string("TWPTWeekDay AS line FROM KT7TEmpWorkTime"),
        std::string("TEHPTEmpCode || TEHPLn AS line FROM KT7TEmpHisPosition"),
        std::string("TEpSTEmpCode AS line FROM KT7TEmpSlipDoc")}) {
    for (const std::string& line : company.rows(sql)) all.push_back(line);
  }
  return all;
}

Told call(Company& company, const Writing& writing) {
  if (!writing.ownTransaction) company.hostData().BeginTransaction();
  try {
    writing.call(company);
  } catch (const Error&) {
    company.hostData().reset(1);
    return Told::Failure;
  }
  if (!writing.ownTransaction) company.hostData().CommitTransaction();
  return company.messages().empty() ? Told::Success : Told::Message;
}

struct Outcome {
  Told told;
  bool kept;
};

/// Before a transaction of its own stands, the roll-back of nothing fails and the caller gets that
/// error; once it stands, the first error is the message, also where the connection is lost and the
/// roll-back and the close fail too; after the commit there is nothing to tell.
Outcome outcomeOf(const Writing& writing, const std::string& step, When when) {
  if (!writing.ownTransaction) return {Told::Failure, false};
  if (step.starts_with("open")) return {Told::Failure, false};
  if (step.starts_with("begin") && when != When::After) return {Told::Failure, false};
  if (step.starts_with("close")) return {Told::Success, true};
  return {Told::Message, step.starts_with("commit") && when == When::After};
}

TEST_P(FaultSweep, WhatTheCallerIsToldHolds) {
  const Writing& writing = GetParam();
  Company untouched;
  fill(untouched);
  const Lines before = state(untouched);
  untouched.steps().failAt(0, When::Before);
  ASSERT_EQ(call(untouched, writing), Told::Success);
  const int steps = untouched.steps().steps();
  const Lines done = state(untouched);
  ASSERT_NE(before, done);

  for (int step = 1; step <= steps; ++step) {
    for (const When when : {When::Before, When::After, When::FromThere}) {
      Company company;
      fill(company);
      company.steps().failAt(step, when);
      const Told told = call(company, writing);
      const std::string where = company.steps().lines().at(static_cast<std::size_t>(step) - 1);
      EXPECT_TRUE(company.steps().failed()) << where;
      const Outcome expected = outcomeOf(writing, where, when);
      EXPECT_EQ(told, expected.told) << where;
      EXPECT_EQ(state(company), expected.kept ? done : before) << where;
      ASSERT_EQ(company.messages().size(), expected.told == Told::Message ? 1u : 0u) << where;
      if (expected.told == Told::Message) {
        EXPECT_TRUE(company.messages()[0].ends_with("step " + std::to_string(step) + ": " + where));
      }
      // Nothing stays open or locked: another connection can write at once.
      EXPECT_NO_THROW(company.run("UPDATE KT7TEmployee SET TEmpNo = 'free'")) << where;
      EXPECT_EQ(company.hostData().opens(), 1) << where;
    }
  }
}

const Date kDay = Date::fromYmd(2026, 1, 31);

const Writing kWriting[] = {
    {"UpdatePeriodStatus", [](auto& c) { c.hr().UpdatePeriodStatus(c.data(), false); }, true},
    {"UpdateEmployeeStatus", [](auto& c) { c.hr().UpdateEmployeeStatus(c.data()); }, true},
    {"SumAmass2TR", [](auto& c) { c.hr().SumAmass2TR("E1", 1, "", "N1", c.data(), 1); }, false},
    {"UpdateEmpActiveAmassTR",
     [](auto& c) { c.hr().UpdateEmpActiveAmassTR(1, 1, "E1", kDay, c.data()); }, false},
    {"BUILTSECTIONTR", [](auto& c) { c.hr().BUILTSECTIONTR(c.data(), "B1", "", "", "S1=Sales"); },
     false},
    {"BUILTPOSITION2TR", [](auto& c) { c.hr().BUILTPOSITION2TR(c.data(), "P1"); }, false},
    {"BUILTWORKPERIODTR", [](auto& c) { c.hr().BUILTWORKPERIODTR(c.data(), "W1"); }, false},
    {"BackupBlankPostionTR", [](auto& c) { c.hr().BackupBlankPostionTR(c.data(), "E1"); }, false},
    {"UpdatePostionTR",
     [](auto& c) {
       std::string department;
       c.hr().UpdatePostionTR(c.data(), "E1", kDay, "", "", "", "", department, "", 1, 2);
     },
     false},
    {"RenameEmployeeCodeTR",
     [](auto& c) {
       std::string to = "E9";
       c.hr().RenameEmployeeCodeTR(c.data(), "E1", to);
     },
     false},
};

INSTANTIATE_TEST_SUITE_P(Operations, FaultSweep, testing::ValuesIn(kWriting),
                         [](const auto& info) { return std::string(info.param.operation); });

}  // namespace
}  // namespace kt7
