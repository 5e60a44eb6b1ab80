// The commands that make, upgrade and copy a database, on the engine under test.
#include "cli/command_fixture.h"
#include "host/data/session/pool.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

namespace {

using test::engine;

class DatabaseCommands : public Commands {
 protected:
  DatabaseCommands() { server_.make(); }
  Outcome init(const std::string& db) { return kt7hr({"init", "--db", db}); }
  const std::string& db() const { return server_.connectionString(); }

  test::TemporaryDatabase server_;
};

TEST_F(DatabaseCommands, InitUpgradesWhatIsOlderAndRefusesWhatItDoesNotKnow) {
  ASSERT_EQ(init(db()).exitCode, kDone);
  const Outcome again = init(db());
  EXPECT_EQ(again.exitCode, kDone) << again.err;
  EXPECT_TRUE(says(again.out, "holds a company already: nothing was changed")) << again.out;

  test::execute(db(), "UPDATE KT7TSchema SET TSchVersion=1");
  const Outcome upgraded = init(db());
  EXPECT_EQ(upgraded.exitCode, kDone) << upgraded.err;
  EXPECT_TRUE(says(upgraded.out, "from version 1 to 2")) << upgraded.out;

  test::execute(db(), "UPDATE KT7TSchema SET TSchVersion=3");
  const Outcome newer = init(db());
  EXPECT_EQ(newer.exitCode, kFailed);
  EXPECT_TRUE(says(newer.err, "of version 3")) << newer.err;
  test::execute(db(), "DROP TABLE KT7TUserRight");
  test::execute(db(), "UPDATE KT7TSchema SET TSchVersion=2");
  const Outcome partial = init(db());
  EXPECT_EQ(partial.exitCode, kFailed);
  EXPECT_TRUE(says(partial.err, "missing: KT7TUserRight;")) << partial.err;
}

TEST_F(DatabaseCommands, WorkOnACompanyOfThisVersionOnly) {
  ASSERT_EQ(kt7hr({"init", "--sample", "--db", db()}).exitCode, kDone);
  const std::string rows = written("rows.csv", "TBraCode\nB9\n");
  const std::vector<std::vector<std::string>> own{{"payroll", "--month", "2026-01"},
                                                  {"payroll", "--month", "2026-01", "--share"},
                                                  {"employee", "show", "E0001"},
                                                  {"employee", "rename", "E0001", "X1", "--yes"},
                                                  {"user", "add", "9"},
                                                  {"user", "show", "9"},
                                                  {"setting", "set", "A", "1"},
                                                  {"import", "KT7TBranch", rows}};
  const std::vector<std::vector<std::string>> ofAnyMaker{
      {"call", "GETDAYRATE", R"({"EmployeeCode":"E0001"})"}, {"rpc"}};
  const auto expectAll = [&](const auto& commands, int exitCode, const char* part) {
    for (std::vector<std::string> words : commands) {
      words.insert(words.end(), {"--db", db()});
      const Outcome outcome = kt7hr(words);
      EXPECT_EQ(outcome.exitCode, exitCode) << words[0] << ": " << outcome.err;
      EXPECT_TRUE(says(outcome.err, part)) << words[0] << ": " << outcome.err;
      if (exitCode != kDone) EXPECT_EQ(outcome.out, "") << words[0];
    }
  };
  const struct {
    const char* version;
    const char* advice;
  } cases[] = {{"1", "run kt7hr init on this database to upgrade them to version 2"},
               {"3", "of version 3, this kt7hr knows them up to 2; use a newer one"},
               {"-1", "a copy that was never finished; run the same kt7hr copy again"}};
  for (const auto& row : cases) {
    test::execute(db(), std::string("UPDATE KT7TSchema SET TSchVersion=") + row.version);
    expectAll(own, kFailed, row.advice);
    expectAll(ofAnyMaker, kFailed, row.advice);
  }
  // Another program's: it keeps no version.
  test::execute(db(), "DROP TABLE KT7TSchema");
  expectAll(own, kFailed, "where another program keeps it only kt7hr call and kt7hr rpc work");
  expectAll(ofAnyMaker, kDone, "");
  for (const char* table : {"KT7TEmpSlipDoc", "KT7TUser", "KT7TSetting WHERE TSetKey='A'",
                            "KT7TBranch WHERE TBraCode='B9'", "KT7TEmployee WHERE TEmpCode='X1'"}) {
    EXPECT_EQ(data::askOne(db(), std::string("SELECT COUNT(*) FROM ") + table, {}).toInt32(), 0)
        << table;
  }
}

TEST_F(DatabaseCommands, InitMakesAnewWhatWasBrokenOff) {
  const Engine dialect = engineOf(engine().kind);
  const auto makeSome = [&] {
    for (const char* table : {"KT7TSchema", "KT7TUser"}) {
      test::execute(db(), schema::createTableText(*schema::findTable(table), dialect));
    }
  };
  makeSome();
  test::execute(db(), "INSERT INTO KT7TUser (TUsrID) VALUES (7)");
  const Outcome kept = init(db());
  EXPECT_EQ(kept.exitCode, kFailed);
  EXPECT_TRUE(says(kept.err, "where it holds rows restore it")) << kept.err;
  EXPECT_EQ(data::askOne(db(), "SELECT TUsrID FROM KT7TUser", {}).toInt32(), 7);

  test::execute(db(), "DELETE FROM KT7TUser");
  const Outcome made = kt7hr({"init", "--sample", "--db", db()});
  EXPECT_EQ(made.exitCode, kDone) << made.err;
  EXPECT_EQ(data::askOne(db(), "SELECT COUNT(*) FROM KT7TEmployee", {}).toInt32(), 40);
}

TEST_F(DatabaseCommands, InitMakesTheFunctionOfTheEngineAnew) {
  ASSERT_EQ(init(db()).exitCode, kDone);
  if (engine().kind != "POSTGRESQL") return;
  test::execute(db(), "DROP FUNCTION year(date)");
  EXPECT_TRUE(says(init(db()).out, "year() was made anew"));
  EXPECT_TRUE(says(init(db()).out, "nothing was changed"));
}

/// A login of its own that lacks the right to make what it needs.
class WeakUser {
 public:
  explicit WeakUser(const std::string& database) : database_(database) {
    if (engine().templates) {
      test::execute(server(), "CREATE ROLE kt7_weak LOGIN PASSWORD 'weak'");
      return;
    }
    const std::string name = database_.substr(database_.rfind('=') + 1);
    test::execute(server(), "CREATE USER kt7_weak@'127.0.0.1' IDENTIFIED BY 'weak'");
    test::execute(server(), "GRANT CREATE, DROP, ALTER, INDEX, SELECT, INSERT, UPDATE, DELETE ON " +
                                name + ".* TO kt7_weak@'127.0.0.1'");
  }
  ~WeakUser() {
    data::dropIdleSessions(login());
    test::execute(server(),
                  engine().templates ? "DROP ROLE kt7_weak" : "DROP USER kt7_weak@'127.0.0.1'");
  }
  WeakUser(const WeakUser&) = delete;
  WeakUser& operator=(const WeakUser&) = delete;

  std::string login() const { return "Uid=kt7_weak;Pwd=weak;" + database_; }

 private:
  std::string server() const {
    return engine().server + (engine().templates ? ";Database=postgres" : "");
  }
  std::string database_;
};

TEST_F(DatabaseCommands, InitWithoutRightsTellsWhichAndLeavesNothing) {
  if (engine().files || engine().odbc) return;
  const WeakUser user(db());
  const Outcome refused = init(user.login());
  EXPECT_EQ(refused.exitCode, kFailed);
  EXPECT_TRUE(says(refused.err, "an administrator grants what is missing: GRANT CREATE"))
      << refused.err;
  const auto connection = data::createConnection();
  connection->Open(db());
  EXPECT_FALSE(schema::hasSchema(*connection, engineOf(engine().kind)));
}

TEST_F(DatabaseCommands, InitByOneWhoMayNotUseTheDatabaseTellsWhatAnAdministratorRuns) {
  if (engine().kind != "MYSQL" || engine().odbc) return;
  test::execute(engine().server, "CREATE USER kt7_nobody@'127.0.0.1' IDENTIFIED BY 'nobody'");
  const Outcome refused = init("Uid=kt7_nobody;Pwd=nobody;" + db());
  test::execute(engine().server, "DROP USER kt7_nobody@'127.0.0.1'");
  EXPECT_EQ(refused.exitCode, kFailed);
  EXPECT_TRUE(says(refused.err, "have an administrator run: CREATE DATABASE")) << refused.err;
}

TEST_F(DatabaseCommands, CopyMovesACompanyOnce) {
  ASSERT_EQ(kt7hr({"init", "--sample", "--db", database()}).exitCode, kDone);
  const Outcome copied = kt7hr({"copy", "--from", database(), "--to", db()});
  EXPECT_EQ(copied.exitCode, kDone) << copied.err;
  EXPECT_TRUE(says(copied.out, "KT7TEmployee                  40        40  ")) << copied.out;
  EXPECT_TRUE(says(copied.out, "both ends agree")) << copied.out;
  EXPECT_EQ(copied.err, "");

  const Outcome again = kt7hr({"copy", "--from", database(), "--to", db()});
  EXPECT_EQ(again.exitCode, kFailed);
  EXPECT_TRUE(says(again.err, "holds a company already")) << again.err;
  EXPECT_EQ(kt7hr({"copy", "--from", "company.db", "--to", db()}).exitCode, kWrongUse);
  const Outcome refused =
      kt7hr({"import", "KT7TRunLease", written("a.csv", "TRLeRun\n"), "--db", database()});
  EXPECT_EQ(refused.exitCode, kFailed);
  EXPECT_TRUE(says(refused.err, "kept by this system itself")) << refused.err;
}

}  // namespace

}  // namespace kt7::cli
