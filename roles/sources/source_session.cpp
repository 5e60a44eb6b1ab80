#include "roles/sources/source_session.h"

#include <utility>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/data/primary_key.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"
#include "roles/sources/source_rows.h"

namespace kt7::roles {

namespace {

const data::Dialect& dialectOf(Engine engine) {
  // Nobody knows how many statements of a text a source would run.
  static constexpr data::Dialect kSqlite{
      .limitForTop = true, .yearsByText = true, .runsSeveral = true};
  static constexpr data::Dialect kMySql{
      .limitForTop = true, .foldsTableNames = true, .runsSeveral = true, .definitionsCommit = true};
  static constexpr data::Dialect kPostgreSql{.limitForTop = true, .runsSeveral = true};
  switch (engine) {
    case Engine::MySql:
      return kMySql;
    case Engine::PostgreSql:
      return kPostgreSql;
    case Engine::Sqlite:
      return kSqlite;
    case Engine::SqlServer:
    case Engine::Other:
      break;
  }
  raiseConnectionFailed("a host's data source is one of SQLite, MySQL or PostgreSQL");
}

const char* primaryKeyQuestion(Engine engine) {
  switch (engine) {
    case Engine::MySql:
      return data::kPrimaryKeyInMysql;
    case Engine::PostgreSql:
      return data::kPrimaryKeyInPostgresql;
    default:
      break;
  }
  return data::kPrimaryKeyInSqlite;
}

}  // namespace

SourceSession::SourceSession(std::unique_ptr<DataSource> source)
    : source_(std::move(source)), engine_(source_->engine()) {}

SourceSession::~SourceSession() {
  if (!begun_ || lost_) return;
  try {
    source_->rollback();
  } catch (const std::exception&) {
    // The source goes, and with it the connection: the engine rolls back.
  }
}

/// PostgreSQL answers the COMMIT of a transaction in which a statement failed by rolling it back,
/// and calls that a success.
void SourceSession::noteFailure(const char* text) {
  if (begun_ && engine_ == Engine::PostgreSql && firstCause_.empty()) firstCause_ = text;
}

template <class Call>
auto SourceSession::guarded(const std::string& sql, Call call) {
  try {
    return call();
  } catch (const Error& error) {
    lost_ = lost_ || error.number() == error_number::kConnectionFailed;
    noteFailure(error.what());
    throw;
  } catch (const std::exception& failure) {
    noteFailure(failure.what());
    raiseStatementFailed(failure.what(), {sql, 0, {}});
  }
}

std::string SourceSession::inItsWords(const std::string& sql) {
  text_.readOne(sql, dialectOf(engine_));
  if (begun_ && text_.commitsFirst()) data::raiseCommitsFirst(sql);
  return std::string(text_.text());
}

void SourceSession::execute(const std::string& sql) {
  const std::string text = inItsWords(sql);
  guarded(sql, [&] { source_->execute(text); });
}

void SourceSession::query(const std::string& sql, data::Snapshot& rows) {
  const std::string text = inItsWords(sql);
  if (text_.answersNoRows()) data::raiseAnswersNoRows(sql);
  readRows(guarded(sql, [&] { return source_->query(text); }), rows, sql);
}

/// False where it answers no row.
bool SourceSession::ask(const std::string& sql, data::Snapshot& rows) {
  readRows(guarded(sql, [&] { return source_->query(sql); }), rows, sql);
  return rows.rowCount() > 0 && rows.shape()->size() > 0;
}

std::int64_t SourceSession::madeKey(const std::string& sql) {
  data::Snapshot rows;
  if (!ask(sql, rows)) raiseStatementFailed("the key of the new row is not known", {sql, 0, {}});
  return rows.whole(0, 0);
}

Value SourceSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  const std::vector<data::Stored> values(parameters.begin(), parameters.end());
  data::Snapshot rows;
  const bool found = ask(templates_.withLiterals(sql, values, dialectOf(engine_)), rows);
  return found ? rows.value(0, 0) : Value();
}

data::Stored SourceSession::stored(const Value& value, data::ColumnKind kind) const {
  return engine_ == Engine::Sqlite ? data::storedAsDouble(value, kind)
                                   : data::storedOnServer(value, kind);
}

std::int64_t SourceSession::change(const std::string& sql, std::span<const data::Stored> values) {
  const std::string& text = templates_.withLiterals(sql, values, dialectOf(engine_));
  return guarded(text, [&] { return source_->execute(text); });
}

std::int64_t SourceSession::insert(const std::string& sql, std::span<const data::Stored> values,
                                   const std::string& key) {
  if (key.empty()) return change(sql, values), 0;
  if (engine_ == Engine::PostgreSql) {
    const std::string returning = sql + " RETURNING " + key;
    return madeKey(templates_.withLiterals(returning, values, dialectOf(engine_)));
  }
  change(sql, values);
  return madeKey(engine_ == Engine::Sqlite ? "SELECT last_insert_rowid()"
                                           : "SELECT LAST_INSERT_ID()");
}

std::string SourceSession::primaryKey(const std::string& table) {
  const std::string folded = lowerCase(table);
  if (const auto known = primaryKeys_.find(folded); known != primaryKeys_.end()) {
    return known->second;
  }
  std::string name = askOne(primaryKeyQuestion(engine_), {&folded, 1}).joinedText();
  if (!name.empty()) primaryKeys_.emplace(folded, name);
  return name;
}

void SourceSession::begin() {
  if (begun_) {
    raiseStatementFailed("a transaction is already open on this connection", {"BEGIN", 0, {}});
  }
  guarded("BEGIN", [&] { source_->begin(); });
  begun_ = true;
  refused_ = false;
}

void SourceSession::requireTransaction(const char* statement) const {
  if (!begun_)
    raiseStatementFailed("no transaction is open on this connection", {statement, 0, {}});
}

void SourceSession::commit() {
  requireTransaction("COMMIT");
  if (!firstCause_.empty()) {
    const std::string cause = firstCause_;
    rollback();
    refused_ = true;
    data::raiseCannotCommit(cause);
  }
  guarded("COMMIT", [&] { source_->commit(); });
  begun_ = false;
}

void SourceSession::rollback() {
  if (std::exchange(refused_, false)) return;
  requireTransaction("ROLLBACK");
  begun_ = false;
  firstCause_.clear();
  guarded("ROLLBACK", [&] { source_->rollback(); });
}

}  // namespace kt7::roles
