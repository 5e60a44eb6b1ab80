// What is refused before it reaches the engine, so that nothing of it happened.
#include <fstream>

#include "test_database.h"

namespace kt7::data::test {

namespace {

class RefusedStatementsTest : public DataTest {
 protected:
  RefusedStatementsTest() { connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('kept')"); }
  std::string kept() { return list("SELECT Code AS line FROM KT7TPay ORDER BY Code"); }
};

TEST_F(RefusedStatementsTest, AQuestionThatAnswersNoRowsDoesNothing) {
  for (const char* sql :
       {"DROP TABLE KT7TPay", "drop table if exists KT7TPay",
        "ALTER TABLE KT7TPay DROP COLUMN Code", "/* a */ CREATE TABLE Other(A INTEGER)",
        "CREATE INDEX Other_1 ON KT7TPay(Code)", "DELETE FROM KT7TPay",
        "UPDATE KT7TPay SET Code='x'", "INSERT INTO KT7TPay(Code) SELECT Code FROM KT7TPay",
        "WITH w AS (SELECT 1 AS a) DELETE FROM KT7TPay"}) {
    expectStatementError([&] { opened(sql); }, "answers no rows");
  }
  // Words that the embedded engine does not know.
  for (const char* sql : {"TRUNCATE TABLE KT7TPay", "SELECT * INTO Other FROM KT7TPay"}) {
    expectStatementError([&] { opened(sql); }, engine().embedded ? "" : "answers no rows");
  }
  EXPECT_EQ(kept(), "kept");
  EXPECT_NO_THROW(connection_->Execute("CREATE TABLE Other(A INTEGER)"));
}

TEST_F(RefusedStatementsTest, NoSecondStatementHidesInTheFirst) {
  const std::string first = "INSERT INTO KT7TPay(Code) VALUES('a";
  struct Case {
    const char* rest;
    bool oneToSome = false;  // a comment to some engines
  };
  const Case cases[] = {
      {"\\'); DELETE FROM KT7TPay -- ')"},
      {"\\'); DELETE FROM KT7TPay; INSERT INTO KT7TPay(Code) VALUES('\\')"},
      {"'); DELETE FROM KT7TPay -- "},
      {"')/*; */; DELETE FROM KT7TPay"},
      {"')/* /* */; DELETE FROM KT7TPay -- */", true},
      {"')/*!; DELETE FROM KT7TPay*/", true},
      {"')/*M!100000 ; DELETE FROM KT7TPay*/", true},
      {"') # '\n; DELETE FROM KT7TPay # '"},
      {"'||$$;$$); DELETE FROM KT7TPay"},
      {"'||$a$'$a$); DELETE FROM KT7TPay --'"},
      {"'||E'\\''); DELETE FROM KT7TPay --')"},
      {"'||\"'\"); DELETE FROM KT7TPay --'"},
      {"'||'{fn x(}'); DELETE FROM KT7TPay"},
      {"'||5--1); DELETE FROM KT7TPay\n)", true},
      {"')\v;\vDELETE FROM KT7TPay"},
      {"') -- \r; DELETE FROM KT7TPay", true},
  };
  for (const Case& c : cases) {
    const std::string sql = first + c.rest;
    try {
      connection_->Execute(sql);
      EXPECT_TRUE(c.oneToSome && !engine().odbc) << sql;
      connection_->Execute("DELETE FROM KT7TPay WHERE Code<>'kept'");
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error_number::kStatementFailed) << sql << error.what();
    }
    EXPECT_EQ(kept(), "kept") << sql;
  }
}

TEST_F(RefusedStatementsTest, WhatWouldCommitAnOpenTransactionIsNotRunInIt) {
  if (engine().kind != "MYSQL") GTEST_SKIP() << "tables are made within the transaction";
  const auto inserted = [&] {
    connection_->BeginTrans();
    connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('lost')");
  };
  for (const char* sql : {"CREATE TABLE Other(A INTEGER)", "DROP TABLE IF EXISTS KT7TPay",
                          "alter table KT7TPay ADD COLUMN Later DATE", "TRUNCATE TABLE KT7TPay",
                          "LOCK TABLES KT7TPay WRITE", "ANALYZE TABLE KT7TPay", "BEGIN",
                          "START TRANSACTION", "SET autocommit=1"}) {
    inserted();
    expectStatementError([&] { connection_->Execute(sql); }, "commit or roll back first");
    connection_->RollbackTrans();
    EXPECT_EQ(kept(), "kept") << sql;
  }
  inserted();
  for (const char* sql :
       {"CREATE TEMPORARY TABLE Mine(A INTEGER)", "SET @a=1", "DROP TEMPORARY TABLE Mine"}) {
    EXPECT_NO_THROW(connection_->Execute(sql)) << sql;
  }
  connection_->RollbackTrans();
  EXPECT_EQ(kept(), "kept");
  EXPECT_NO_THROW(connection_->Execute("CREATE TABLE Other(A INTEGER)"));
}

TEST_F(RefusedStatementsTest, AServerReadsNoFileOfThisMachine) {
  if (engine().kind != "MYSQL" || engine().odbc) GTEST_SKIP() << "no such statement";
  const std::string path = (database_.folder() / "secret").string();
  std::ofstream(path) << "secret\n";
  expectStatementError(
      [&] {
        connection_->Execute("LOAD DATA LOCAL INFILE '" + path + "' INTO TABLE KT7TPay(Code)");
      },
      "");
  EXPECT_EQ(kept(), "kept");
}

TEST_F(RefusedStatementsTest, ATextWithAZeroCharacterIsKeptWholeOrNotAtAll) {
  const std::string text("a\0b", 3);
  const auto rows = opened("SELECT * FROM KT7TPay", ado::kOptimistic);
  rows->set("Code", text);
  if (engine().embedded) {
    rows->Update();
    EXPECT_EQ(ask("SELECT Code FROM KT7TPay"), Value(text));
    return;
  }
  expectStatementError([&] { rows->Update(); }, "zero character");
  expectStatementError([&] { ask("SELECT Code FROM KT7TPay WHERE Code=?", {text}); },
                       "zero character");
  EXPECT_EQ(kept(), "kept");
}

}  // namespace

}  // namespace kt7::data::test
