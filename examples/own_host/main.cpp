// A host with a database access of its own, here plain SQLite: it writes one data source and takes
// every other collaborator of the library ready-made.
#include <sqlite3.h>

#include <cstdio>
#include <stdexcept>

#include <kt7/kt7.h>
#include <kt7/roles/roles.h>

class OwnSource : public kt7::roles::DataSource {
 public:
  explicit OwnSource(const std::string& file) { check(sqlite3_open(file.c_str(), &database_)); }
  ~OwnSource() override { sqlite3_close(database_); }
  kt7::roles::Engine engine() const override { return kt7::roles::Engine::Sqlite; }

  kt7::roles::Rows query(const std::string& sql) override {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr));
    kt7::roles::Rows rows;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
      const char* declared = sqlite3_column_decltype(statement, i);
      rows.columns.push_back({sqlite3_column_name(statement, i), declared ? declared : ""});
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
      auto& row = rows.values.emplace_back();
      while (row.size() < rows.columns.size()) row.push_back(valueOf(statement, int(row.size())));
    }
    check(sqlite3_finalize(statement));  // tells what a step failed by
    return rows;
  }
  std::int64_t execute(const std::string& sql) override {
    check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr));
    return sqlite3_changes64(database_);
  }

 private:
  static kt7::Value valueOf(sqlite3_stmt* statement, int column) {
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_NULL) return {};
    if (type == SQLITE_INTEGER) return std::int64_t{sqlite3_column_int64(statement, column)};
    if (type == SQLITE_FLOAT) return sqlite3_column_double(statement, column);
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  }
  void check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database_));
  }
  sqlite3* database_ = nullptr;
};

int main(int argc, char** argv) try {
  if (argc != 4) return std::fputs("usage: own_host DATABASE EMPLOYEE SLIP\n", stderr), 2;
  kt7::roles::SourcePlatform platform([](auto& file) { return std::make_unique<OwnSource>(file); });
  kt7::roles::SourceDataObj company(platform, argv[1], kt7::roles::Engine::Sqlite);
  kt7::HRObject hr(platform);
  const auto pay = kt7::Currency::fromWhole(42000);
  const kt7::MonthTax january{.pay = pay,  // CalcPTAX4 by named fields
                              .payDate = kt7::Date::fromYmd(2026, 1, 31),
                              .incomeToDate = pay,
                              .allowances = kt7::Currency::fromWhole(60000)};
  std::printf("day rate %.1f\ntax %.2f\nposted %d\n", hr.GETDAYRATE(argv[2], company),
              static_cast<double>(ask(january, hr, company)),
              hr.SumAmass2(argv[2], 1, "", argv[3], company, 1));
} catch (const std::exception& error) {
  return std::fprintf(stderr, "own_host: %s\n", error.what()), 1;
}
