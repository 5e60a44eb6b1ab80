#include "host/data/odbc/session.h"

#include <algorithm>
#include <utility>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/odbc/statement.h"
#include "host/data/session/engine_settings.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr std::size_t kFirstBuffer = 4096;

constexpr const char* kLockTimeout = "HYT00";

/// SQLite's driver tells every error with the general state: the one that other engines tell.
std::string embeddedState(const Diagnosis& cause) {
  constexpr SQLINTEGER kBusy = 5;
  constexpr SQLINTEGER kConstraint = 19;
  if (cause.native == kBusy) return kLockTimeout;
  const bool taken = cause.native == kConstraint && cause.text.find("UNIQUE") != std::string::npos;
  return taken ? "23000" : cause.state;
}

/// A full disk, an error of it, and want of memory.
bool endsEmbeddedTransaction(SQLINTEGER code) {
  constexpr SQLINTEGER kFull = 13, kDiskError = 10, kNoMemory = 7;
  return code == kFull || code == kDiskError || code == kNoMemory;
}

void openAgain(SQLHDBC connection) {
  SQLHSTMT statement = SQL_NULL_HSTMT;
  if (!succeeded(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement))) return;
  SQLExecDirect(statement, bytesOf("BEGIN"), SQL_NTS);
  SQLFreeHandle(SQL_HANDLE_STMT, statement);
}

bool changesSession(std::string_view text) {
  constexpr std::string_view kWords[] = {"BEGIN", "START", "SET", "SAVEPOINT"};
  return std::any_of(std::begin(kWords), std::end(kWords), [text](std::string_view word) {
    return equalNoCase(trimmedBlanks(text).substr(0, word.size()), word);
  });
}

}  // namespace

OdbcSession::Statement::Statement(OdbcSession& session, const std::string& sql) {
  SQLHDBC const connection = session.connection_->get();
  if (!succeeded(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_))) {
    session.writes_ = false;  // nothing was sent
    session.fail(SQL_HANDLE_DBC, connection, sql);
  }
  // Braces in a text are not escapes of the driver manager.
  SQLSetStmtAttr(handle_, SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
}

OdbcSession::OdbcSession(std::unique_ptr<OdbcHandle> connection)
    : connection_(std::move(connection)), buffer_(kFirstBuffer, '\0') {
  const std::string name = connection_->info(SQL_DBMS_NAME);
  // One driver tells the server by its name, the other by its version.
  const bool mariadb = isMariadb(name) || isMariadb(connection_->info(SQL_DBMS_VER));
  kind_ = mariadb ? databaseTypeOf(Engine::MySql) : upperCase(name);
  engine_ = engineOf(kind_);
  applySettings(mariadb);
}

void OdbcSession::applySettings(bool mariadb) {
  dialect_.limitForTop = engine_ != Engine::SqlServer;
  if (engine_ == Engine::MySql) {
    dialect_.foldsTableNames = true;
    dialect_.definitionsCommit = true;
    execute(settingsOf(mariadb));
  } else if (engine_ == Engine::PostgreSql) {
    execute(
        "SELECT set_config('lock_timeout', '5000', false), "
        "set_config('standard_conforming_strings', 'on', false)");
  } else if (isEmbedded()) {
    dialect_.yearsByText = true;
    execute("PRAGMA busy_timeout=5000");
  } else if (engine_ == Engine::SqlServer) {
    execute("SET LOCK_TIMEOUT 5000");
    dialect_.separatesByWords = true;
  }
  dialect_.runsSeveral = true;
  used_ = false;
}

void OdbcSession::fail(SQLSMALLINT type, SQLHANDLE handle, const std::string& sql) {
  constexpr SQLINTEGER kServerGone = 2006;
  constexpr SQLINTEGER kServerLost = 2013;
  constexpr SQLINTEGER kMysqlLockWait = 1205;
  constexpr SQLINTEGER kMysqlDeadlock = 1213;
  Diagnosis cause = diagnosisOf(type, handle);
  if (isEmbedded()) cause.state = embeddedState(cause);
  const bool mysqlLoss =
      engine_ == Engine::MySql && (cause.native == kServerGone || cause.native == kServerLost);
  // "57P..": a PostgreSQL server that ends the connection.
  if (cause.state.starts_with("08") || cause.state.starts_with("57P") || mysqlLoss) {
    lost_ = true;
    const bool neverRan = engine_ == Engine::MySql && cause.native == kServerGone;
    raiseConnectionLost(cause.text, sql, cause.native,
                        writes_ && !neverRan && (!begun_ || sql == "COMMIT"));
  }
  // Class 40: the engine rolled the whole transaction back. PostgreSQL aborts it after any error,
  // but its driver may undo the statement alone and keep the locks, or tell a COMMIT as done.
  const bool aborted = cause.state.starts_with("40") || engine_ == Engine::PostgreSql ||
                       (engine_ == Engine::MySql && cause.native == kMysqlDeadlock) ||
                       (isEmbedded() && endsEmbeddedTransaction(cause.native));
  if (begun_ && aborted && firstCause_.empty()) {
    firstCause_ = cause.text;
    // SQLite ended it by itself, and its driver would for ever fail to end it once more.
    if (isEmbedded()) openAgain(connection_->get());
    SQLEndTran(SQL_HANDLE_DBC, connection_->get(), SQL_ROLLBACK);
  }
  const DatabaseCause told{sql, cause.native, cause.state};
  const bool locked = cause.state == kLockTimeout || cause.state == "55P03" ||
                      (engine_ == Engine::MySql && cause.native == kMysqlLockWait);
  if (locked) raiseRowsLocked(cause.text, told);
  raiseStatementFailed(cause.text, told);
}

void OdbcSession::run(Statement& statement, std::string_view text, const std::string& sql) {
  if (!firstCause_.empty()) raiseRolledBack(firstCause_, sql);
  writes_ = !equalNoCase(trimmedBlanks(text).substr(0, 6), "SELECT");
  // What a text does to transactions the driver does not tell: not for the next user.
  used_ = used_ || changesSession(text);
  const SQLRETURN code =
      SQLExecDirect(statement.get(), bytesOf(text), static_cast<SQLINTEGER>(text.size()));
  if (!succeeded(code) && code != SQL_NO_DATA) fail(SQL_HANDLE_STMT, statement.get(), sql);
}

void OdbcSession::execute(const std::string& sql) {
  text_.readOne(sql, dialect_);
  if (text_.commitsFirst() && begun_) raiseCommitsFirst(sql);
  Statement statement(*this, sql);
  run(statement, text_.text(), sql);
  dropResults(statement, sql);
}

/// Reads what a procedure answers beyond its first result: an error may come late.
void OdbcSession::dropResults(Statement& statement, const std::string& sql) {
  for (;;) {
    const SQLRETURN code = SQLMoreResults(statement.get());
    if (code == SQL_NO_DATA) return;
    if (!succeeded(code)) fail(SQL_HANDLE_STMT, statement.get(), sql);
  }
}

void OdbcSession::query(const std::string& sql, Snapshot& rows) {
  text_.readOne(sql, dialect_);
  if (text_.answersNoRows()) raiseAnswersNoRows(sql);
  if (text_.commitsFirst() && begun_) raiseCommitsFirst(sql);
  Statement statement(*this, sql);
  run(statement, text_.text(), sql);
  readRows(statement, rows, sql);
  dropResults(statement, sql);
}

const std::string& OdbcSession::inlined(const std::string& sql, std::span<const Stored> values) {
  return templates_.withLiterals(sql, values, dialect_);
}

Value OdbcSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  const std::vector<Stored> values(parameters.begin(), parameters.end());
  Statement statement(*this, sql);
  run(statement, inlined(sql, values), sql);
  Snapshot rows;
  readRows(statement, rows, sql);
  return rows.rowCount() == 0 ? Value() : rows.value(0, 0);
}

Stored OdbcSession::stored(const Value& value, ColumnKind kind) const {
  return isEmbedded() ? storedAsDouble(value, kind) : storedOnServer(value, kind);
}

std::int64_t OdbcSession::change(const std::string& sql, std::span<const Stored> values) {
  Statement statement(*this, sql);
  run(statement, inlined(sql, values), sql);
  return statement.changedRows();
}

std::int64_t OdbcSession::askWhole(const std::string& sql, std::span<const Stored> values) {
  Statement statement(*this, sql);
  run(statement, inlined(sql, values), sql);
  Snapshot rows;
  readRows(statement, rows, sql);
  return rows.rowCount() == 0 ? 0 : rows.whole(0, 0);
}

std::int64_t OdbcSession::insert(const std::string& sql, std::span<const Stored> values,
                                 const std::string& key) {
  if (key.empty()) return change(sql, values), 0;
  if (engine_ == Engine::PostgreSql) return askWhole(sql + " RETURNING " + key, values);
  if (engine_ == Engine::SqlServer) {
    const std::string output =
        replaceAll(sql, ") VALUES(", ") OUTPUT INSERTED." + key + " VALUES(");
    return askWhole(output, values);
  }
  change(sql, values);
  return askWhole(isEmbedded() ? "SELECT last_insert_rowid()" : "SELECT LAST_INSERT_ID()", {});
}

std::string OdbcSession::primaryKey(const std::string& table) {
  const std::string folded = lowerCase(table);
  if (const auto known = primaryKeys_.find(folded); known != primaryKeys_.end()) {
    return known->second;
  }
  const bool folds =
      engine_ == Engine::PostgreSql || (engine_ == Engine::MySql && folded.starts_with("kt7"));
  const std::string& name = folds ? folded : table;
  const std::string sql = "the primary key of " + table;
  Statement statement(*this, sql);
  const SQLRETURN code =
      SQLPrimaryKeys(statement.get(), nullptr, 0, nullptr, 0, bytesOf(name), SQL_NTS);
  if (!succeeded(code)) fail(SQL_HANDLE_STMT, statement.get(), sql);
  Snapshot rows;
  readRows(statement, rows, sql);
  constexpr std::size_t kColumnName = 3;
  std::string key;
  if (rows.rowCount() == 1) key = rows.value(0, kColumnName).joinedText();
  if (!key.empty()) primaryKeys_.emplace(folded, key);
  return key;
}

void OdbcSession::autocommit(bool on) {
  const std::uintptr_t value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  const SQLRETURN code =
      SQLSetConnectAttr(connection_->get(), SQL_ATTR_AUTOCOMMIT, numberAttribute(value), 0);
  if (!succeeded(code)) fail(SQL_HANDLE_DBC, connection_->get(), "BEGIN");
}

void OdbcSession::begin() {
  if (begun_) {
    raiseStatementFailed("a transaction is already open on this connection", {"BEGIN", 0, {}});
  }
  writes_ = false;
  autocommit(false);
  begun_ = true;
  refused_ = false;
}

void OdbcSession::endTransaction(SQLSMALLINT how, const char* shown) {
  if (!begun_) {
    raiseStatementFailed("no transaction is open on this connection", {shown, 0, {}});
  }
  // Drivers may tell even the COMMIT of a lost connection as done.
  if (lost_) raiseConnectionLost("its transaction ended with it", shown, 0, false);
  writes_ = true;
  const SQLRETURN code = SQLEndTran(SQL_HANDLE_DBC, connection_->get(), how);
  if (!succeeded(code)) fail(SQL_HANDLE_DBC, connection_->get(), shown);
  begun_ = false;
  firstCause_.clear();
  const bool used = std::exchange(used_, true);  // until it commits by itself again
  autocommit(true);
  used_ = used;
}

void OdbcSession::commit() {
  if (!firstCause_.empty()) {
    const std::string cause = firstCause_;
    rollback();
    refused_ = true;
    raiseCannotCommit(cause);
  }
  endTransaction(SQL_COMMIT, "COMMIT");
}

void OdbcSession::rollback() {
  if (std::exchange(refused_, false)) return;
  endTransaction(SQL_ROLLBACK, "ROLLBACK");
}

bool OdbcSession::usable() {
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttr(connection_->get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  lost_ = lost_ || dead == SQL_CD_TRUE;
  if (lost_) return false;
  // Some drivers only know what the last statement told them.
  try {
    execute("SELECT 1");
  } catch (const Error&) {
    lost_ = true;
  }
  return !lost_;
}

}  // namespace kt7::data
