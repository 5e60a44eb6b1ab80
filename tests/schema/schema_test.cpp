#include <gtest/gtest.h>

#include <kt7/error.h>
#include "base/text.h"
#include "host/schema/sample/sample_files.h"
#include "host/schema/transfer/import.h"
#include "schema/open_database.h"

namespace kt7::schema {
namespace {

/// "" or the database's error.
std::string refusal(OpenDatabase& database, const std::string& sql) {
  try {
    database.run(sql);
    return "";
  } catch (const Error& error) {
    return error.what();
  }
}

TEST(Schema, IsMadeOnceInAnEmptyDatabase) {
  OpenDatabase database;
  EXPECT_FALSE(hasSchema(database.connection(), testedEngine()));
  createSchema(database.connection(), testedEngine());
  EXPECT_TRUE(hasSchema(database.connection(), testedEngine()));
  EXPECT_EQ(schemaVersion(database.connection()), kSchemaVersion);
  try {
    createSchema(database.connection(), testedEngine());
    ADD_FAILURE() << "made twice";
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()).find("the database already holds "), std::string::npos)
        << error.what();
  }
}

TEST(Schema, LeavesAForeignDatabaseUntouchedWhereATableIsTaken) {
  OpenDatabase database;
  database.run("CREATE TABLE kt7tsetting (A TEXT)");
  EXPECT_THROW(createSchema(database.connection(), testedEngine()), Error);
  EXPECT_THROW(database.count("KT7TEmployee"), Error);
  EXPECT_EQ(database.count("kt7tsetting"), "0");
}

TEST(Schema, EveryTableAndViewAnswersByAnyLetterCase) {
  OpenDatabase database;
  createSchema(database.connection(), testedEngine());
  for (const Table& table : tables()) {
    const std::string column = table.columns[1].name;
    EXPECT_EQ(database.texts(column, "SELECT " + lowerCase(column) + " FROM " +
                                         upperCase(table.name) + " WHERE 1 = 0"),
              std::vector<std::string>{})
        << table.name;
  }
  for (const View& view : views()) EXPECT_EQ(database.count(lowerCase(view.name)), "0");
  database.run("INSERT INTO kt7Temployee (tempcode, TEMPSALARY) VALUES ('E1', 450.5)");
  EXPECT_EQ(database.text("TempSalary", "SELECT * FROM Kt7TEmployee WHERE TEmpcode='E1'"), "450.5");
  EXPECT_EQ(database.text("TEmpCode", "SELECT * FROM KT7TEmployee WHERE TEmpCode='e1'"), "no row");
}

TEST(Schema, NaturalKeysRefuseDuplicatesButNotNulls) {
  OpenDatabase database;
  createSchema(database.connection(), testedEngine());
  const struct {
    const char* insert;
    bool repeats;
  } cases[] = {
      {"KT7TEmployee (TEmpCode) VALUES ('E1')", false},
      {"KT7TEmployee (TEmpCode) VALUES (NULL)", true},
      {"KT7TTaxRate (TTxRTTaxAlias, TTxRFromBase) VALUES ('PTAX', 150000)", false},
      {"KT7TTaxRate (TTxRTTaxAlias, TTxRFromBase) VALUES ('PTAX', NULL)", true},
      {"KT7TEmpSlipPeriod (TSaPTEmTCode, TSaPDate) VALUES ('M1', '2026-01-31')", false},
      {"KT7TEmpAmassType (TEATBalanceFlag, TEATTEmpCode, TEATCheckGroup, TEATTEmTCode, "
       "TEATPaymentDate) VALUES (0, 'E1', 1, 'M1', '2026-01-31')",
       false},
      {"KT7TEmpActiveAmass (TEAATSAPTEmTCode, TEAATEmpCode, TEAATSaPDate) VALUES ('M1', 'E1', "
       "'2026-01-31')",
       false},
      {"KT7TEmpSlipDoc (TEPSNo) VALUES ('S1')", false},
      {"KT7TSetting (TSetKey) VALUES ('MoneySale')", false},
      {"KT7TEmpHoliday (TEhdTBraCode, TEHdHolidayDate) VALUES ('BR01', '2026-01-01')", true},
      {"KT7TEmpHisPosition (TEHPTEmpCode, TEHPStartDate) VALUES ('E1', '2026-01-01')", true},
  };
  for (const auto& row : cases) {
    const std::string sql = std::string("INSERT INTO ") + row.insert;
    EXPECT_EQ(refusal(database, sql), "") << sql;
    EXPECT_EQ(refusal(database, sql).empty(), row.repeats) << sql;
  }
}

TEST(Schema, ViewsJoinWhatBelongsTogether) {
  OpenDatabase database;
  createSchema(database.connection(), testedEngine());
  for (const char* row :
       {"KT7TEmployee (TEmpCode, TEmpTDivCode) VALUES ('E1', 'D1')",
        "KT7TDivision (TDivCode, TDivName) VALUES ('D1', 'Sales')",
        "KT7TEmployee2 (TEm2TEmpCode, TEm2SkipSlip) VALUES ('E1', 0)",
        "KT7TEmployee (TEmpCode) VALUES ('E2')",
        "KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSNetTotal) VALUES ('S1', 'E1', 10)",
        "KT7TEmpSlipItem (TSmbTEPSNo, TSmbLn, TSmbDebit) VALUES ('S1', 2, 2)",
        "KT7TEmpSlipItem (TSmbTEPSNo, TSmbLn, TSmbDebit) VALUES ('S1', 1, 1)",
        "KT7TEmployeeGrp (TEmGCode) VALUES ('G1')",
        "KT7TEmployeeGrpDoc (TEGdNo, TEGdDate) VALUES ('A1', '2026-01-01')",
        "KT7TEmployeeGrpMB (TEGMTEGdNo, TEGMTEmpCode, TEGMTEmGCode) VALUES ('A1', 'E1', 'G1')"}) {
    database.run(std::string("INSERT INTO ") + row);
  }
  EXPECT_EQ(database.texts("TDivName", "SELECT * FROM KT7VEmployee ORDER BY TEmpCode"),
            (std::vector<std::string>{"Sales", "null"}));
  EXPECT_EQ(database.count("KT7VEmployee WHERE TEm2SkipSlip<>1"), "1");
  EXPECT_EQ(database.texts("TSmbDebit", "SELECT * FROM KT7VEmployeeSlip WHERE TEPSNo='S1'"),
            (std::vector<std::string>{"1", "2"}));
  const Value net = database.value("TEPSNetTotal", "SELECT * FROM KT7VEmployeeSlip");
  EXPECT_EQ(net, Value(Currency::fromWhole(10)));
  const Value from = database.value("TEGdDate", "SELECT * FROM KT7VEmployeeGroup");
  EXPECT_EQ(from, Value(Date::fromYmd(2026, 1, 1)));
  database.run("UPDATE KT7TEmployeeGrpMB SET TEGMTEmpCode='E9' WHERE TEGMTEmpCode='E1'");
  EXPECT_EQ(database.text("TEmGCode",
                          "SELECT * FROM KT7VEmployeeGroup WHERE TEmpCode='E9' AND "
                          "TEGdDate<='2026-01-01'"),
            "G1");
}

TEST(Sample, RefersToWhatIsThereAndIsLoadedWholeOrNotAtAll) {
  OpenDatabase database;
  createSchema(database.connection(), testedEngine());
  loadSample(database.connection());
  for (const char* incomplete :
       {"KT7VEmployee WHERE TBraName IS NULL OR TDivName IS NULL OR TDepName IS NULL OR TSecName "
        "IS NULL OR TPstName IS NULL OR TEm2SkipSlip IS NULL",
        "KT7TEmployee LEFT JOIN KT7TEmployeeType ON TEmTCode=TEmpTEmTCode WHERE TEmTCode IS "
        "NULL"}) {
    EXPECT_EQ(database.count(incomplete), "0") << incomplete;
  }
  for (const SampleFile& file : sampleFiles()) {
    EXPECT_NE(database.count(std::string(file.table)), "0") << file.table;
  }
  database.run("DELETE FROM KT7TBranch");
  EXPECT_THROW(loadSample(database.connection()), ImportError);
  EXPECT_EQ(database.count("KT7TBranch"), "0");
}

}  // namespace
}  // namespace kt7::schema
