#include <sqlite3.h>

#include "support/cases.h"
#include "test_database.h"

namespace kt7::data::test {

namespace {

/// The names of the columns and the texts of a row, or the message of a statement that is refused.
using Row = std::vector<std::pair<std::string, std::string>>;
using Rows = std::vector<Row>;

class LiftedResultsTest : public DataTest {
 protected:
  LiftedResultsTest() {
    if (!engine().embedded) return;
    connection_->Execute("CREATE TABLE Other(Name TEXT COLLATE NOCASE, Free, UNIQUE(Name))");
    connection_->Execute(
        "INSERT INTO KT7TPay(Code,Amount,Flag,Number,Rate,Day) "
        "VALUES('a',1.5,1,10,0.5,'2026-01-31'),"
        "('A',2,0,20,1,'2026-02-28'),('it''s',3,NULL,30,2,NULL),('',10,1,5,3,''),('ก',4,1,1,4,'x'"
        ")");
    connection_->Execute("INSERT INTO Other VALUES('a',1),('B','1'),('it''s','b')");
    sqlite3_open(file().string().c_str(), &plain_);
  }
  ~LiftedResultsTest() override { sqlite3_close(plain_); }
  void SetUp() override {
    if (!engine().embedded) GTEST_SKIP() << "compares with SQLite itself";
  }

  /// SQLite itself, given the text as it stands.
  Rows plainly(const std::string& sql) {
    Rows rows;
    char* message = nullptr;
    sqlite3_exec(
        plain_, sql.c_str(),
        [](void* to, int count, char** values, char** names) {
          Row& row = static_cast<Rows*>(to)->emplace_back();
          for (int i = 0; i < count; ++i) {
            row.emplace_back(names[i], values[i] != nullptr ? values[i] : "");
          }
          return 0;
        },
        &rows, &message);
    if (message != nullptr) rows = {{{"refused", message}}};
    sqlite3_free(message);
    return rows;
  }

  /// The same columns by the same names. Asked twice, so that the kept statement answers too.
  Rows throughTheDriver(const std::string& sql, const Rows& like) {
    Rows rows;
    try {
      opened(sql)->Close();
      for (const auto read = opened(sql); !read->Eof(); read->MoveNext()) {
        Row& row = rows.emplace_back();
        if (like.empty()) continue;
        for (const auto& [name, value] : like[0]) {
          row.emplace_back(name, read->get(name).joinedText());
        }
      }
    } catch (const Error& error) {
      rows = {{{"refused", error.what()}}};
    }
    return rows;
  }

  sqlite3* plain_ = nullptr;
};

TEST_F(LiftedResultsTest, AnswerAsTheTextStands) {
  const auto cases = kt7::test::casesOf("data/lifted_questions.txt");
  for (const std::string& sql : cases[0]) {
    const Rows expected = plainly(sql);
    EXPECT_FALSE(expected.empty() && sql.find("one") == std::string::npos) << sql;
    EXPECT_EQ(throughTheDriver(sql, expected), expected) << sql;
  }
}

TEST_F(LiftedResultsTest, WriteAsTheTextStands) {
  const std::string dump =
      "SELECT group_concat(line,'/') AS line FROM (SELECT quote(PayRowID)||quote(Code)||quote("
      "Amount)||quote(Flag)||quote(Number)||quote(Rate)||quote(Day) AS line FROM KT7TPay UNION ALL "
      "SELECT quote(Name)||quote(Free) FROM Other)";
  const Rows before = plainly(dump);
  const auto cases = kt7::test::casesOf("data/lifted_writes.txt");
  for (const std::string& sql : cases[0]) {
    plainly("BEGIN");
    EXPECT_EQ(plainly(sql), Rows{}) << sql;
    const Rows expected = plainly(dump);
    plainly("ROLLBACK");
    EXPECT_NE(expected, before) << "changes nothing: " << sql;
    connection_->BeginTrans();
    connection_->Execute(sql);
    EXPECT_EQ(throughTheDriver(dump, expected), expected) << sql;
    connection_->RollbackTrans();
  }
}

using LiftedOnPostgresqlTest = DataTest;

TEST_F(LiftedOnPostgresqlTest, AnswersAsTheTextStands) {
  if (engine().kind != "POSTGRESQL" || engine().odbc) GTEST_SKIP() << "the server lifts nothing";
  connection_->Execute(
      "INSERT INTO KT7TPay(Code,Amount,Flag,Number,Day) VALUES('a',1.5,1,10,'2026-01-31'),"
      "('it''s',2,0,20,NULL),('',3,NULL,30,'2026-02-28')");
  // A text in C style is not lifted, nor is anything beside it.
  const std::string asItStands = " AND E'x'=E'x'";
  for (const char* condition :
       {"Code='a'", "Code='it''s'", "Code IN ('a','')", "Day>='2026-02-01'", "Number='20'",
        "Amount='1.5'", "Flag='1' OR Code LIKE 'it%'", "Day BETWEEN '2026-01-01' AND '2026-01-31'",
        "Number='x'", "COALESCE(Code,'')=''", "'a'=Code", "'a'='a'", "Code||'x'='ax'",
        "(Code='a' AND (Number='10' OR Day='2026-02-28'))", "year(Day)='2026'", "('b')='b'"}) {
    const std::string sql =
        std::string("SELECT Code||'.' AS line FROM KT7TPay WHERE (") + condition + ")";
    const auto told = [&](const std::string& text) {
      try {
        return list(text + " ORDER BY Number");
      } catch (const Error& error) {
        return error.cause().sqlState;
      }
    };
    const std::string plain = told(sql + asItStands);
    for (int time = 0; time < 3; ++time) EXPECT_EQ(told(sql), plain) << condition;
  }
}

}  // namespace

}  // namespace kt7::data::test
