#include <gtest/gtest.h>

#include <sstream>

#include <kt7/error.h>
#include "host/schema/transfer/import.h"
#include "schema/open_database.h"

namespace kt7::schema {
namespace {

using Problems = std::vector<std::string>;

Problems problemsOf(OpenDatabase& database, const std::string& table, const std::string& csv) {
  std::istringstream stream(csv);
  try {
    importTable(database.connection(), table, stream);
    return {};
  } catch (const ImportError& error) {
    return error.problems();
  }
}

class Import : public testing::Test {
 protected:
  Import() { createSchema(database_.connection(), testedEngine()); }
  OpenDatabase database_;
};

TEST_F(Import, TakesNamedColumnsInAnyOrderAndCase) {
  std::istringstream csv(
      "\xEF\xBB\xBFtempsalary,TEMPCODE,TEmpFirstName,TEmpSignDate,TEmpStatus,TEmpFlag3\r\n"
      "31500.50,E1,\"สม, มติ\",2016-02-29,1,2026-01-31 08:30:00\r\n"
      ",E2,O'Brien \\,,,\r\n");
  const ImportResult result = importTable(database_.connection(), "kt7TEMPLOYEE", csv);
  EXPECT_EQ(result.table, "KT7TEmployee");
  EXPECT_EQ(result.rows, 2u);
  const std::string one = "SELECT * FROM KT7TEmployee WHERE TEmpCode='E1'";
  EXPECT_EQ(database_.text("TEmpSalary", one), "31500.5");
  EXPECT_EQ(database_.text("TEmpFirstName", one), "สม, มติ");
  EXPECT_EQ(database_.count("KT7TEmployee WHERE TEmpSignDate='2016-02-29' AND "
                            "TEmpFlag3='2026-01-31 08:30:00'"),
            "1");
  EXPECT_EQ(database_.count("KT7TEmployee WHERE TEmpFirstName='O''Brien \\' AND TEmpSalary IS NULL "
                            "AND TEmpSignDate IS NULL AND TEmpStatus IS NULL"),
            "1");
}

TEST_F(Import, NamesWhatIsWrongAndTakesNothing) {
  const struct {
    const char* table;
    std::string csv;
    Problems problems;
  } cases[] = {
      {"KT7TNothing", "A\n", {"there is no table \"KT7TNothing\""}},
      {"kt7vEmployee", "A\n", {"\"kt7vEmployee\" is a view; rows are imported into tables"}},
      {"KT7TBranch", "", {"the file is empty; its first line names the columns"}},
      {"KT7TBranch",
       "TBraCode,Foo,tbracode,\nB1,x,B2,\n",
       {"line 1: KT7TBranch has no column \"Foo\"", "line 1: column TBraCode stands there twice",
        "line 1: KT7TBranch has no column \"\""}},
      {"KT7TBranch",
       "TBraCode,TBraName,TBraMinWage\nB1,a,400\nB2,400\n\nB3,\"x\ny\",4oo\nB4,\xFF,\n",
       {"line 3: 2 cells where the first line names 3 columns",
        "line 5, column TBraMinWage: \"4oo\" is not an amount with at most four decimals",
        "line 7, column TBraName: the cell is not UTF-8 text"}},
      {"KT7TEmployee",
       "TEmpCode,TEmpSignDate,TEmpStatus\nE1,31/01/2026,70000\n",
       {"line 2, column TEmpSignDate: \"31/01/2026\" is not a date (yyyy-mm-dd)",
        "line 2, column TEmpStatus: \"70000\" is not a whole number from -32768 to 32767"}},
      {"KT7TBranch",
       "TBraCode,TBraMinWage\nB1,1\nB2,x\n\"B3,2\n",
       {"line 3, column TBraMinWage: \"x\" is not an amount with at most four decimals",
        "line 4: a quote is never closed"}},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(problemsOf(database_, row.table, row.csv), row.problems) << row.csv;
    EXPECT_EQ(database_.count("KT7TBranch"), "0");
    EXPECT_EQ(database_.count("KT7TEmployee"), "0");
  }
}

TEST_F(Import, StopsAfterTheFirstBadRows) {
  std::string header = "TBraCode";
  for (int i = 0; i < 100; ++i) header += ",x";
  EXPECT_EQ(problemsOf(database_, "KT7TBranch", header + "\n").size(), 10u);
  EXPECT_EQ(problemsOf(database_, "KT7TBranch", std::string(2000000, ',') + "\nB1\n"),
            Problems{"line 1: a row has more than 4096 cells"});
  std::string csv = "TBraCode,TBraMinWage\n";
  for (int i = 0; i < 1000; ++i) csv += "B,x\n";
  EXPECT_EQ(problemsOf(database_, "KT7TBranch", csv).size(), 10u);
}

TEST_F(Import, NamesTheLineThatRepeatsAKey) {
  database_.run("INSERT INTO KT7TBranch (TBraCode) VALUES ('B1')");
  const Problems problems = problemsOf(database_, "KT7TBranch", "TBraCode\nB2\n\"B3\"\nB1\nB4\n");
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].find("line 4: a row with this key is already there"), 0u) << problems[0];
  EXPECT_NE(problems[0].find(test::engine().files ? "TBraCode" : "branch"), std::string::npos)
      << problems[0];
  EXPECT_EQ(database_.count("KT7TBranch"), "1");
  EXPECT_EQ(problemsOf(database_, "KT7TBranch", "TBraCode\nB2\n"), Problems{});
}

TEST_F(Import, KeepsGivenRowIdsAndGivesTheOthers) {
  EXPECT_EQ(problemsOf(database_, "KT7TBranch", "TBraRowID,TBraCode\n7,B1\n,B2\n"), Problems{});
  EXPECT_EQ(database_.texts("TBraRowID", "SELECT TBraRowID FROM KT7TBranch ORDER BY TBraCode"),
            (std::vector<std::string>{"7", "8"}));
}

TEST_F(Import, TakesFilesOfManyRows) {
  std::string csv = "TEhdTBraCode,TEHdHolidayDate\n";
  for (int i = 0; i < 1234; ++i) csv += "BR01,2026-01-01\n";
  EXPECT_EQ(problemsOf(database_, "KT7TEmpHoliday", csv), Problems{});
  EXPECT_EQ(database_.count("KT7TEmpHoliday"), "1234");
}

}  // namespace
}  // namespace kt7::schema
