#include "by_hand.h"

#include <libpq-fe.h>
#include <mariadb/mysql.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

#include "host/data/session/connection_string.h"

namespace kt7::bench {

namespace {

void require(bool good, const char* cause) {
  if (good) return;
  std::fprintf(stderr, "by hand: %s\n", cause);
  std::exit(1);
}

class Sqlite final : public ByHand {
 public:
  explicit Sqlite(const std::string& file) {
    require(sqlite3_open(file.c_str(), &database_) == SQLITE_OK, "the file does not open");
  }
  ~Sqlite() override { sqlite3_close(database_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  void execute(const std::string& sql) override {
    sqlite3_stmt* const statement = prepare(sql);
    require(sqlite3_step(statement) == SQLITE_DONE, sqlite3_errmsg(database_));
    sqlite3_finalize(statement);
  }

  void readRow(const std::string& sql, std::vector<std::string>& cells) override {
    sqlite3_stmt* const statement = prepare(sql);
    require(sqlite3_step(statement) == SQLITE_ROW, "no row");
    const int count = sqlite3_column_count(statement);
    cells.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
      cells[static_cast<std::size_t>(i)] = text == nullptr ? "" : text;
    }
    sqlite3_finalize(statement);
  }

 private:
  sqlite3_stmt* prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()), &statement,
                               nullptr) == SQLITE_OK,
            sqlite3_errmsg(database_));
    return statement;
  }

  sqlite3* database_ = nullptr;
};

class Mysql final : public ByHand {
 public:
  Mysql(const data::ConnectionString& where, const std::string& database)
      : connection_(mysql_init(nullptr)) {
    mysql_options(connection_, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    require(
        mysql_real_connect(connection_, std::string(where.value("Server")).c_str(),
                           std::string(where.value("Uid")).c_str(),
                           std::string(where.value("Pwd")).c_str(), database.c_str(),
                           static_cast<unsigned>(std::stoi("0" + std::string(where.value("Port")))),
                           nullptr, 0) != nullptr,
        mysql_error(connection_));
  }
  ~Mysql() override { mysql_close(connection_); }
  Mysql(const Mysql&) = delete;
  Mysql& operator=(const Mysql&) = delete;

  void execute(const std::string& sql) override {
    require(mysql_real_query(connection_, sql.data(), sql.size()) == 0, mysql_error(connection_));
  }

  void readRow(const std::string& sql, std::vector<std::string>& cells) override {
    execute(sql);
    MYSQL_RES* const result = mysql_store_result(connection_);
    const MYSQL_ROW row = result == nullptr ? nullptr : mysql_fetch_row(result);
    require(row != nullptr, "no row");
    cells.resize(mysql_num_fields(result));
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = row[i] == nullptr ? "" : row[i];
    mysql_free_result(result);
  }

 private:
  MYSQL* connection_;
};

class Postgresql final : public ByHand {
 public:
  Postgresql(const data::ConnectionString& where, const std::string& database) {
    const std::string values[] = {std::string(where.value("Server")),
                                  std::string(where.value("Port")), std::string(where.value("Uid")),
                                  std::string(where.value("Pwd")), database};
    const char* const keywords[] = {"host", "port", "user", "password", "dbname", nullptr};
    const char* const texts[] = {values[0].c_str(), values[1].c_str(), values[2].c_str(),
                                 values[3].c_str(), values[4].c_str(), nullptr};
    connection_ = PQconnectdbParams(keywords, texts, 0);
    require(PQstatus(connection_) == CONNECTION_OK, PQerrorMessage(connection_));
  }
  ~Postgresql() override { PQfinish(connection_); }
  Postgresql(const Postgresql&) = delete;
  Postgresql& operator=(const Postgresql&) = delete;

  void execute(const std::string& sql) override { PQclear(answerOf(sql, PGRES_COMMAND_OK)); }

  void readRow(const std::string& sql, std::vector<std::string>& cells) override {
    PGresult* const result = answerOf(sql, PGRES_TUPLES_OK);
    require(PQntuples(result) > 0, "no row");
    const int count = PQnfields(result);
    cells.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) cells[static_cast<std::size_t>(i)] = PQgetvalue(result, 0, i);
    PQclear(result);
  }

 private:
  PGresult* answerOf(const std::string& sql, ExecStatusType wanted) {
    PGresult* const result = PQexec(connection_, sql.c_str());
    require(PQresultStatus(result) == wanted, PQerrorMessage(connection_));
    return result;
  }

  PGconn* connection_ = nullptr;
};

}  // namespace

std::unique_ptr<ByHand> sqliteByHand(const std::string& file) {
  return std::make_unique<Sqlite>(file);
}

std::unique_ptr<ByHand> mysqlByHand(const std::string& server, const std::string& database) {
  return std::make_unique<Mysql>(data::ConnectionString(server), database);
}

std::unique_ptr<ByHand> postgresqlByHand(const std::string& server, const std::string& database) {
  return std::make_unique<Postgresql>(data::ConnectionString(server), database);
}

}  // namespace kt7::bench
