#include <gtest/gtest.h>

#include <algorithm>

#include <kt7/error.h>
#include "base/text.h"
#include "host/schema/engine/engine_checks.h"
#include "schema/open_database.h"

namespace kt7::schema {
namespace {

using Kind = SchemaState::Kind;

class Upgrade : public testing::Test {
 protected:
  Upgrade() { createSchema(connection(), testedEngine()); }

  ado::Connection& connection() { return database_.connection(); }
  SchemaState state() { return schemaState(connection(), testedEngine()); }
  void drop(const std::string& what) { database_.run("DROP " + what); }
  void dropSlipIndex() {
    drop(std::string("INDEX ") + (testedEngine() == Engine::MySql ? "kt7x" : "KT7X") +
         (testedEngine() == Engine::MySql ? "empslipdoc_4 ON KT7TEmpSlipDoc" : "EmpSlipDoc_4"));
  }
  /// As the first release made it.
  void makeFirstVersion() {
    dropSlipIndex();
    drop("TABLE KT7TRunLease");
    database_.run("UPDATE KT7TSchema SET TSchVersion=1");
  }
  void addSlip(const std::string& number) {
    database_.run(
        "INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSTEmTCode, TEpsTSaPDate, "
        "TEPSCheckGroup) VALUES ('" +
        number + "', 'E1', 'M1', '2026-01-31', 1)");
  }
  std::string refusal() {
    try {
      upgradeSchema(connection(), testedEngine(), schemaVersion(connection()));
      return "";
    } catch (const Error& error) {
      return error.what();
    }
  }
  OpenDatabase database_;
};

TEST_F(Upgrade, GivesTheFirstVersionWhatTheSecondAdded) {
  makeFirstVersion();
  addSlip("S1");
  EXPECT_EQ(state().kind, Kind::Older);
  EXPECT_EQ(refusal(), "");
  EXPECT_EQ(state().kind, Kind::Current);
  EXPECT_EQ(database_.count("KT7TEmpSlipDoc"), "1");
  EXPECT_EQ(database_.count("KT7TRunLease"), "0");
  EXPECT_THROW(addSlip("S2"), Error);
}

TEST_F(Upgrade, GoesOnWhereItWasBrokenOff) {
  makeFirstVersion();
  database_.run(createTableText(*findTable("KT7TRunLease"), testedEngine()));
  EXPECT_EQ(refusal(), "");
  EXPECT_EQ(state().kind, Kind::Current);
}

TEST_F(Upgrade, NamesSlipsThatPayTheSameTwice) {
  makeFirstVersion();
  addSlip("S1");
  addSlip("S2");
  EXPECT_NE(refusal().find("slips S1 and S2 both pay E1 as M1 on 2026-01-31"), std::string::npos);
  EXPECT_EQ(schemaVersion(connection()), 1);
  database_.run("DELETE FROM KT7TEmpSlipDoc WHERE TEPSNo='S2'");
  EXPECT_EQ(refusal(), "");
  EXPECT_EQ(state().kind, Kind::Current);
}

TEST_F(Upgrade, TellsWhatIsMissingOfItsVersion) {
  dropSlipIndex();
  drop("VIEW KT7VEmployeeSlip");
  drop("TABLE KT7TUserRight");
  database_.run("ALTER TABLE KT7TUserModule DROP COLUMN TUMdIsAdministrator");
  SchemaState found = state();
  EXPECT_EQ(found.kind, Kind::Partial);
  std::ranges::sort(found.missing);
  ASSERT_EQ(found.missing.size(), 4U);
  EXPECT_EQ(found.missing[0], "KT7TUserModule.TUMdIsAdministrator");
  EXPECT_EQ(found.missing[1], "KT7TUserRight");
  EXPECT_EQ(found.missing[2], "KT7VEmployeeSlip");
  EXPECT_EQ(found.missing[3].find("index "), 0U) << found.missing[3];
}

TEST_F(Upgrade, LeavesWhatItDoesNotKnowAlone) {
  const struct {
    const char* version;
    Kind kind;
    const char* text;
  } cases[] = {{"99", Kind::Newer, "use a newer one"},
               {"-1", Kind::UnfinishedCopy, "copy once more"},
               {"0", Kind::Partial, "the version in KT7TSchema"},
               {"2", Kind::Current, ""}};
  for (const auto& row : cases) {
    database_.run(std::string("UPDATE KT7TSchema SET TSchVersion=") + row.version);
    EXPECT_EQ(state().kind, row.kind) << row.version;
    try {
      requireCurrentSchema(connection(), testedEngine());
      EXPECT_EQ(row.kind, Kind::Current);
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find(row.text), std::string::npos) << error.what();
    }
  }
}

TEST_F(Upgrade, NoticesColumnsThatDoNotCompareByteForByte) {
  requireByteOrder(connection(), testedEngine());
  switch (testedEngine()) {
    case Engine::MySql:
      database_.run("ALTER TABLE KT7TUser MODIFY TUsrName VARCHAR(255) COLLATE utf8mb4_general_ci");
      break;
    case Engine::PostgreSql:
      database_.run("ALTER TABLE KT7TUser ALTER TUsrName TYPE VARCHAR(255) COLLATE \"en-x-icu\"");
      break;
    default:
      return;
  }
  try {
    requireByteOrder(connection(), testedEngine());
    ADD_FAILURE() << "not noticed";
  } catch (const Error& error) {
    EXPECT_NE(lowerCase(error.what()).find("kt7tuser.tusrname ("), std::string::npos)
        << error.what();
  }
}

TEST(Schema, IsMadeWithTheSampleOrNotAtAll) {
  OpenDatabase database;
  createSchema(database.connection(), testedEngine(), Content::Sample);
  EXPECT_EQ(database.count("KT7TEmployee"), "40");
  OpenDatabase other;
  // An index of this name keeps the making from getting to its end.
  other.run("CREATE TABLE taken (A INTEGER)");
  other.run("CREATE INDEX KT7XUser_1 ON taken (A)");
  if (testedEngine() == Engine::MySql) return;  // its indexes have names of their table
  EXPECT_THROW(createSchema(other.connection(), testedEngine(), Content::Sample), Error);
  EXPECT_EQ(schemaState(other.connection(), testedEngine()).kind, Kind::Absent);
}

}  // namespace
}  // namespace kt7::schema
