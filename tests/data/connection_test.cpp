#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <thread>
#include <utility>
#include <vector>

#include "host/data/session/connection_string.h"
#include "roles/data/session_errors.h"
#include "test_database.h"

namespace kt7::data::test {

namespace {

class ConnectionTest : public DataTest {
 protected:
  std::string rowCount() { return text("SELECT COUNT(*) FROM KT7TPay"); }
  void endAtTheServer(ado::Connection& victim, bool whileIdle = false) {
    const bool mysql = engine().kind == "MYSQL";
    const std::string id =
        askOne(victim, mysql ? "SELECT CONNECTION_ID()" : "SELECT pg_backend_pid()", {})
            .joinedText();
    if (whileIdle) victim.Close();
    connection_->Execute(mysql ? "KILL " + id : "SELECT pg_terminate_backend(" + id + ")");
  }
};

TEST(ConnectionStringTest, KeywordsAndBraces) {
  const ConnectionString where(" driver = SQLite ;Database={a;b}}c}; pwd=secret;;Database=second");
  EXPECT_EQ(where.driver(), "SQLite");
  EXPECT_EQ(where.database(), "a;b}c");
  EXPECT_EQ(where.value("Server"), "");
  EXPECT_EQ(ConnectionString(";Driver=x;; PwdFile={a;b};Uid=u").textWithout("PwdFile", "a;b"),
            ";Driver=x;; Uid=u");
}

TEST(ConnectionStringTest, AnUnknownKeywordIsRefusedByName) {
  struct Case {
    const char* text;
    const char* words;
  };
  for (const Case& c : {Case{"Driver=SQLite;Databse=x", "'Databse'"},
                        {"Driver=SQLite;Databse=x", "did you mean 'Database'?"},
                        {"Driver=SQLite;Database=x;Server=y", "'Server'"},
                        {"Driver=MySQL;SslMod=verify", "did you mean 'SslMode'?"},
                        {"Driver=MariaDB;Uid=u;Pasword=SECRET", "did you mean 'Password'?"},
                        {"Driver=MySQL;SslCrl=x", "'SslCrl'"},
                        {"Driver=PostgreSQL;SyncWait=1", "'SyncWait'"},
                        {"Driver=PostgreSQL;Something=else", "it knows Driver, Database"},
                        // What may be the rest of a password is not shown.
                        {"Driver=PostgreSQL;Pwd=a;SECRET=b", "in braces"}}) {
    for (const auto& action : {std::function<void()>([&] { createConnection()->Open(c.text); }),
                               std::function<void()>([&] { createDatabase(c.text); })}) {
      try {
        action();
        ADD_FAILURE() << c.text;
      } catch (const Error& error) {
        const std::string told = error.what();
        const bool builtIn = told.find("not built into") == std::string::npos;
        if (builtIn) EXPECT_NE(told.find(c.words), std::string::npos) << told;
        EXPECT_EQ(told.find("SECRET"), std::string::npos) << told;
      }
    }
  }
}

TEST(ConnectionStringTest, ShowsNoPasswordWhateverWasForgotten) {
  const std::string unread = shownConnectionString("secret");
  EXPECT_EQ(unread.find("secret"), std::string::npos);
  const std::vector<std::pair<const char*, std::string>> shown{
      {"Driver=MySQL;Uid=u;PWD=secret;Password={x;y}", "Driver=MySQL;Uid=u;PWD=***;Password=***"},
      {"Driver=SQLite Pwd = secret;Database=x", "Driver=***;Database=x"},
      {"Driver={SQLite;Pwd=secret};Database=x=y", "Driver=***;Database=x=y"},
      {"Driver={SQLite;Pwd=secret", unread},
      {"Driver=SQLite;Database={x}Pwd=secret;", unread},
      {"Driver=SQLite;Pwd={sec}ret}", unread}};
  for (const auto& [given, text] : shown) EXPECT_EQ(shownConnectionString(given), text) << given;
}

TEST(ConnectionStringTest, NamesTheDatabaseKind) {
  EXPECT_EQ(databaseType("Driver=sqlite;Database=x"), "SQLITE");
  EXPECT_EQ(databaseType("driver=MariaDB;Server=x"), "MYSQL");
  EXPECT_EQ(databaseType("Driver=PostgreSQL"), "POSTGRESQL");
  for (const char* unknown : {"Driver=Oracle", "Database=x", ""}) {
    expectConnectionError([&] { databaseType(unknown); }, "SQLite");
  }
}

TEST_F(ConnectionTest, OpensOnlyWhatIsThere) {
  if (!engine().embedded) GTEST_SKIP() << "files of the embedded engine";
  const std::string missing =
      "Driver=SQLite;Database=" + (database_.folder() / "missing.db").string();
  std::ofstream(database_.folder() / "text.db")
      << "this is no database, whatever its name says, but a text";
  struct Case {
    std::string connectionString;
    const char* words;
  };
  const Case cases[] = {
      {missing, "there is no database"},
      {"Driver=SQLite;Database=:memory:", "in memory"},
      {"Driver=SQLite", "Database="},
      {"Driver=SQLite;Database=" + database_.folder().string(), "unable to open"},
      {"Driver=SQLite;Database=" + (database_.folder() / "text.db").string(), "not a database"},
      {"Driver=Oracle;Server=x", "is not known"},
      {"no keyword", "keyword=value"},
  };
  for (const Case& c : cases) {
    const auto connection = createConnection();
    expectConnectionError([&] { connection->Open(c.connectionString); }, c.words);
    expectStatementError([&] { connection->Close(); }, "closed");
  }
  EXPECT_FALSE(std::filesystem::exists(database_.folder() / "missing.db"));
  createDatabase(missing);
  EXPECT_NO_THROW(createConnection()->Open(missing));
}

TEST_F(ConnectionTest, ANewDatabaseIsItsOwnersAlone) {
  if (!engine().embedded) GTEST_SKIP() << "files of the embedded engine";
  namespace fs = std::filesystem;
  const fs::path before = fs::current_path();
  fs::current_path(database_.folder());
  for (const mode_t mask : {0000, 0022, 0277}) {
    const mode_t usual = ::umask(mask);
    // The second is a name like any other, though the engine could take it for a URI.
    for (const std::string name : {"own", "file:x.db?mode=memory"}) {
      const std::string where = "Driver=SQLite;Database=" + name + std::to_string(mask);
      createDatabase(where);
      const auto writer = createConnection();
      writer->Open(where);
      writer->Execute("CREATE TABLE KT7TPay(Code VARCHAR(20))");
      for (const char* part : {"", "-wal", "-shm"}) {
        const fs::path made = name + std::to_string(mask) + part;
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << made << " under " << mask;
      }
    }
    ::umask(usual);
  }
  fs::permissions("own18", fs::perms::group_read, fs::perm_options::add);
  createDatabase("Driver=SQLite;Database=own18");  // is there: left as its owner wants it
  EXPECT_NE(fs::status("own18").permissions() & fs::perms::group_read, fs::perms::none);
  fs::current_path(before);
}

TEST_F(ConnectionTest, IsDurableAndReadableWhileWritten) {
  if (!engine().embedded) GTEST_SKIP() << "the server's own settings";
  EXPECT_EQ(text("PRAGMA journal_mode"), "wal");
  EXPECT_EQ(text("PRAGMA synchronous"), "2");
  EXPECT_EQ(text("PRAGMA busy_timeout"), "5000");
}

TEST_F(ConnectionTest, RefusesMisuse) {
  expectStatementError([&] { connection_->Open(connectionString()); }, "already open");
  expectStatementError([&] { connection_->CommitTrans(); }, "no transaction");
  expectStatementError([&] { connection_->RollbackTrans(); }, "no transaction");
  connection_->BeginTrans();
  expectStatementError([&] { connection_->BeginTrans(); }, "already open");
  connection_->CommitTrans();
  expectStatementError([&] { ask("SELECT 1 FROM KT7TPay WHERE Code=?"); }, "takes 1 parameters");
  connection_->Close();
  expectStatementError([&] { connection_->Execute("DELETE FROM KT7TPay"); }, "closed");
  expectStatementError([&] { opened("SELECT * FROM KT7TPay"); }, "closed");
}

TEST_F(ConnectionTest, RunsOneStatementACall) {
  for (const char* sql : {"INSERT INTO KT7TPay(Code) VALUES('a'); DELETE FROM KT7TPay",
                          "INSERT INTO KT7TPay(Code) VALUES('a');;x",
                          "INSERT INTO KT7TPay(Code) VALUES('a');SELECT 1",
                          "INSERT INTO KT7TPay(Code) VALUES('a'); '"}) {
    expectStatementError([&] { connection_->Execute(sql); }, "only one statement");
  }
  expectStatementError([&] { opened("SELECT 1; DELETE FROM KT7TPay"); }, "only one statement");
  expectStatementError([&] { connection_->Execute(" -- nothing"); }, "empty");
  expectStatementError([&] { connection_->Execute(std::string("DELETE FROM KT7TPay\0 x", 22)); },
                       "zero character");
  EXPECT_EQ(rowCount(), "0");
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a') ; -- and no more\n /* ; */ ;");
  EXPECT_EQ(rowCount(), "1");
}

TEST_F(ConnectionTest, ErrorsCarryTheStatementAndTheNativeCode) {
  connection_->Execute("CREATE UNIQUE INDEX PayCode ON KT7TPay(Code)");
  const std::string insert = "INSERT INTO KT7TPay(Code) VALUES('a')";
  connection_->Execute(insert);
  try {
    connection_->Execute(insert);
    FAIL() << "a second row with the same code";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), error_number::kStatementFailed);
    EXPECT_EQ(error.cause().statement, insert);
    if (engine().embedded) {
      EXPECT_STREQ(error.what(), "UNIQUE constraint failed: KT7TPay.Code");
      EXPECT_EQ(error.cause().nativeCode, 2067);
    } else if (!engine().files) {
      EXPECT_EQ(error.cause().sqlState.substr(0, 2), "23") << error.what();
    }
  }
}

TEST_F(ConnectionTest, PoolRollsBackWhatWasLeftOpen) {
  connection_->BeginTrans();
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('lost')");
  connection_->Close();
  connection_->Open(connectionString());
  EXPECT_EQ(rowCount(), "0");
  EXPECT_NO_THROW(another()->Execute("DELETE FROM KT7TPay"));
}

TEST_F(ConnectionTest, PoolKeepsConnectionsApartByUserAndPassword) {
  if (!engine().embedded) GTEST_SKIP() << "a server knows its users";
  // A temporary table belongs to one physical connection: it shows which one answers.
  connection_->Execute("CREATE TEMPORARY TABLE Mine(a INTEGER)");
  connection_->Close();
  for (const auto& [user, password] : {std::pair("u", ""), std::pair("", "p")}) {
    connection_->Open(connectionString(), user, password);
    expectStatementError([&] { opened("SELECT * FROM Mine"); }, "no such table: Mine");
    connection_->Close();
  }
  createDatabase(connectionString());  // which is there: what still serves is kept
  connection_->Open(connectionString());
  EXPECT_NO_THROW(opened("SELECT * FROM Mine"));
}

TEST_F(ConnectionTest, ADatabaseMadeAnewIsNotAnsweredFromTheOldOne) {
  if (!engine().embedded) GTEST_SKIP() << "a server keeps its files to itself";
  connection_->Close();
  for (const auto& entry : std::filesystem::directory_iterator(database_.folder())) {
    std::filesystem::remove(entry.path());
  }
  createDatabase(connectionString());
  connection_->Open(connectionString());
  EXPECT_EQ(text("SELECT COUNT(*) FROM sqlite_master"), "0");
}

TEST_F(ConnectionTest, ASecondWriterOfTheSameRowFailsInTime) {
  if (engine().files) GTEST_SKIP() << "the embedded engine refuses it at once";
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
  const auto second = another();
  connection_->BeginTrans();
  connection_->Execute("UPDATE KT7TPay SET Flag=1");
  EXPECT_EQ(askOne(*second, "SELECT Flag FROM KT7TPay", {}), Value());  // reading does not wait
  expectStatementError([&] { second->Execute("UPDATE KT7TPay SET Flag=2"); },
                       "of this same thread");
  connection_->CommitTrans();
  EXPECT_NO_THROW(second->Execute("UPDATE KT7TPay SET Flag=3"));
}

TEST_F(ConnectionTest, ATransactionThatFailedIsNotCommitted) {
  connection_->Execute("CREATE UNIQUE INDEX PayCode ON KT7TPay(Code)");
  const bool aborts = engine().kind == "POSTGRESQL";
  for (const char* failing :
       {"INSERT INTO KT7TPay(Code) VALUES('a')", "UPDATE KT7TPay SET Nothing=1", "no statement"}) {
    connection_->BeginTrans();
    connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
    expectStatementError([&] { connection_->Execute(failing); }, "");
    if (aborts) {
      expectStatementError([&] { connection_->Execute("DELETE FROM KT7TPay"); }, "first error was");
      expectStatementError([&] { connection_->CommitTrans(); }, "rolled back");
      EXPECT_NO_THROW(connection_->RollbackTrans());
      expectStatementError([&] { connection_->RollbackTrans(); }, "no transaction");
    } else {
      connection_->CommitTrans();
    }
    EXPECT_EQ(rowCount(), aborts ? "0" : "1") << failing;
    connection_->Execute("DELETE FROM KT7TPay");
  }
}

TEST_F(ConnectionTest, AFullDiskEndsTheTransactionAndNothingOfItIsKept) {
  if (!engine().files) GTEST_SKIP() << "servers have errors of their own for it";
  const auto limited = createRecordset();
  limited->Open("PRAGMA max_page_count=40", *connection_, ado::kStatic, ado::kReadOnly);
  connection_->BeginTrans();
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('first')");
  const std::string large(200000, 'x');
  expectStatementError(
      [&] { connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('" + large + "')"); }, "full");
  expectStatementError([&] { connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('after')"); },
                       "first error was");
  expectStatementError([&] { connection_->CommitTrans(); }, "rolled back");
  EXPECT_NO_THROW(connection_->RollbackTrans());
  EXPECT_EQ(rowCount(), "0");
  connection_->BeginTrans();
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('new')");
  connection_->CommitTrans();
  EXPECT_EQ(rowCount(), "1");
}

TEST_F(ConnectionTest, ALostConnectionIsSaidAndNotUsedAgain) {
  if (engine().files) GTEST_SKIP() << "no connection to lose";
  for (const bool writing : {false, true}) {
    const auto victim = another();
    if (writing) victim->BeginTrans();
    if (writing) victim->Execute("INSERT INTO KT7TPay(Code) VALUES('lost')");
    endAtTheServer(*victim);
    try {
      writing ? victim->CommitTrans() : victim->Execute("DELETE FROM KT7TPay");
      ADD_FAILURE() << "a dead connection answered";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error_number::kConnectionFailed) << error.what();
      // The client may see that the server is gone before it sends anything: then nothing ran.
      constexpr std::int32_t kMysqlServerGone = 2006;
      const bool neverSent = error.cause().nativeCode == kMysqlServerGone;
      EXPECT_EQ(error.cause().sqlState, neverSent ? "08006" : kOutcomeUnknown) << error.what();
    }
    victim->Close();
    EXPECT_NO_THROW(victim->Open(connectionString()));
    EXPECT_EQ(askOne(*victim, "SELECT COUNT(*) FROM KT7TPay", {}), Value(std::int32_t{0}));
  }
}

TEST_F(ConnectionTest, OneLostConnectionTakesTheIdleOnesWithIt) {
  if (engine().files) GTEST_SKIP() << "no connection to lose";
  const auto victim = another();
  const auto idle = another();
  endAtTheServer(*idle, true);
  endAtTheServer(*victim);
  EXPECT_THROW(askOne(*victim, "SELECT 1", {}), Error);
  victim->Close();
  victim->Open(connectionString());
  EXPECT_NO_THROW(askOne(*victim, "SELECT COUNT(*) FROM KT7TPay", {}));
}

TEST_F(ConnectionTest, TheNextServerAnswersForOneThatDoesNot) {
  if (engine().kind != "MYSQL" || engine().odbc) GTEST_SKIP() << "knows one server";
  std::string several = connectionString();
  const std::size_t server = several.find("Server=127.0.0.1;Port=");
  ASSERT_NE(server, std::string::npos);
  several.replace(server, 22, "Server=127.0.0.1:1, 127.0.0.1:");
  const auto connection = createConnection();
  connection->Open(several + ";SyncWait=1");
  EXPECT_NO_THROW(askOne(*connection, "SELECT COUNT(*) FROM KT7TPay", {}));
  EXPECT_NO_THROW(catchUp(*connection));
  EXPECT_THROW(createConnection()->Open(several + ";SyncWait=much"), Error);
  // What every server would refuse is told by the first that answers, not by the last.
  std::string answersFirst = connectionString();
  const std::size_t port = server + 22;
  const std::size_t portEnd = answersFirst.find(';', port);
  ASSERT_NE(portEnd, std::string::npos);
  const std::string number = answersFirst.substr(port, portEnd - port);
  answersFirst.replace(server, portEnd - server, "Server=127.0.0.1:" + number + ",127.0.0.1:1");
  try {
    createConnection()->Open(answersFirst + "_missing");
    ADD_FAILURE() << "opened a database that is not there";
  } catch (const Error& error) {
    EXPECT_EQ(error.cause().nativeCode, 1049) << error.what();
  }
}

TEST_F(ConnectionTest, ASecondWriterOfTheSameThreadFailsAtOnce) {
  if (!engine().embedded) GTEST_SKIP() << "servers lock rows";
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
  const auto second = another();
  // A transaction may also begin by its text, and a written row locks as well.
  for (const char* begin : {"BEGIN IMMEDIATE", "BEGIN"}) {
    connection_->Execute(begin);
    connection_->Execute("UPDATE KT7TPay SET Flag=1");
    expectStatementError([&] { second->Execute("UPDATE KT7TPay SET Flag=2"); }, "of this thread");
    expectStatementError([&] { second->BeginTrans(); }, "of this thread");
    const auto rows = createRecordset();
    rows->Open("SELECT * FROM KT7TPay", *second, ado::kStatic, ado::kOptimistic);
    EXPECT_TRUE(rows->get("Flag").isNull());
    rows->set("Flag", 3);
    expectStatementError([&] { rows->Update(); }, "of this thread");
    connection_->RollbackTrans();
    EXPECT_NO_THROW(second->Execute("UPDATE KT7TPay SET Flag=NULL"));
  }
}

TEST_F(ConnectionTest, ThreadsShareThePool) {
  connection_->Execute("INSERT INTO KT7TPay(Code,Number) VALUES('a',0)");
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([this] {
      const std::vector<std::string> key{"a"};
      for (int turn = 1; turn <= 20; ++turn) {
        another()->Execute("UPDATE KT7TPay SET Number=Number+1 WHERE Code='a'");
        const Value seen =
            askOne(connectionString(), "SELECT Number FROM KT7TPay WHERE Code=?", key);
        EXPECT_GE(seen.toInt32(), turn);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(text("SELECT Number FROM KT7TPay"), "80");
}

}  // namespace

}  // namespace kt7::data::test
