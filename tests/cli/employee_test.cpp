#include "command_fixture.h"
#include "host/data/contract/database.h"
#include "host/records/employee_renaming.h"
#include "host/schema/description/table.h"
#include "schema/employee_code_columns.h"

namespace kt7::cli {
namespace {

class Employees : public Commands {
 protected:
  Employees() { done({"init", "--sample"}); }

  Outcome on2026(std::vector<std::string> words) const {
    words.insert(words.end(), {"--now", "2026-02-15"});
    return ask(words);
  }
  std::int64_t rowsOf(const std::string& code) {
    const auto connection = data::createConnection();
    connection->Open(database());
    std::int64_t rows = 0;
    for (const CodeRows& each : countCode(*connection, code)) rows += each.rows;
    connection->Close();
    return rows;
  }
};

TEST_F(Employees, ShowGathersWhatIsKnownOnADay) {
  execute(
      "INSERT INTO KT7TEmpAmassType (TEATTEmpCode, TEATPaymentDate, TEATTEmTCode, "
      "TEATCheckGroup, TEATBalanceFlag, TEATCutTAX, TEATNetTotal) VALUES "
      "('E0001', '2026-01-31', 'M1', 1, 0, 1937.5, 73687.5), "
      "('E0001', '2026-02-15', 'M1', 1, 0, 0.25, NULL), "
      "('E0001', '2026-02-16', 'M1', 1, 0, 1000, 1000), "
      "('E0001', '2025-12-31', 'M1', 1, 0, 1000, 1000), "
      "('E0001', '2026-01-31', 'M1', 1, 1, 1000, 1000), "
      "('E0002', '2026-01-31', 'M1', 1, 0, 1000, 1000)");
  execute(
      "INSERT INTO KT7TEmpHisPosition (TEHPTEmpCode, TEHPLn, TEHPStartDate, TEHPPosition, "
      "TEHPSalary) VALUES ('E0001', 2, '2020-01-01', 'B', 85000), ('E0001', 1, '2005-06-01', "
      "'A', 20000.5)");
  execute(
      "INSERT INTO KT7TEmpLeaveAllow (TELATEmpCode, TELaTLPDID, TELaTLvtCode, TELaAllowDay, "
      "TELaUsedDay) VALUES ('E0001', 2026, 'X', 6, 1.5), ('E0001', 2025, 'X', 7, 0)");
  const Json sheet = Json::parse(on2026({"employee", "show", "E0001", "--format", "json"}).out);
  EXPECT_EQ(sheet["On"], "2026-02-15");
  EXPECT_EQ(sheet["Profile"]["LastName"], "ลำดับหนึ่ง");
  EXPECT_EQ(sheet["Profile"]["Salary"], "85000.0000");
  EXPECT_EQ(sheet["Profile"]["ResignDate"], nullptr);
  EXPECT_DOUBLE_EQ(sheet["Rates"]["DayRate"], 85000.0 / 30);
  EXPECT_DOUBLE_EQ(sheet["Rates"]["HourRate"], 85000.0 / 240);
  EXPECT_EQ(sheet["Hours"]["HoursPerDay"], 8.0);
  EXPECT_EQ(sheet["Service"], (Json{{"Text", "20-8-0"}, {"Years", 20}, {"Months", 248}}));
  EXPECT_EQ(sheet["Fund"]["EmployerRate"], 15.0);
  EXPECT_EQ(sheet["History"][0]["Position"], "A");
  EXPECT_EQ(sheet["History"][1]["From"], "2020-01-01");
  EXPECT_EQ(sheet["Leave"]["Year"], 2026);
  ASSERT_EQ(sheet["Leave"]["Allowances"].size(), 1U);
  EXPECT_EQ(sheet["Leave"]["Allowances"][0]["Used"], 1.5);
  EXPECT_EQ(sheet["Balances"]["PayDates"], 2);
  EXPECT_EQ(sheet["Balances"]["Tax"], "1937.7500");
  EXPECT_EQ(sheet["Balances"]["Net"], "73687.5000");

  const std::string text = on2026({"employee", "show", "E0001", "--on", "2025-05-31"}).out;
  for (const char* line :
       {"E0001  นาย สมมติ ลำดับหนึ่ง\n", "A day             2,833.33\n", "An hour           354.17\n",
        "Service           19 years 11 months on", "  1   2005-06-01  A ", "20,000.50\n",
        "Leave year 2025", "pay dates: 0\n"}) {
    EXPECT_TRUE(says(text, line)) << line << "\n" << text;
  }
}

TEST_F(Employees, RefuseWhatCannotBeShownOrRenamed) {
  execute("INSERT INTO KT7TTimeInput (TTIPCode) VALUES ('OLD')");
  const std::int64_t before = rowsOf("E0001");
  expectRefused({
      {{"employee", "show", "E9999"}, kFailed, "no employee 'E9999'"},
      {{"employee", "show", "E'1"}, kWrongUse, "quote"},
      {{"employee", "show", "E0001", "--on", "31/1/2026"}, kWrongUse, "2026-01-31"},
      {{"employee", "rename", "E0001", "X'1", "--yes"}, kWrongUse, "quote"},
      {{"employee", "rename", "E'1", "X1", "--yes"}, kWrongUse, "quote"},
      {{"employee", "rename", "E0001", "E0001", "--yes"}, kWrongUse, "same"},
      {{"employee", "rename", "E0001", "X1"}, kWrongUse, "--yes"},
      {{"employee", "rename", "E9999", "X1", "--yes"}, kFailed, "no employee 'E9999'"},
      {{"employee", "rename", "E0001", "E0002", "--yes"}, kFailed, "taken: KT7TEmployee 1"},
      {{"employee", "rename", "E0001", "OLD", "--yes"}, kFailed, "taken: KT7TTimeInput 1"},
  });
  EXPECT_EQ(rowsOf("E0001"), before);
}

TEST_F(Employees, RenameAsksAPersonFirst) {
  for (const auto& [answer, exitCode] :
       {std::pair{"n\n", kFailed}, {"", kFailed}, {"y\n", kDone}}) {
    const Outcome outcome = ask({"employee", "rename", "E0001", "X1"}, answer, {.in = true});
    EXPECT_EQ(outcome.exitCode, exitCode) << outcome.err;
    EXPECT_TRUE(says(outcome.err, "Rename E0001 to X1 in 3 rows? [y/N]")) << outcome.err;
    EXPECT_EQ(rowsOf("X1"), exitCode == kDone ? 3 : 0);
  }
}

TEST_F(Employees, RenameMovesEveryPlaceThatHoldsTheCode) {
  const std::vector<CodePlace> places = codePlaces();
  ASSERT_GT(places.size(), schema::kEmployeeCodeColumns.size());
  EXPECT_EQ(places.back().table, "KT7TEmpAmassType");
  std::set<std::string> tables;
  for (const CodePlace& place : places) {
    tables.insert(place.table);
    if (place.table == "KT7TEmployee" || place.table == "KT7TEmployee2") continue;
    execute("INSERT INTO " + place.table + " (" + place.column + ") VALUES ('E0001')");
    execute("INSERT INTO " + place.table + " (" + place.column + ") VALUES ('E00011')");
  }
  EXPECT_EQ(tables.size(), places.size());
  const std::int64_t rows = rowsOf("E0001");
  const std::int64_t others = rowsOf("E00011");
  const Outcome renamed = ask({"employee", "rename", "E0001", "เอ็กซ์ 1", "--yes"});
  ASSERT_EQ(renamed.exitCode, kDone) << renamed.err;
  EXPECT_TRUE(says(renamed.out, "TEATTEmpCode    1\n")) << renamed.out;
  EXPECT_EQ(rowsOf("E0001"), 0);
  EXPECT_EQ(rowsOf("เอ็กซ์ 1"), rows);
  EXPECT_EQ(rowsOf("E00011"), others);
}

TEST_F(Employees, ARenamingThatFailsLeavesEverything) {
  const std::int64_t before = rowsOf("E0001");
  for (const char* table : {"KT7TEmpOTMB", "KT7TEmpAmassType"}) {
    execute(std::string("CREATE TRIGGER Refuse BEFORE UPDATE ON ") + table +
            " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    execute(std::string("INSERT INTO ") + table + " (" +
            (table == std::string("KT7TEmpOTMB") ? "TOTMTEmpCode" : "TEATTEmpCode") +
            ") VALUES ('E0001')");
    const Outcome outcome = ask({"employee", "rename", "E0001", "X1", "--yes"});
    EXPECT_EQ(outcome.exitCode, kFailed);
    EXPECT_TRUE(says(outcome.err, "refused")) << outcome.err;
    EXPECT_EQ(rowsOf("X1"), 0) << table;
    execute("DROP TRIGGER Refuse");
    execute(std::string("DELETE FROM ") + table);
  }
  EXPECT_EQ(rowsOf("E0001"), before);
}

TEST_F(Employees, ACallWritesAllOrNothingAndTellsAMessage) {
  const auto rename = [&] {
    return on2026({"call", "RenameEmployeeCodeTR", R"({"FromCode":"E0001","ToCode":"X1"})"});
  };
  const std::int64_t before = rowsOf("E0001");
  execute(
      "CREATE TRIGGER Refuse BEFORE UPDATE ON KT7TEmployee2 BEGIN SELECT RAISE(ABORT, 'refused'); "
      "END");
  EXPECT_EQ(rename().exitCode, kFailed);
  EXPECT_EQ(rowsOf("X1"), 0);
  EXPECT_EQ(rowsOf("E0001"), before);
  execute("DROP TRIGGER Refuse");
  EXPECT_EQ(rename().exitCode, kDone);
  EXPECT_GT(rowsOf("X1"), 1);

  execute(
      "UPDATE KT7TEmployee SET TEmpResignDate='2026-01-01', TEmpStatus=3 WHERE TEmpCode='E0002'");
  execute(
      "CREATE TRIGGER Refuse BEFORE UPDATE ON KT7TEmployee BEGIN SELECT RAISE(ABORT, 'refused'); "
      "END");
  const Outcome trapped = on2026({"call", "UpdateEmployeeStatus", "{}"});
  EXPECT_EQ(trapped.exitCode, kFailed);
  EXPECT_TRUE(says(trapped.err, "refused")) << trapped.err;
  const Json messages = Json::parse(trapped.out).at("messages");
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_NE(messages[0].get<std::string>().find("refused"), std::string::npos);
  execute("DROP TRIGGER Refuse");
  const Outcome silent = on2026({"call", "UpdateEmployeeStatus", "{}"});
  EXPECT_EQ(silent.exitCode, kDone);
  EXPECT_FALSE(Json::parse(silent.out).contains("messages"));
}

TEST_F(Employees, ARenamedEmployeeIsPaidOnTheSame) {
  const auto pay = [&](const char* month, const std::string& name) {
    return kt7hr({"payroll", "--month", month, "--format", "csv", "--db", database(name)}).out;
  };
  ASSERT_EQ(kt7hr({"init", "--sample", "--db", database("other.db")}).exitCode, kDone);
  for (const char* name : {"company.db", "other.db"}) pay("2026-01", name);
  ASSERT_EQ(ask({"employee", "rename", "E0001", "E0001X", "--yes"}).exitCode, kDone);
  std::string renamed = pay("2026-02", "company.db");
  const std::string same = pay("2026-02", "other.db");
  const std::size_t at = renamed.find("E0001X");
  ASSERT_NE(at, std::string::npos) << renamed;
  EXPECT_EQ(renamed.erase(at + 5, 1), same);
}

}  // namespace
}  // namespace kt7::cli
