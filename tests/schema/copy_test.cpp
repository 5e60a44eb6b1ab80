#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include <kt7/error.h>
#include "host/data/session/pool.h"
#include "host/schema/transfer/copy.h"
#include "schema/open_database.h"
#include "support/company.h"

namespace kt7::schema {
namespace {

/// Every row of every table of a company, with its row id.
std::string dumpOf(ado::Connection& connection) {
  std::string text;
  for (const Table& table : tables()) {
    if (!isCompanyData(table)) continue;
    text += table.name + "\n";
    dumpTable(connection, table, RowIds::Shown,
              [&](std::string_view line) { text.append(line).append("\n"); });
  }
  return text;
}

bool allSame(const std::vector<CopiedTable>& copied) {
  return std::ranges::all_of(copied, &CopiedTable::same);
}

/// Ends its own process, without a word to anybody, once so many rows are copied.
struct KilledAfter : CopyListener {
  explicit KilledAfter(std::int64_t rows) : rows_(rows) {}
  void copied(std::int64_t rows, std::int64_t) override {
    if (rows >= rows_) ::kill(::getpid(), SIGKILL);
  }
  std::int64_t rows_;
};

/// The sample company in the embedded engine, an empty database of the engine under test.
class CopyCompany : public testing::Test {
 protected:
  CopyCompany() {
    test::makeSampleCompany(source_);
    target_.make();
    open();
  }
  void open() {
    from_ = data::createConnection();
    to_ = data::createConnection();
    from_->Open(source_.connectionString());
    to_->Open(target_.connectionString());
  }
  void close() {
    from_.reset();
    to_.reset();
    data::dropIdleSessions(source_.connectionString());
    data::dropIdleSessions(target_.connectionString());
  }
  std::string refusal() {
    try {
      copyCompany(*from_, *to_, silent_);
      return "";
    } catch (const Error& error) {
      return error.what();
    }
  }
  SchemaState::Kind targetKind() { return schemaState(*to_, testedEngine()).kind; }

  test::TemporaryDatabase source_{test::embeddedEngine()};
  test::TemporaryDatabase target_;
  std::unique_ptr<ado::Connection> from_, to_;
  CopyListener silent_;
};

TEST_F(CopyCompany, ThereAndBackIsTheSameByteForByte) {
  for (const char* row :
       {"KT7TUser (TUsrRowID, TUsrID, TUsrName) VALUES (70, 1, 'O''Brien \\ก\t?')",
        "KT7TUser (TUsrRowID, TUsrID, TUsrName) VALUES (-3, 2, '')",
        "KT7TEmpHisPosition (TEHPTEmpCode, TEHPStartDate, TEHPSalary, TEHPFlag3) VALUES ('E0001', "
        "'0101-12-31', -0.0001, '9999-12-31 23:59:59')",
        "KT7TSetting (TSetKey, TSetNumber) VALUES ('Third', 0.1), ('Tiny', 1e-300)"}) {
    from_->Execute(std::string("INSERT INTO ") + row);
  }
  const std::vector<CopiedTable> copied = copyCompany(*from_, *to_, silent_);
  EXPECT_TRUE(allSame(copied));
  EXPECT_EQ(targetKind(), SchemaState::Kind::Current);

  const test::TemporaryDatabase home(test::embeddedEngine());
  home.make();
  const auto back = data::createConnection();
  back->Open(home.connectionString());
  EXPECT_TRUE(allSame(copyCompany(*to_, *back, silent_)));
  const std::string dump = dumpOf(*from_);
  EXPECT_EQ(dumpOf(*back), dump);
  EXPECT_NE(dump.find("70\t1\tO'Brien \\\\ก\\t?\t\\N\n"), std::string::npos);
  EXPECT_NE(dump.find("-3\t2\t\t\\N\n"), std::string::npos);

  // The next row comes after all that were copied.
  to_->Execute("INSERT INTO KT7TUser (TUsrID) VALUES (3)");
  const auto row = data::createRecordset();
  row->Open("SELECT TUsrRowID FROM KT7TUser WHERE TUsrID=3", *to_, ado::kStatic, ado::kReadOnly);
  EXPECT_EQ(row->get("TUsrRowID").toInt32(), 71);
}

TEST_F(CopyCompany, GoesOnAfterItWasKilled) {
  close();
  for (const std::int64_t rows : {1, 150, 300}) {
    const pid_t child = ::fork();
    if (child == 0) {
      open();
      KilledAfter killed(rows);
      copyCompany(*from_, *to_, killed, 7);
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << rows;
  }
  open();
  EXPECT_EQ(targetKind(), SchemaState::Kind::UnfinishedCopy);
  EXPECT_TRUE(allSame(copyCompany(*from_, *to_, silent_)));
  EXPECT_EQ(dumpOf(*to_), dumpOf(*from_));
}

TEST_F(CopyCompany, GoesOnWhereTheTablesWereHalfMade) {
  for (const char* table : {"KT7TSchema", "KT7TEmployee"}) {
    to_->Execute(createTableText(*findTable(table), testedEngine()));
  }
  writeSchemaVersion(*to_, kCopyMark);
  EXPECT_TRUE(allSame(copyCompany(*from_, *to_, silent_)));
  EXPECT_EQ(targetKind(), SchemaState::Kind::Current);
}

TEST_F(CopyCompany, IsNoCompanyBeforeBothEndsAgree) {
  struct WritesBetween : CopyListener {
    void copied(std::int64_t rows, std::int64_t ofRows) override {
      if (rows == ofRows) source->Execute("UPDATE KT7TEmployee SET TEmpSalary=1");
    }
    ado::Connection* source = nullptr;
  } listener;
  listener.source = from_.get();
  for (const CopiedTable& table : copyCompany(*from_, *to_, listener)) {
    EXPECT_EQ(table.same(), table.table->name != "KT7TEmployee") << table.table->name;
  }
  EXPECT_EQ(targetKind(), SchemaState::Kind::UnfinishedCopy);
}

TEST_F(CopyCompany, RefusesATargetThatHoldsACompany) {
  createSchema(*to_, testedEngine());
  EXPECT_NE(refusal().find("holds a company already"), std::string::npos);
  from_->Execute("DROP VIEW KT7VEmployeeSlip");
  EXPECT_NE(refusal().find("missing: KT7VEmployeeSlip"), std::string::npos);
}

TEST_F(CopyCompany, NamesTheTableWhoseRowsTheTargetRefuses) {
  from_->Execute("INSERT INTO KT7TSetting (TSetKey) VALUES ('" + std::string(61, 'k') + "')");
  if (test::engine().files) return;  // texts of any length
  EXPECT_EQ(refusal().find("KT7TSetting: "), 0U) << refusal();
}

}  // namespace
}  // namespace kt7::schema
