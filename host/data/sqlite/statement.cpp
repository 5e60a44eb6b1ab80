#include "host/data/sqlite/statement.h"

#include <cerrno>
#include <new>

#include <kt7/error.h>
#include "roles/sql/sql_lexer.h"

namespace kt7::data {

namespace {

std::string_view textOf(sqlite3_stmt* statement, int column) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  const int length = sqlite3_column_bytes(statement, column);
  return bytes == nullptr ? std::string_view{}
                          : std::string_view(bytes, static_cast<std::size_t>(length));
}

ColumnKind declaredKind(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  return declared == nullptr ? ColumnKind::Other : columnKind(declared);
}

void bindText(sqlite3_stmt* statement, int place, std::string_view text) {
  sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

/// Whether the log or the file itself met the limit of its size.
bool mayNotGrow(sqlite3* database) {
  for (const int which : {SQLITE_FCNTL_JOURNAL_POINTER, SQLITE_FCNTL_FILE_POINTER}) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database, "main", which, &file);
    if (file == nullptr || file->pMethods == nullptr) continue;
    int reason = 0;
    file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &reason);
    if (reason == EFBIG) return true;
  }
  return false;
}

}  // namespace

void raiseSqlite(sqlite3* database, int code, const std::string& sql) {
  const int native = database != nullptr ? sqlite3_extended_errcode(database) : code;
  const std::string text = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const DatabaseCause cause{sql, native, {}};
  // A file at the limit of its size: for SQLite a device's error, which another connection may not
  // meet; this one goes on as long as the limit does.
  if ((code & 0xff) == SQLITE_IOERR && database != nullptr && mayNotGrow(database)) {
    raiseStatementFailed("the database file may not grow: " + text, {sql, SQLITE_FULL, {}});
  }
  switch (code & 0xff) {
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
    case SQLITE_IOERR:
      raiseConnectionFailed(text, cause);
    default:
      raiseStatementFailed(text, cause);
  }
}

class SqliteStatement::Running {
 public:
  explicit Running(SqliteStatement& statement) : statement_(statement) {}
  ~Running() { sqlite3_reset(statement_.handle_); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  SqliteStatement& statement_;
};

SqliteStatement::SqliteStatement(sqlite3* database, std::string_view text, const std::string& sql)
    : database_(database) {
  if (text.find('\0') != std::string_view::npos) {
    raiseStatementFailed("a statement cannot contain a zero character", {sql, SQLITE_ERROR, {}});
  }
  if (text.size() >
      static_cast<std::size_t>(sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, -1))) {
    raiseStatementFailed("the statement is too long", {sql, SQLITE_TOOBIG, {}});
  }
  const char* rest = nullptr;
  const int code = sqlite3_prepare_v3(database, text.data(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &handle_, &rest);
  if (code != SQLITE_OK) raiseSqlite(database, code, sql);
  const bool alone = isBlankSql(text.substr(static_cast<std::size_t>(rest - text.data())));
  if (handle_ == nullptr || !alone) {
    sqlite3_finalize(handle_);
    raiseStatementFailed(alone ? "the statement is empty" : "only one statement can run at a time",
                         {sql, SQLITE_ERROR, {}});
  }
  parameterCount_ = sqlite3_bind_parameter_count(handle_);
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(handle_); }

void SqliteStatement::requireParameters(std::size_t count) const {
  if (count == static_cast<std::size_t>(parameterCount_)) return;
  raiseStatementFailed("the statement takes " + std::to_string(parameterCount_) +
                           " parameters and was given " + std::to_string(count),
                       {sqlite3_sql(handle_), SQLITE_RANGE, {}});
}

void SqliteStatement::bind(std::span<const std::string> texts) {
  requireParameters(texts.size());
  int place = 0;
  for (const std::string& text : texts) bindText(handle_, ++place, text);
}

void SqliteStatement::bind(std::span<const Stored> values) {
  requireParameters(values.size());
  int place = 0;
  for (const Stored& value : values) {
    ++place;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      sqlite3_bind_int64(handle_, place, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
      sqlite3_bind_double(handle_, place, *number);
    } else if (const auto* money = std::get_if<Currency>(&value)) {
      sqlite3_bind_double(handle_, place, money->toDouble());
    } else if (const auto* text = std::get_if<std::string>(&value)) {
      bindText(handle_, place, *text);
    } else {
      sqlite3_bind_null(handle_, place);
    }
  }
}

bool SqliteStatement::step(const std::string& sql) {
  const int code = sqlite3_step(handle_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  raiseSqlite(database_, code, sql);
}

void SqliteStatement::run(const std::string& sql) {
  const Running running(*this);
  while (step(sql)) {
  }
}

void SqliteStatement::readAll(Snapshot& rows, const std::string& sql) {
  const Running running(*this);
  bool more = step(sql);
  rows.start(shape());
  for (; more; more = step(sql)) readRow(rows);
}

Value SqliteStatement::readFirst(const std::string& sql) {
  const Running running(*this);
  if (!step(sql)) return {};
  switch (sqlite3_column_type(handle_, 0)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return valueOfInteger((*shape())[0].kind, sqlite3_column_int64(handle_, 0));
    case SQLITE_FLOAT:
      return valueOfReal((*shape())[0].kind, sqlite3_column_double(handle_, 0));
    default:
      return valueOfText((*shape())[0].kind, textOf(handle_, 0));
  }
}

// Asked after the first step, which prepares the statement again by itself when a table changed.
const std::shared_ptr<const ResultShape>& SqliteStatement::shape() {
  const int preparations = sqlite3_stmt_status(handle_, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (shape_ == nullptr || preparations != preparations_) {
    preparations_ = preparations;
    std::vector<Column> columns;
    for (int i = 0; i < sqlite3_column_count(handle_); ++i) {
      const char* name = sqlite3_column_name(handle_, i);
      if (name == nullptr) throw std::bad_alloc();
      columns.push_back({name, declaredKind(handle_, i)});
    }
    shape_ = std::make_shared<const ResultShape>(std::move(columns));
  }
  return shape_;
}

void SqliteStatement::readRow(Snapshot& rows) {
  Cell* cell = rows.addRow();
  const int count = static_cast<int>(rows.shape()->size());
  for (int i = 0; i < count; ++i, ++cell) {
    switch (sqlite3_column_type(handle_, i)) {
      case SQLITE_NULL:
        break;
      case SQLITE_INTEGER:
        cell->storage = Cell::Storage::Integer;
        cell->integer = sqlite3_column_int64(handle_, i);
        break;
      case SQLITE_FLOAT:
        cell->storage = Cell::Storage::Real;
        cell->real = sqlite3_column_double(handle_, i);
        break;
      default:
        rows.setText(*cell, textOf(handle_, i));
    }
  }
}

}  // namespace kt7::data
