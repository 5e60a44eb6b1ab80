// Hosts over data sources of their own: one whose source is a driver of the reference host, so that
// both can be held against each other on every engine, and one whose source is made up.
#include <kt7/roles/source_host.h>

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

#include "host/data/session/driver.h"
#include "host/schema/transfer/dump.h"
#include "roles/data/snapshot.h"
#include "support/company.h"
#include "support/opened.h"
#include "support/raises.h"

namespace kt7::roles {
namespace {

const char* declared(data::ColumnKind kind) {
  switch (kind) {
    case data::ColumnKind::Money:
      return "NUMERIC(19,4)";
    case data::ColumnKind::Integer:
      return "INTEGER";
    case data::ColumnKind::Day:
      return "DATE";
    default:
      return "";
  }
}

Engine testedEngine() {
  if (test::engine().odbc) return Engine::Sqlite;  // not tested there
  const std::string& kind = test::engine().kind;
  if (kind == "MYSQL") return Engine::MySql;
  return kind == "POSTGRESQL" ? Engine::PostgreSql : Engine::Sqlite;
}

class DriverSource : public DataSource {
 public:
  explicit DriverSource(const std::string& where)
      : session_(data::openSession(data::ConnectionString(where), {}, {})) {}
  Engine engine() const override { return testedEngine(); }
  Rows query(const std::string& sql) override {
    data::Snapshot snapshot;
    session_->query(sql, snapshot);
    Rows rows;
    const data::ResultShape& shape = *snapshot.shape();
    for (std::size_t i = 0; i < shape.size(); ++i) {
      rows.columns.push_back({shape[i].name, declared(shape[i].kind)});
    }
    for (std::size_t row = 0; row < snapshot.rowCount(); ++row) {
      auto& values = rows.values.emplace_back();
      for (std::size_t i = 0; i < shape.size(); ++i) values.push_back(snapshot.value(row, i));
    }
    return rows;
  }
  std::int64_t execute(const std::string& sql) override { return session_->change(sql, {}); }
  void begin() override { session_->begin(); }
  void commit() override { session_->commit(); }
  void rollback() override { session_->rollback(); }

 private:
  std::unique_ptr<data::Session> session_;
};

class SourceHost : public ::testing::Test {
 protected:
  SourceHost() {
    if (test::engine().odbc) return;
    test::makeSampleCompany(database_);
    platform_.setNow(Date::fromYmd(2026, 2, 1));
  }
  void SetUp() override {
    if (test::engine().odbc) GTEST_SKIP() << "a driver that ODBC hides says no engine";
  }
  std::string seen(const std::string& sql) const {
    return data::askOne(database_.connectionString(), sql, {}).joinedText();
  }
  void run(const std::string& sql) {
    OwnConnection connection(reference_, database_.connectionString());
    connection->Execute(sql);
  }
  std::string dumped(const char* table) {
    std::string lines;
    OwnConnection connection(reference_, database_.connectionString());
    schema::dumpTable(*connection, *schema::findTable(table), schema::RowIds::LeftOut,
                      [&lines](std::string_view line) { lines.append(line) += '\n'; });
    return lines;
  }

  test::TemporaryDatabase database_;
  host::HostPlatform reference_{Date::fromYmd(2026, 2, 1)};
  SourcePlatform platform_{
      [](const std::string& where) { return std::make_unique<DriverSource>(where); }};
  SourceDataObj data_{platform_, database_.connectionString(), testedEngine()};
};

float taxOf(Platform& platform, DataObj& company) {
  Currency none, reduce = Currency::fromWhole(60000), pay = Currency::fromText("51234.5");
  std::int16_t months = 12;
  bool toTen = false;
  return HRObject(platform).CalcPTAX4(company, pay, none, Date::fromYmd(2020, 1, 1), 0, 0, months,
                                      reduce, none, none, none, none, pay, toTen,
                                      Date::fromYmd(2026, 1, 31), none);
}

TEST_F(SourceHost, AnswersAndWritesAsTheReferenceHost) {
  host::HostDataObj company(database_.connectionString());
  run("INSERT INTO KT7TEmpSlipDoc (TEPSNo, TEpSTEmpCode, TEPSCheckGroup, TEpsTSaPDate, "
      "TEPSTotalWorkDay, TEPSNetTotal) VALUES ('N1', 'E0002', 1, '2026-01-31', 22.5, 900)");
  for (const char* item :
       {"'SALARY', 1, 1000.25, 0", "'SALARY', 1, 500, NULL", "'PTAX', 0, 0, 75"}) {
    run(std::string("INSERT INTO KT7TEmpSlipItem (TSmbTEPSNo, TSmbTAMTAlias, TSmbCheckMoney, "
                    "TSmbDebit, TSmbCrebit) VALUES ('N1', ") +
        item + ")");
  }
  for (const char* employee : {"E0001", "E0002", "E0016", "nobody"}) {
    EXPECT_EQ(HRObject(platform_).GETDAYRATE(employee, data_),
              HRObject(reference_).GETDAYRATE(employee, company))
        << employee;
  }
  EXPECT_EQ(taxOf(platform_, data_), taxOf(reference_, company));
  EXPECT_GT(taxOf(platform_, data_), 0);
  const auto posted = [&](Platform& platform, DataObj& by) {
    EXPECT_EQ(HRObject(platform).SumAmass2("E0002", 1, "", "N1", by, 4), 1);
    return dumped("KT7TEmpAmassType");
  };
  const std::string expected = posted(reference_, company);
  EXPECT_NE(expected.find("1500.2500"), std::string::npos) << expected;
  run("DELETE FROM KT7TEmpAmassType");
  EXPECT_EQ(posted(platform_, data_), expected);
  EXPECT_EQ(posted(platform_, data_), expected) << "posted again";
}

TEST_F(SourceHost, WritesBackTheRowsItRead) {
  const std::string where = data_.ConnectionString();
  const std::string bank = "SELECT TOP 1 * FROM KT7TSetting WHERE TSetKey='k'";
  OpenRecordset row(platform_, bank, where, ado::kOptimistic);
  row->AddNew();
  row->set("TSetKey", "k");
  row->Update();
  // By the key that the engine gave; an amount that would not come back equal is refused.
  row->set("TSetNumber", Currency::fromText("900000000000000.0001"));
  EXPECT_EQ(test::raised([&] { row->Update(); }),
            test::engine().exactDecimals ? "none" : "database");
  row->set("TSetNumber", Currency::fromText("0.0003"));
  row->Update();
  auto settings = platform_.createSettingStore();
  EXPECT_EQ(settings->GetNumberSetting("k", where), 0.0003);
  EXPECT_EQ(settings->GetNumberSetting("k' OR '1'='1", where), 0);
  run("DELETE FROM KT7TSetting WHERE TSetKey='k'");
  row->set("TSetText", "x");
  EXPECT_EQ(test::raised([&] { row->Update(); }), "database") << "the row is gone";
  EXPECT_EQ(
      platform_.createDataTool()->QueryNumber(
          "n", "SELECT COUNT(*) AS n FROM KT7TEmployee WHERE year(TEmpSignDate)='2005'", where),
      std::stod(seen("SELECT COUNT(*) FROM KT7TEmployee WHERE TEmpSignDate BETWEEN "
                     "'2005-01-01' AND '2005-12-31'")));
}

/// Answers the same rows always and notes the statements.
struct Told {
  Engine engine = Engine::Sqlite;
  Rows rows;
  std::vector<std::string> statements;
  std::string refused;  // the statement that fails
  bool lost = false;    // by a lost connection
  int opened = 0;
};

class ToldSource : public DataSource {
 public:
  explicit ToldSource(Told& told) : told_(told) {}
  Engine engine() const override { return told_.engine; }
  Rows query(const std::string& sql) override {
    note(sql);
    return told_.rows;
  }
  std::int64_t execute(const std::string& sql) override {
    note(sql);
    return 1;
  }

 private:
  void note(const std::string& sql) {
    told_.statements.push_back(sql);
    if (sql != told_.refused) return;
    if (told_.lost) raiseConnectionFailed("gone");
    throw std::runtime_error("not today");
  }
  Told& told_;
};

class MadeUpSource : public ::testing::Test {
 protected:
  DataObj& opened(Engine engine) {
    told_.engine = engine;
    data_.emplace(platform_, "Driver=MySQL;x", engine).OpenConnection();
    return *data_;
  }
  Told told_;
  SourcePlatform platform_{[this](auto&) {
    ++told_.opened;
    return std::make_unique<ToldSource>(told_);
  }};
  std::optional<SourceDataObj> data_;
};

TEST_F(MadeUpSource, ReadsTextsByTheDeclaredTypeAndValuesByTheirOwn) {
  told_.rows = {.columns = {{"Pay", "DECIMAL(19,4)"},
                            {"Born", "date"},
                            {"Days", "SMALLINT"},
                            {"Name", ""},
                            {"Seen", ""},
                            {"Paid", ""}},
                .values = {{"1234567890123.4567", "2026-01-31", "-7", "12",
                            Date::fromYmd(2026, 2, 1), Currency::fromText("0.1")},
                           {std::int64_t{5}, {}, "x", 2.5, {}, true}}};
  OpenRecordset rows(platform_, "SELECT 1", std::string("c"));
  EXPECT_EQ(rows->get("pay"), Value(Currency::fromText("1234567890123.4567")));
  EXPECT_EQ(rows->get("Born"), Value(Date::fromYmd(2026, 1, 31)));
  EXPECT_EQ(rows->get("Days"), Value(std::int16_t{-7}));
  EXPECT_EQ(rows->get("Name"), Value("12"));
  EXPECT_EQ(rows->get("Seen"), Value(Date::fromYmd(2026, 2, 1)));
  EXPECT_EQ(rows->get("Paid"), Value(Currency::fromText("0.1")));
  rows->MoveNext();
  EXPECT_EQ(rows->get("Pay"), Value(Currency::fromWhole(5)));
  EXPECT_TRUE(rows->get("Born").isNull());
  EXPECT_EQ(rows->get("Days"), Value("x"));
  EXPECT_EQ(rows->get("Paid").toInt32(), 1);
  told_.rows.values.push_back({"too short"});
  EXPECT_EQ(test::raised([&] { OpenRecordset(platform_, "SELECT 1", std::string("c")); }),
            "database");
}

TEST_F(MadeUpSource, GetsOneStatementInTheWordsOfItsEngine) {
  struct Row {
    Engine engine;
    const char* given;
    const char* told;  // "" where it is refused
  };
  for (const Row& row :
       {Row{Engine::Sqlite, "SELECT TOP 2 a FROM KT7TX;", "SELECT  a FROM KT7TX LIMIT 2"},
        Row{Engine::MySql, "DELETE FROM KT7TX WHERE k='KT7TX'",
            "DELETE FROM kt7tx WHERE k='KT7TX'"},
        Row{Engine::PostgreSql, "DELETE FROM KT7TX", "DELETE FROM KT7TX"},
        Row{Engine::Sqlite, "DELETE FROM a WHERE year(d)='2005'",
            "DELETE FROM a WHERE CAST(strftime('%Y', d) AS INTEGER)='2005'"},
        Row{Engine::Sqlite, "DELETE FROM a; DELETE FROM b", ""}}) {
    told_.statements.clear();
    const std::string kind = test::raised([&] { opened(row.engine).ExecuteSql(row.given); });
    EXPECT_EQ(kind, *row.told == '\0' ? "database" : "none") << row.given;
    EXPECT_EQ(told_.statements.empty() ? "" : told_.statements.back(), row.told);
  }
  EXPECT_EQ(test::raised([&] { SourceDataObj(platform_, "my.db", Engine::MySql); }), "database");
}

TEST_F(MadeUpSource, ItsFailuresAreErrorsOfTheLibrary) {
  told_.refused = "DELETE FROM a";
  DataObj& company = opened(Engine::PostgreSql);
  company.BeginTransaction();
  try {
    company.ExecuteSql("DELETE FROM a");
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "not today");
    EXPECT_EQ(error.cause().statement, "DELETE FROM a");
  }
  EXPECT_EQ(test::raised([&] { company.CommitTransaction(); }), "database");
  EXPECT_EQ(told_.statements.back(), "ROLLBACK") << "PostgreSQL would call that COMMIT a success";

  told_.lost = true;
  EXPECT_EQ(test::raised([&] { company.ExecuteSql("DELETE FROM a"); }), "database");
  data_->reset(1);
  EXPECT_EQ(told_.opened, 2) << "another connection";
  company.BeginTransaction();
  company.CloseConnection();
  EXPECT_EQ(told_.statements.back(), "ROLLBACK");
}

TEST_F(MadeUpSource, TokensNeedAHash) {
  const auto utility = platform_.createUtilityObject();
  EXPECT_EQ(test::raised([&] { utility->EncodeWithKey("t", "k"); }), "collaborator");
  platform_.setKeyedHash(
      [](const std::string& text, const std::string& key) { return text + key; });
  EXPECT_EQ(utility->EncodeWithKey("t", "k"), "tk");
}

}  // namespace
}  // namespace kt7::roles
