#include <gtest/gtest.h>

#include "support/company.h"

namespace kt7 {
namespace {

using test::Company;
using Lines = std::vector<std::string>;

const std::string kNow = "|1|2026-01-15 10:00:00";  // in use, written now

/// The columns of every row, in the order of the first two.
Lines rowsOf(Company& company, const std::string& table, std::initializer_list<const char*> names) {
  std::string columns;
  for (const std::string name : names) columns += (columns.empty() ? "" : "||'|'||") + name;
  return company.rows(columns + " AS line FROM " + table + " ORDER BY " + *names.begin() + "," +
                      *std::next(names.begin()));
}

TEST(Organisation, EveryMissingLevelIsBuiltBelowTheOneBefore) {
  Company company;
  company.run("INSERT INTO KT7TSetting (TSetKey, TSetText) VALUES ('CompanyCode', 'C1')");
  const struct {
    const char *branch, *division, *department, *section, *answer;
  } cases[] = {{"B1=Bangkok=BKK=D01", "", "", "S1=Sales", "S1"},
               {"", "", "", "", ""},
               {"B1=other", "V=Div=V2=D2", "P=Dep=P2=D3", "S2=Sec=Se=D4", "S2"}};
  for (const auto& [branch, division, department, section, answer] : cases) {
    EXPECT_EQ(company.hr().BUILTSECTIONTR(company.data(), branch, division, department, section),
              answer);
  }
  EXPECT_EQ(rowsOf(company, "KT7TBranch",
                   {"TBraCode", "TBraName", "TBraDoccode", "TBraTBrTAlias", "TBraTCmpCode",
                    "TBraTCouCode", "TBraFlag1", "TBraFlag3"}),
            (Lines{"B1|BKK|D01|BRANCH|C1|TH" + kNow, "HEAD|HEAD||BRANCH|C1|TH" + kNow}));
  EXPECT_EQ(rowsOf(company, "KT7TDivision",
                   {"TDivCode", "TDivName", "TDivName2", "TDivDocCode", "TDivTBraCode", "TDivFlag1",
                    "TDivFlag3"}),
            (Lines{"S1|Sales|Sales||B1" + kNow, "V|Div|V2|D2|B1" + kNow}));
  EXPECT_EQ(rowsOf(company, "KT7TDepartment",
                   {"TDEPCode", "TDEPName", "TDEPName2", "TDEPDocCode", "TDEPTDivCode", "TDepFlag1",
                    "TDepFlag3"}),
            (Lines{"P|Dep|P2|D3|V" + kNow, "S1|Sales|Sales||S1" + kNow}));
  EXPECT_EQ(rowsOf(company, "KT7TSection",
                   {"TSecCode", "TSecName", "TSecName2", "TSecDocCode", "TSecTDepCode", "TSecFlag1",
                    "TSecFlag3"}),
            (Lines{"S1|Sales|Sales||S1" + kNow, "S2|Sec|Se|D4|P" + kNow}));
}

TEST(WorkPeriod, HasSevenDaysWhosePayTypesAreSetAnew) {
  Company company;
  company.run(
      "INSERT INTO KT7TEmpWorkTime (TWPTTWPDCode, TWPTWeekDay, TWPTPayType) VALUES "
      "('W1', 3, 2), ('W1', 6, 0)");
  const std::pair<const char*, const char*> cases[] = {
      {"W1=Day shift", "W1"}, {"", "OFFICE01"}, {"W1=other", "W1"}};
  for (const auto& [text, code] : cases) {
    EXPECT_EQ(company.hr().BUILTWORKPERIODTR(company.data(), text), code);
  }
  EXPECT_EQ(
      rowsOf(company, "KT7TEmpWorkPeriod", {"TWPDCode", "TWPDName", "TWPDFlag1", "TWPDFlag3"}),
      Lines{"W1|Day shift" + kNow});
  Lines expected;
  for (const char* code : {"OFFICE01|", "W1|"}) {
    for (const char* day : {"0|1", "1|0", "2|0", "3|0", "4|0", "5|0", "6|1"}) {
      expected.push_back(code + (day + kNow));
    }
  }
  EXPECT_EQ(rowsOf(company, "KT7TEmpWorkTime",
                   {"TWPTTWPDCode", "TWPTWeekDay", "TWPTPayType", "TWPTFlag1", "TWPTFlag3"}),
            expected);
}

TEST(Position, ItsCodeIsCutAndItsNameKept) {
  Company company;
  const std::string thirty(30, 'p'), longer = thirty + "12345";
  EXPECT_EQ(company.hr().BUILTPOSITION2TR(company.data(), longer), thirty);
  EXPECT_EQ(company.hr().BUILTPOSITION2TR(company.data(), ""), "00");
  EXPECT_EQ(company.hr().BUILTPOSITIONTR(company.data(), "A1", "Clerk"), "A1");
  EXPECT_EQ(company.hr().BUILTPOSITIONTR(company.data(), "A1", "other"), "A1");
  EXPECT_EQ(rowsOf(company, "KT7TPosition", {"TPSTCode", "TPSTName", "TPSTFlag1", "TPSTFlag3"}),
            (Lines{"00|00" + kNow, "A1|Clerk" + kNow, thirty + "|" + longer + kNow}));
}

TEST(PositionHistory, KeepsTheStoredRecordLineByLine) {
  Company company;
  HRObject& hr = company.hr();
  hr.BUILTSECTIONTR(company.data(), "B=Bangkok", "V=Div", "P=Dep", "S=Sec");
  hr.BUILTPOSITIONTR(company.data(), "A1", "Clerk");
  company.run(
      "INSERT INTO KT7TEmployee (TEmpCode, TEmpTBraCode, TEmpTDivCode, TEmpTDepCode, "
      "TEmpTSecCode, TEmpTPstCode, TEmpLastSalaryDate, TEmpSalary, TEmpCustom) VALUES ('E1', 'B', "
      "'V', 'P', 'S', 'A1', '2025-06-01', 20000.5, 7)");
  EXPECT_EQ(hr.BackupBlankPostionTR(company.data(), "E9"), 0);
  EXPECT_EQ(hr.BackupBlankPostionTR(company.data(), "E1"), 1);
  EXPECT_EQ(hr.BackupBlankPostionTR(company.data(), "E1"), 1);
  std::string ignored = "D";
  for (const int line : {2, 3}) {  // the second time the row of the day is written again
    EXPECT_EQ(hr.UpdatePostionTR(company.data(), "E1", Date::fromYmd(2026, 1, 31), "X", "Y", "B",
                                 "V", ignored, "S", line * 10.5, line),
              line);
  }
  const std::string place = "|A1|Clerk|Bangkok|Div|Dep|Sec|";
  EXPECT_EQ(rowsOf(company, "KT7TEmpHisPosition",
                   {"TEHPTEmpCode", "TEHPLn", "TEHPStartDate", "TEHPTPstCode", "TEHPPosition",
                    "TEHPBranch", "TEHPDivision", "TEHPDepartment", "TEHPSection", "TEHPSalary",
                    "TEHPCustom", "TEHPDependCode", "TEHPDependOn", "TEHPFlag1", "TEHPFlag3"}),
            (Lines{"E1|1|2025-06-01" + place + "20000.5|7||" + kNow,
                   "E1|2|2026-01-31" + place + "31.5|3||" + kNow}));
}

}  // namespace
}  // namespace kt7
