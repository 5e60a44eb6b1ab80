// Transactions that a server ends, procedures, lost machines: what files do not have.
#include <algorithm>
#include <fstream>
#include <sstream>
#include <thread>

#include "host/data/session/engine_settings.h"
#include "host/data/session/missing_database.h"
#include "test_database.h"

namespace kt7::data::test {

namespace {

class ServerTest : public DataTest {
 protected:
  void SetUp() override {
    if (engine().files) GTEST_SKIP() << "no server";
  }
  static bool postgresql() { return engine().kind == "POSTGRESQL"; }
  std::string codes() { return list("SELECT Code AS line FROM KT7TPay ORDER BY PayRowID"); }
};

TEST_F(ServerTest, TheVictimOfADeadlockCannotCommit) {
  connection_->Execute("INSERT INTO KT7TPay(Code,Number) VALUES('a',1),('b',2)");
  const auto second = another();
  const auto changes = [](ado::Connection& connection, const char* row, const char* code) {
    connection.Execute(std::string("UPDATE KT7TPay SET Code='") + code + "' WHERE PayRowID=" + row);
  };
  connection_->BeginTrans();
  second->BeginTrans();
  changes(*connection_, "1", "first");
  changes(*second, "2", "second");
  bool firstFailed = false;
  std::thread other([&] {
    try {
      changes(*connection_, "2", "first");
    } catch (const Error&) {
      firstFailed = true;
    }
  });
  bool secondFailed = false;
  try {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    changes(*second, "1", "second");
  } catch (const Error&) {
    secondFailed = true;
  }
  other.join();
  ASSERT_NE(firstFailed, secondFailed);
  ado::Connection& victim = firstFailed ? *connection_ : *second;
  ado::Connection& survivor = firstFailed ? *second : *connection_;
  expectStatementError([&] { victim.Execute("DELETE FROM KT7TPay"); }, "first error was");
  expectStatementError([&] { victim.CommitTrans(); }, "rolled back");
  EXPECT_NO_THROW(victim.RollbackTrans());
  survivor.CommitTrans();
  EXPECT_EQ(codes(), firstFailed ? "second,second" : "first,first");
  victim.BeginTrans();
  changes(victim, "1", "again");
  victim.CommitTrans();
  EXPECT_EQ(codes(), firstFailed ? "again,second" : "again,first");
}

TEST_F(ServerTest, AProcedureAnswersItsFirstRowsAndTellsEveryError) {
  if (engine().kind != "MYSQL") GTEST_SKIP() << "procedures answer no rows";
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
  const auto maker = createConnection();
  maker->Open(engine().maker + connectionString().substr(engine().server.size()));
  // What the server runs though it stands in a comment is no second statement to the driver.
  maker->Execute(
      "CREATE PROCEDURE Two() /*! BEGIN SELECT Code AS line FROM kt7tpay; SELECT 2 AS line; END "
      "*/");
  maker->Execute(
      "CREATE PROCEDURE Fails() /*! BEGIN SELECT 1 AS line; SIGNAL SQLSTATE '45000' SET "
      "MESSAGE_TEXT='not today'; END */");
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(list("CALL Two()"), "a");
    EXPECT_NO_THROW(connection_->Execute("CALL Two()"));
    EXPECT_EQ(codes(), "a");
    expectStatementError([&] { connection_->Execute("CALL Fails()"); }, "not today");
    expectStatementError([&] { list("CALL Fails()"); }, "not today");
    EXPECT_EQ(codes(), "a");
  }
}

TEST_F(ServerTest, AProcedureThatEndsTheTransactionIsTold) {
  if (engine().kind != "MYSQL" || engine().odbc) GTEST_SKIP() << "the driver does not say";
  connection_->Execute("CREATE PROCEDURE Ends() COMMIT");
  connection_->BeginTrans();
  connection_->Execute("INSERT INTO KT7TPay(Code) VALUES('a')");
  expectStatementError([&] { connection_->Execute("CALL Ends()"); }, "ended the open transaction");
  connection_->RollbackTrans();
  EXPECT_EQ(codes(), "a");
}

TEST_F(ServerTest, AMissingDatabaseIsToldFromAnyOtherRefusal) {
  if (engine().odbc) GTEST_SKIP() << "in the words of the driver";
  const auto refusal = [](const std::string& where, const std::string& password = "") {
    try {
      createConnection()->Open(where, "", password);
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), error_number::kConnectionFailed);
      const bool isMissing = dynamic_cast<const MissingDatabase*>(&error) != nullptr;
      return error.cause().sqlState + (isMissing ? " missing" : "");
    }
    return std::string("opened");
  };
  EXPECT_EQ(refusal(connectionString() + "_missing"),
            postgresql() ? "3D000 missing" : "42000 missing");
  EXPECT_EQ(refusal(connectionString(), "wrong"), postgresql() ? "28P01" : "28000");
  std::string silent = connectionString();
  silent.insert(silent.find("Port="), "Port=1;");
  EXPECT_EQ(refusal(silent), postgresql() ? "08001" : "HY000");
}

/// Seconds until the system asks a silent peer again, of every connection of this machine.
std::vector<long> secondsToNextQuestion() {
  std::vector<long> seconds;
  std::ifstream connections("/proc/net/tcp");
  for (std::string line; std::getline(connections, line);) {
    std::istringstream words(line);
    std::string number, local, remote, state, queues, timer;
    words >> number >> local >> remote >> state >> queues >> timer;
    constexpr long kTicks = 100;
    if (timer.starts_with("02:"))
      seconds.push_back(std::stol(timer.substr(3), nullptr, 16) / kTicks);
  }
  return seconds;
}

TEST_F(ServerTest, ASilentMachineIsAskedWhetherItIsThere) {
  if (engine().odbc) GTEST_SKIP() << "as the driver is set";
  for (const char* wrong : {"soon", "-1", "1.5", "86401"}) {
    expectConnectionError(
        [&] { createConnection()->Open(connectionString() + ";KeepAlive=" + wrong); },
        "write seconds");
  }
  const auto connection = createConnection();
  connection->Open(connectionString() + ";KeepAlive=20000");
  EXPECT_NO_THROW(askOne(*connection, "SELECT 1", {}));
  if (!std::filesystem::exists("/proc/net/tcp")) return;
  const std::vector<long> seconds = secondsToNextQuestion();
  EXPECT_TRUE(std::ranges::any_of(seconds, [](long left) { return left > 7500 && left <= 10000; }));
}

TEST(MysqlFamilyTest, EveryServerGetsWhatItUnderstands) {
  struct Case {
    const char* words;  // of a server's version, or of a driver
    bool mariadb;
  };
  for (const Case& c : {Case{"5.5.5-10.11.6-MariaDB-0+deb12u1", true}, Case{"MariaDB", true},
                        Case{"11.4.2-mariadb-log", true}, Case{"8.0.36", false},
                        Case{"8.0.36-0ubuntu0.22.04.1", false}, Case{"MySQL", false}}) {
    EXPECT_EQ(isMariadb(c.words), c.mariadb) << c.words;
    const std::string settings = settingsOf(isMariadb(c.words));
    EXPECT_EQ(settings.find("tx_isolation") == settings.find(" tx_isolation") + 1, c.mariadb);
    EXPECT_EQ(settings.find("nopad") != std::string::npos, c.mariadb) << c.words;
  }
}

}  // namespace

}  // namespace kt7::data::test
