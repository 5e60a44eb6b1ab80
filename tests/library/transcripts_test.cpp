// What each operation asks of the database and its collaborators. Hosts read these steps in traces
// and answer them in collaborators of their own, so the texts and their order are a contract: they
// stand in transcripts.txt, and a changed line there is a change of the published behaviour.
#include <gtest/gtest.h>

#include <functional>

#include "support/cases.h"
#include "support/company.h"

namespace kt7 {
namespace {

using Lines = std::vector<std::string>;

const Date kDay = Date::fromYmd(2026, 1, 31);

float tax(test::Company& company, double pay) {
  int16_t months = 12;
  Currency none, donation = Currency::fromWhole(5);
  bool toTen = false;
  return company.hr().CalcPTAX4(company.data(), Currency::fromDouble(pay), {}, {}, 0, 0, months,
                                none, {}, none, donation, none, {}, toTen, kDay, {});
}

void updatePosition(test::Company& company) {
  std::string department;
  company.hr().UpdatePostionTR(company.data(), "E1", kDay, "", "", "", "", department, "", 1, 2);
}

struct Call {
  const char* operation;
  std::function<void(test::Company&)> call;
};

const Call kCalls[] = {
    {"GETDAYRATE", [](auto& c) { c.hr().GETDAYRATE("E1", c.data()); }},
    {"GETSectionHourRate", [](auto& c) { c.hr().GETSectionHourRate("S1", c.data(), true); }},
    {"CalcPTAX4", [](auto& c) { tax(c, 50000); }},
    {"CalcPTAX4 without pay", [](auto& c) { EXPECT_EQ(tax(c, -1), 0); }},
    {"GetSFUNDRate",
     [](auto& c) { c.hr().GetSFUNDRate(c.data(), "M", Date::fromYmd(2025, 12, 31), kDay); }},
    {"GetSFUNDRate of the Buddhist era",
     [](auto& c) { c.hr().GetSFUNDRate(c.data(), "M", kDay, Date::fromYmd(2400, 1, 1)); }},
    {"TrimSTAXBase", [](auto& c) { c.hr().TrimSTAXBase(1, c.data()); }},
    {"GetActiveAmassTR", [](auto& c) { c.hr().GetActiveAmassTR("E1", kDay, "<", c.data()); }},
    {"GetActiveRateTR", [](auto& c) { c.hr().GetActiveRateTR("E1", -1, 1, c.data()); }},
    {"UpdateEmpActiveAmassTR",
     [](auto& c) { c.hr().UpdateEmpActiveAmassTR(1, 0, "E1", kDay, c.data()); }},
    {"ISWorkDay", [](auto& c) { c.hr().ISWorkDay(kDay, c.data()); }},
    {"ISWorkDay of a branch", [](auto& c) { c.hr().ISWorkDay(kDay, c.data(), "HeadOffice"); }},
    {"ISOfficeHoliday", [](auto& c) { c.hr().ISOfficeHoliday(kDay, c.data()); }},
    {"CountWorkDayString",
     [](auto& c) { EXPECT_EQ(c.hr().CountWorkDayString(c.data(), "E1", kDay), "6-0-0"); }},
    {"GetLeaveName", [](auto& c) { c.hr().GetLeaveName(c.connectionString(), true); }},
    {"GetEmployeeLeaveYear", [](auto& c) { c.hr().GetEmployeeLeaveYear(c.data(), kDay); }},
    {"IsFirstPeriodOfMonth", [](auto& c) { c.hr().IsFirstPeriodOfMonth("M", kDay, c.data()); }},
    {"IsFirstPeriodOfYear", [](auto& c) { c.hr().IsFirstPeriodOfYear("M", kDay, c.data()); }},
    {"SumAmass2 without items", [](auto& c) { c.hr().SumAmass2("E1", 1, "x", "N1", c.data(), 1); }},
    {"HRFilterAccessLevel",
     [](auto& c) {
       const std::string& where = c.connectionString();
       EXPECT_EQ(c.hr().HRFilterAccessLevel(7, where, where, "tempTemTcode"),
                 " ( TEMPTEMTCODE='') AND ( TEmpTBraCode='')");
     }},
    {"HRFilterAccessSalary",
     [](auto& c) { EXPECT_FALSE(c.hr().HRFilterAccessSalary(7, c.connectionString(), "", "")); }},
    {"BUILTPOSITIONTR", [](auto& c) { c.hr().BUILTPOSITIONTR(c.data(), "P1", "Clerk"); }},
    {"UpdateEmployeeStatus", [](auto& c) { c.hr().UpdateEmployeeStatus(c.data()); }},
    {"UpdatePostionTR", updatePosition},
};

TEST(Transcripts, EveryOperationAsksAsItIsPublished) {
  const std::vector<Lines> published = test::casesOf("library/transcripts.txt");
  ASSERT_EQ(published.size(), std::size(kCalls));
  for (std::size_t i = 0; i < published.size(); ++i) {
    const auto& [operation, call] = kCalls[i];
    test::Company company("2026-01-15T10:00:00");
    for (const char* row :
         {"KT7TEmployee (TEmpCode, TEmpTEmTCode, TEmpTSecCode, TEmpStatus, TEmpSignDate) VALUES "
          "('E1', 'M', 'S1', 1, '2020-01-31')",
          "KT7TTaxRate (TTxRTTaxAlias, TTxRFromBase, TTxRRate) VALUES ('PTAX', 0, 5)",
          "KT7TSetting (TSetKey, TSetText) VALUES ('HeadOfficeBranchCode', 'B0')"}) {
      company.run(std::string("INSERT INTO ") + row);
    }
    company.steps().failAt(0, trace::FaultInjector::When::Before);
    call(company);
    Lines asked{operation};
    for (const std::string& step : company.steps().lines()) asked.push_back("  " + step);
    EXPECT_EQ(asked, published[i]);
  }
}

}  // namespace
}  // namespace kt7
