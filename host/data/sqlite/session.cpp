#include "host/data/sqlite/session.h"

#include <utility>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/data/primary_key.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptStatements = 64;
constexpr Dialect kSqliteDialect{.limitForTop = true, .wholeYears = true, .liftsLiterals = true};
constexpr Dialect kUnlifted{.limitForTop = true, .wholeYears = true, .liftsLiterals = false};

}  // namespace

SqliteSession::SqliteSession(SqliteHandle database, std::shared_ptr<WriteLock> lock)
    : database_(std::move(database)),
      lock_(std::move(lock)),
      statements_(kKeptStatements),
      asked_(kKeptStatements),
      fixed_(kKeptStatements) {}

SqliteSession::~SqliteSession() {
  if (!usable()) leaveMovedFile();
  lock_->release(this);
}

/// What was committed is still in the log beside the former name. It goes into the file itself,
/// wherever that lies now: SQLite would take a log that is left behind for one of the next file of
/// that name, and damage it.
void SqliteSession::leaveMovedFile() noexcept {
  sqlite3* const database = database_.get();
  if (!commitsByItself()) sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
  // While another session is still at work the log is its to empty.
  sqlite3_busy_timeout(database, 0);
  sqlite3_wal_checkpoint_v2(database, "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
}

SqliteStatement& SqliteSession::prepared(const std::string& sql) {
  if (Asked* const same = asked_.find(sql)) {
    same->statement->bind(same->literals);
    return *same->statement;
  }
  Asked& asked = asked_.keep(sql, {lifted(sql), text_.literals()});
  asked.statement->bind(asked.literals);
  return *asked.statement;
}

SqliteSession::Shared SqliteSession::lifted(const std::string& sql) {
  text_.read(sql, kSqliteDialect);
  if (const Shared* const kept = statements_.find(text_.text())) return *kept;
  if (!text_.literals().empty()) {
    try {
      const auto made = std::make_shared<SqliteStatement>(database_.get(), text_.text(), sql);
      return statements_.keep(text_.text(), made);
    } catch (const Error&) {
      // Refused with its values lifted: what the engine says to the text as it stands counts.
      text_.read(sql, kUnlifted);
    }
  }
  return statements_.keep(text_.text(),
                          std::make_shared<SqliteStatement>(database_.get(), text_.text(), sql));
}

SqliteStatement& SqliteSession::fixed(const std::string& sql) {
  if (const Shared* const kept = fixed_.find(sql)) return **kept;
  text_.read(sql, kUnlifted);
  return *fixed_.keep(sql, std::make_shared<SqliteStatement>(database_.get(), text_.text(), sql));
}

/// Takes the turn to write before a statement runs, and gives it back on every way out that leaves
/// no transaction that writes.
class SqliteSession::Watched {
 public:
  Watched(SqliteSession& session, const SqliteStatement& statement, const std::string& sql)
      : session_(session) {
    if (!statement.writes()) return;
    session.lock_->take(&session, sql);
    session.holdsLock_ = true;
  }
  ~Watched() {
    if (session_.holdsLock_) session_.noteTransaction();
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

 private:
  SqliteSession& session_;
};

/// A full disk or an error of it ends the whole transaction; what followed would be committed bit
/// by bit.
template <class Work>
auto SqliteSession::standing(const std::string& sql, Work work) {
  if (!firstCause_.empty()) raiseRolledBack(firstCause_, sql);
  try {
    return work();
  } catch (const Error& error) {
    if (begun_ && commitsByItself()) firstCause_ = error.what();
    throw;
  }
}

void SqliteSession::run(SqliteStatement& statement, const std::string& sql) {
  const bool inOwn = commitsByItself() && statement.writes();
  standing(sql, [&] {
    const Watched watched(*this, statement, sql);
    statement.run(sql);
  });
  if (begun_) begun_ = !commitsByItself();  // it may have ended by its text
  if (inOwn && commitsByItself()) requireInPlace(sql);
}

/// SQLite goes on with a file that nobody finds by its name any more.
void SqliteSession::requireInPlace(const std::string& sql) {
  if (!usable()) raiseDatabaseMoved(sql);
}

// SQLite itself is asked whether the lock is still needed: a transaction may also begin by a
// statement's text, and may end by an error.
void SqliteSession::noteTransaction() {
  if (sqlite3_txn_state(database_.get(), "main") == SQLITE_TXN_WRITE) return;
  holdsLock_ = false;
  lock_->release(this);
}

void SqliteSession::execute(const std::string& sql) { run(prepared(sql), sql); }

void SqliteSession::query(const std::string& sql, Snapshot& rows) {
  SqliteStatement& statement = prepared(sql);
  if (!statement.answersRows()) {
    raiseStatementFailed("the statement answers no rows", {sql, SQLITE_ERROR, {}});
  }
  standing(sql, [&] {
    const Watched watched(*this, statement, sql);
    statement.readAll(rows, sql);
  });
}

Value SqliteSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  SqliteStatement& statement = fixed(sql);
  statement.bind(parameters);
  return standing(sql, [&] { return statement.readFirst(sql); });
}

std::int64_t SqliteSession::change(const std::string& sql, std::span<const Stored> values) {
  SqliteStatement& statement = fixed(sql);
  statement.bind(values);
  run(statement, sql);
  return sqlite3_changes64(database_.get());
}

std::int64_t SqliteSession::insert(const std::string& sql, std::span<const Stored> values,
                                   const std::string&) {
  change(sql, values);
  return sqlite3_last_insert_rowid(database_.get());
}

std::string SqliteSession::primaryKey(const std::string& table) {
  const std::string folded = lowerCase(table);
  if (const auto known = primaryKeys_.find(folded); known != primaryKeys_.end()) {
    return known->second;
  }
  std::string name = askOne(kPrimaryKeyInSqlite, {&folded, 1}).joinedText();
  if (!name.empty()) primaryKeys_.emplace(folded, name);
  return name;
}

void SqliteSession::control(const char* statement) {
  const std::string sql = statement;
  run(fixed(sql), sql);
}

void SqliteSession::begin() {
  if (inTransaction()) {
    raiseStatementFailed("a transaction is already open on this connection", {"BEGIN", 0, {}});
  }
  // At once the lock to write: a transaction that only later wants it can find its snapshot
  // outdated, and no waiting helps then.
  control("BEGIN IMMEDIATE");
  begun_ = true;
  refused_ = false;
}

void SqliteSession::commit() {
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"COMMIT", 0, {}});
  }
  if (!firstCause_.empty()) {
    const std::string cause = firstCause_;
    rollback();
    refused_ = true;
    raiseCannotCommit(cause);
  }
  // Before, so that as little as possible goes where nobody looks for it; after, as it may have
  // been moved meanwhile.
  requireInPlace("COMMIT");
  control("COMMIT");
  requireInPlace("COMMIT");
}

void SqliteSession::rollback() {
  if (std::exchange(refused_, false)) return;
  if (!firstCause_.empty()) {
    firstCause_.clear();
    begun_ = false;
    return;
  }
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"ROLLBACK", 0, {}});
  }
  control("ROLLBACK");
}

bool SqliteSession::usable() {
  int moved = 0;
  const int code = sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  // Systems on which an open file cannot be moved do not know the question.
  moved_ = moved != 0 || (code != SQLITE_OK && code != SQLITE_NOTFOUND);
  return !moved_;
}

Stored SqliteSession::stored(const Value& value, ColumnKind kind) const {
  return storedAsDouble(value, kind);
}

}  // namespace kt7::data
