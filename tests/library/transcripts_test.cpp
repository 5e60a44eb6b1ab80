// What each operation asks of the database and its collaborators: the texts, in their order.
#include <gtest/gtest.h>

#include <functional>

#include "support/company.h"

namespace kt7 {
namespace {

using Lines = std::vector<std::string>;

struct Transcript {
  const char* operation;
  std::function<void(test::Company&)> call;
  Lines expected;
};

class Transcripts : public testing::TestWithParam<Transcript> {};

TEST_P(Transcripts, AsksInOrder) {
  test::Company company("2026-01-15T10:00:00");
  company.run(
      "INSERT INTO KT7TEmployee (TEmpCode, TEmpTEmTCode, TEmpTSecCode, TEmpStatus, "
      "TEmpSignDate) VALUES ('E1', 'M', 'S1', 1, '2020-01-31')");
  company.run(
      "INSERT INTO KT7TTaxRate (TTxRTTaxAlias, TTxRFromBase, TTxRRate) VALUES ('PTAX', 0, 5)");
  company.run("INSERT INTO KT7TSetting (TSetKey, TSetText) VALUES ('HeadOfficeBranchCode', 'B0')");
  company.steps().failAt(0, trace::FaultInjector::When::Before);
  GetParam().call(company);
  EXPECT_EQ(company.steps().lines(), GetParam().expected);
}

const Date kDay = Date::fromYmd(2026, 1, 31);

float tax(test::Company& company, double pay) {
  int16_t months = 12;
  Currency none, donation = Currency::fromWhole(5);
  bool toTen = false;
  return company.hr().CalcPTAX4(company.data(), Currency::fromDouble(pay), {}, {}, 0, 0, months,
                                none, {}, none, donation, none, {}, toTen, kDay, {});
}

const Lines kHourRate{"lookup (own): TEmpTEmTcode of KT7Temployee where Tempcode=E1",
                      "lookup (own): TEmTSalaryType of KT7TemployeeType where TemTcode=M",
                      "lookup (own): TEmpSalary of KT7Temployee where Tempcode=E1"};

Lines joined(std::initializer_list<Lines> parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

const char* const kBrackets =
    "recordset (own): SELECT * FROM KT7TTaxRate WHERE TTxRTTaxAlias = 'PTAX' ORDER BY TTxRFromBase "
    "DESC";
const char* const kTypeOfEmployee =
    "lookup (data object): TEmpTEmTCode of KT7TEmployee where TEmpCode=E1";

const Transcript kRates[] = {
    {"GETDAYRATE", [](auto& c) { c.hr().GETDAYRATE("E1", c.data()); }, kHourRate},
    {"GETSectionHourRate", [](auto& c) { c.hr().GETSectionHourRate("S1", c.data(), true); },
     joined({{"open (own)",
              "recordset (own): SELECT * FROM KT7TEmployee WHERE TEmpTSecCode='S1' Order by "
              "TEmpCode"},
             kHourRate,
             {"close (own)"}})},
    {"CalcPTAX4",
     [](auto& c) { tax(c, 50000); },
     {"setting (own): MoneyExpendses", "setting (own): MoneyExpensesNotOver",
      "setting (own): MoneySale", "setting (own): STAXMinRate", "setting (own): STAXMaxRate",
      "setting (own): STAXSelfRate", "open (own)", kBrackets, kBrackets, "close (own)"}},
    {"CalcPTAX4NoPay", [](auto& c) { EXPECT_EQ(tax(c, -1), 0); }, {}},
    {"GetSFUNDRate",
     [](auto& c) { c.hr().GetSFUNDRate(c.data(), "M", Date::fromYmd(2025, 12, 31), kDay); },
     {"query (own): SELECT TFuRShareRate1 AS A FROM KT7TFundRate WHERE TFuRTFunAlias='SFUND' AND "
      "TFurTEmTCode='M' AND TFurFromBase <=1 ORDER BY TFurFromBase DESC"}},
    {"GetSFUNDRateBuddhistEra",
     [](auto& c) { c.hr().GetSFUNDRate(c.data(), "M", kDay, Date::fromYmd(2400, 1, 1)); },
     {}},
    {"TrimSTAXBase",
     [](auto& c) { c.hr().TrimSTAXBase(1, c.data()); },
     {"setting (own): STAXMinRate", "setting (own): STAXMaxRate"}},
    {"GetActiveAmassTR",
     [](auto& c) { c.hr().GetActiveAmassTR("E1", kDay, "<", c.data()); },
     {kTypeOfEmployee,
      "recordset (data object): SELECT * FROM KT7TEmpActiveAmass WHERE TEAATSAPTEmTCode='M' AND "
      "TEAATEmpCode='E1' AND TEAATSaPDate<'2026-01-31' ORDER BY TEAATSaPDate DESC",
      "lookup (data object): TEm2LastBonusAmass of KT7TEmployee2 where TEm2TEmpCode=E1"}},
    {"GetActiveRateTR",
     [](auto& c) { c.hr().GetActiveRateTR("E1", -1, 1, c.data()); },
     {kTypeOfEmployee,
      "recordset (data object): SELECT * FROM KT7TEmpTipRate WHERE TETRTEmTCode='M' AND "
      "TETRFromBase<=-1 ORDER BY TETRFromBase DESC"}},
    {"UpdateEmpActiveAmassTR",
     [](auto& c) { c.hr().UpdateEmpActiveAmassTR(1, 0, "E1", kDay, c.data()); },
     {kTypeOfEmployee,
      "recordset (data object): SELECT * FROM KT7TEmpActiveAmass WHERE TEAATSAPTEmTCode='M' AND "
      "TEAATEmpCode='E1' AND TEAATSaPDate='2026-01-31'",
      "update (data object): new row of SELECT * FROM KT7TEmpActiveAmass WHERE "
      "TEAATSAPTEmTCode='M' AND TEAATEmpCode='E1' AND TEAATSaPDate='2026-01-31'",
      "execute (data object): UPDATE KT7TEmployee2 Set TEm2BonusAmass=0 WHERE TEm2TEmpCode='E1'"}},
};

const Transcript kCalendar[] = {
    {"ISWorkDay",
     [](auto& c) { c.hr().ISWorkDay(kDay, c.data()); },
     {"setting (own): HeadOfficeBranchCode",
      "lookup (own): TBraHolidayList of KT7TBranch where TBraCode=B0"}},
    {"ISWorkDayNamed",
     [](auto& c) { c.hr().ISWorkDay(kDay, c.data(), "HeadOffice"); },
     {"lookup (own): TBraHolidayList of KT7TBranch where TBraCode=HeadOffice"}},
    {"ISOfficeHoliday",
     [](auto& c) { c.hr().ISOfficeHoliday(kDay, c.data()); },
     {"setting (own): HeadOfficeBranchCode",
      "query (own): SELECT COUNT(TEHdHolidayDate) as TEHdHolidayDate FROM KT7TEmpHoliday WHERE "
      "TEhdTBraCode='B0' AND TEHdHolidayDate='2026-01-31'"}},
    {"CountWorkDayString",
     [](auto& c) { EXPECT_EQ(c.hr().CountWorkDayString(c.data(), "E1", kDay), "6-0-0"); },
     {"open (data object)",
      "recordset (data object): SELECT TEmpSignDate from KT7TEmployee WHERE TEmpCode='E1' ORDER BY "
      "TEmpCode",
      "close (data object)"}},
    {"GetLeaveName",
     [](auto& c) { c.hr().GetLeaveName(c.connectionString(), true); },
     {"open (own)", "recordset (own): SELECT * FROM KT7TEmpLeaveType Order by tLvtCode",
      "close (own)"}},
    {"GetEmployeeLeaveYear",
     [](auto& c) { c.hr().GetEmployeeLeaveYear(c.data(), kDay); },
     {"query (own): SELECT TLPDID FROM KT7TEmpLeavePeriod WHERE TLPDStartDate<='2026-01-31' AND "
      "TLPDEndDate >='2026-01-31'"}},
    {"IsFirstPeriodOfMonth",
     [](auto& c) { c.hr().IsFirstPeriodOfMonth("M", kDay, c.data()); },
     {"open (data object)",
      "recordset (data object): SELECT TSaPPeriodNo FROM KT7TEmpSlipPeriod WHERE TSAPTEmTCode='M' "
      "AND year(TSAPDate)='2026'",
      "close (data object)"}},
    {"IsFirstPeriodOfYear",
     [](auto& c) { c.hr().IsFirstPeriodOfYear("M", kDay, c.data()); },
     {"open (data object)",
      "recordset (data object): SELECT TSAPDate FROM KT7TEmpSlipPeriod WHERE TSAPTEmTCode='M' AND "
      "year(TSAPDate)='2026' AND TSAPDate<'2026-01-31'",
      "close (data object)"}},
    {"SumAmass2NoItems",
     [](auto& c) { c.hr().SumAmass2("E1", 1, "x", "N1", c.data(), 1); },
     {"open (data object)", "begin (data object)",
      "recordset (data object): SELECT * FROM KT7VEmployeeSlip WHERE TEPSNo='N1' AND "
      "TEpSTEmpCode='E1' AND TEPSCheckGroup=1",
      "lookup (data object): TEpsTSaPDate of KT7TEmpSlipDoc where TEPSNo=N1", kTypeOfEmployee,
      "commit (data object)", "close (data object)"}},
};

const char* const kNow = "'2026-01-15 10:00:00'";
const std::string kGroups =
    "KT7VEmployeeGroup WHERE TEGdDate<='2026-01-15' AND TEgdApproveStatus=1 AND "
    "TEgdCancelStatus=0 ORDER BY TEgdTime DESC where TEmpCode=E1";

const Transcript kRecords[] = {
    {"HRFilterAccessLevel",
     [](auto& c) {
       const std::string& cs = c.connectionString();
       EXPECT_EQ(c.hr().HRFilterAccessLevel(7, cs, cs, "tempTemTcode"),
                 " ( TEMPTEMTCODE='') AND ( TEmpTBraCode='')");
     },
     {"setting (own): IsAdministrator of user 7",
      "setting (own): UserHasRight of user 7 for HRMASTERALLTYPE",
      "recordset (own): SELECT TUETTEmTCode,TUETSalary,TUETWelfare FROM KT7TUserEmpType WHERE "
      "TUETTCmGAlias='HR' AND TUETTUsrID=7",
      "setting (own): UserHasRight of user 7 for HRMASTERALLBRANCH",
      "recordset (own): SELECT TUsBTBraCode FROM KT7TUserBranch WHERE TUsBTCmGAlias='HR' AND "
      "TUsBTUsrID=7"}},
    {"HRFilterAccessSalary",
     [](auto& c) { EXPECT_FALSE(c.hr().HRFilterAccessSalary(7, c.connectionString(), "", "")); },
     {"setting (own): IsAdministrator of user 7",
      "setting (own): IsModuleAdministrator of user 7 for HR",
      "query (own): SELECT TUETTEmTCode FROM KT7TUserEmpType Where TUETTUsrID=7 AND "
      "TUETSalary<>''",
      "query (own): SELECT TUeTSalary FROM KT7TUserEmpType Where TUETTEmTCode='' AND TUETTUsrID=7 "
      "AND TUETSalary<>''"}},
    {"BUILTPOSITIONTR",
     [](auto& c) { c.hr().BUILTPOSITIONTR(c.data(), "P1", "Clerk"); },
     {"lookup (data object): TPSTCode of KT7TPosition where TPSTCode=P1",
      "recordset (data object): SELECT * FROM KT7TPosition WHERE TPSTCode='P1'",
      "update (data object): new row of SELECT * FROM KT7TPosition WHERE TPSTCode='P1'"}},
    {"UpdateEmployeeStatus",
     [](auto& c) { c.hr().UpdateEmployeeStatus(c.data()); },
     {"open (own)", "begin (own)",
      std::string("execute (own): UPDATE KT7TEmployee set TEmpFlag3=") + kNow +
          ",TempStatus=4 WHERE TEmpResignDate<'2026-01-15' and TEmpStatus=3",
      std::string("execute (own): UPDATE KT7TEmployee set TEmpFlag3=") + kNow +
          ",TempStatus=3 WHERE TEmpResignDate>='2026-01-15' and TEmpStatus=4",
      "recordset (own): SELECT * FROM Kt7TEmployee WHERE (TEmpStatus <=3 or (TEmpStatus>3 AND "
      "TEmpResignDate>'2026-01-15')) ORDER BY TEmpCode",
      "lookup (own): TEmGCode of " + kGroups, "lookup (own): TEgmStatus of " + kGroups,
      std::string("execute (own): UPDATE KT7TEmployee Set TEmpFlag3=") + kNow +
          ",TEmpTEMGCode=''  WHERE TEmpCode='E1'",
      "commit (own)", "close (own)"}},
    {"UpdatePostionTR",
     [](auto& c) {
       std::string department;
       EXPECT_EQ(c.hr().UpdatePostionTR(c.data(), "E1", kDay, "", "", "", "", department, "", 1, 2),
                 1);
     },
     {"query (data object): SELECT MAX(TEHPLn) as A FROM Kt7TEmpHisPosition WHERE "
      "TEHPTEmpCode='E1'",
      "recordset (data object): SELECT * FROM KT7TEmpHisPosition WHERE TEHPTEmpCode='E1' AND "
      "TEHPStartDate='2026-01-31'",
      "lookup (data object): TPstName of Kt7VEmployee where TEmpCode=E1",
      "lookup (data object): TEmpTPstCode of Kt7VEmployee where TEmpCode=E1",
      "lookup (data object): TBraName of Kt7VEmployee where TEmpCode=E1",
      "lookup (data object): TDivName of Kt7VEmployee where TEmpCode=E1",
      "lookup (data object): TDepName of Kt7VEmployee where TEmpCode=E1",
      "lookup (data object): TSecName of Kt7VEmployee where TEmpCode=E1",
      "update (data object): new row of SELECT * FROM KT7TEmpHisPosition WHERE TEHPTEmpCode='E1' "
      "AND TEHPStartDate='2026-01-31'"}},
};

std::string nameOf(const testing::TestParamInfo<Transcript>& info) { return info.param.operation; }

INSTANTIATE_TEST_SUITE_P(Rates, Transcripts, testing::ValuesIn(kRates), nameOf);
INSTANTIATE_TEST_SUITE_P(Calendar, Transcripts, testing::ValuesIn(kCalendar), nameOf);
INSTANTIATE_TEST_SUITE_P(Records, Transcripts, testing::ValuesIn(kRecords), nameOf);

}  // namespace
}  // namespace kt7
