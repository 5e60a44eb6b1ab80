#include "host/data/mysql/session.h"

#include <mariadb/errmsg.h>
#include <mariadb/mysqld_error.h>

#include <algorithm>
#include <utility>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/data/primary_key.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptShapes = 64;
constexpr Dialect kMysqlDialect{
    .limitForTop = true, .foldsTableNames = true, .definitionsCommit = true};
constexpr const char* kBegin = "START TRANSACTION";
constexpr std::string_view kZeroDate = "0000-00-00";

ColumnKind kindOf(const MYSQL_FIELD& field) {
  switch (field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
      return ColumnKind::SmallInteger;
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return ColumnKind::Integer;
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return ColumnKind::Real;
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return decimalKind(static_cast<int>(field.decimals));
    case MYSQL_TYPE_DATE:
    case MYSQL_TYPE_NEWDATE:
      return ColumnKind::Day;
    case MYSQL_TYPE_DATETIME:
    case MYSQL_TYPE_TIMESTAMP:
      return ColumnKind::Moment;
    case MYSQL_TYPE_NULL:
      return ColumnKind::Other;
    default:
      return ColumnKind::Text;
  }
}

/// Cheap, and different for most results.
std::size_t digestOf(std::span<const MYSQL_FIELD> fields) {
  constexpr std::size_t kPrime = 31;
  std::size_t digest = fields.size();
  for (const MYSQL_FIELD& field : fields) {
    digest = (digest * kPrime + field.name_length) * kPrime + field.type;
  }
  return digest;
}

/// The connection is not fit for use: everything that the client library itself reports, and what
/// the server says when it is about to close. A cluster's node that has lost the others answers
/// "unknown command" to everything: another node may serve.
bool isLoss(unsigned code, std::string_view state) {
  constexpr unsigned kFirstOfClient = 2000, kLastOfClient = 2999;
  constexpr unsigned kSessionKilled = 3169, kIdleTooLong = 4031;  // MySQL's
  constexpr unsigned kLost[] = {ER_SERVER_SHUTDOWN, ER_CONNECTION_KILLED, ER_UNKNOWN_COM_ERROR,
                                kSessionKilled, kIdleTooLong};
  return (code >= kFirstOfClient && code <= kLastOfClient) || state.starts_with("08") ||
         std::find(std::begin(kLost), std::end(kLost), code) != std::end(kLost);
}

/// The statement surely had no effect: it could not be sent, or was refused before it was read.
bool neverRan(unsigned code) {
  constexpr unsigned kUnread[] = {CR_SERVER_GONE_ERROR, CR_NET_PACKET_TOO_LARGE,
                                  ER_NET_PACKET_TOO_LARGE, CR_COMMANDS_OUT_OF_SYNC};
  return std::find(std::begin(kUnread), std::end(kUnread), code) != std::end(kUnread);
}

bool endsTransaction(std::string_view text) {
  const std::string_view words = trimmedBlanks(text);
  return equalNoCase(words.substr(0, 6), "COMMIT") || equalNoCase(words.substr(0, 8), "ROLLBACK");
}

/// A result that is read to its end before the next statement, whatever happens.
struct FreeResult {
  void operator()(MYSQL_RES* result) const { mysql_free_result(result); }
};
using Result = std::unique_ptr<MYSQL_RES, FreeResult>;

}  // namespace

MysqlSession::MysqlSession(MysqlHandle connection, int syncWait)
    : connection_(std::move(connection)), syncWait_(syncWait) {}

void MysqlSession::fail(const std::string& sql) {
  MYSQL* const handle = connection_.get();
  const unsigned code = mysql_errno(handle);
  const std::string text = mysql_error(handle);
  const auto native = static_cast<std::int32_t>(code);
  const DatabaseCause cause{sql, native, mysql_sqlstate(handle)};
  // A cluster's node that fails in the midst of a COMMIT may have kept it.
  const bool commitFailed = code == ER_ERROR_DURING_COMMIT && sql == "COMMIT";
  if (commitFailed || isLoss(code, cause.sqlState)) {
    lost_ = true;
    raiseConnectionLost(text, sql, native,
                        writes_ && !neverRan(code) && (!begun_ || sql == "COMMIT"));
  }
  noteAborted(text);
  if (code == ER_LOCK_WAIT_TIMEOUT) raiseRowsLocked(text, cause);
  raiseStatementFailed(text, cause);
}

unsigned MysqlSession::serverStatus() const {
  unsigned status = 0;
  mariadb_get_infov(connection_.get(), MARIADB_CONNECTION_SERVER_STATUS, &status);
  return status;
}

/// A deadlock rolls the whole transaction back at the server, most other errors do not; an error
/// does not say which, the answer to the next statement does. One that CREATE TABLE ended by itself
/// was not open any more.
void MysqlSession::noteAborted(const std::string& cause) {
  if (!begun_ || !wasOpen_ || !firstCause_.empty()) return;
  if (mysql_query(connection_.get(), "DO 0") != 0) return;
  if ((serverStatus() & SERVER_STATUS_IN_TRANS) == 0) firstCause_ = cause;
}

bool MysqlSession::nextResult(const std::string& sql) {
  const int more = mysql_next_result(connection_.get());
  if (more > 0) fail(sql);
  return more == 0;
}

/// Reads what a procedure answers beyond its first result.
void MysqlSession::dropResults(const std::string& sql) {
  do {
    const Result dropped(mysql_store_result(connection_.get()));
    if (dropped == nullptr && mysql_field_count(connection_.get()) != 0) fail(sql);
  } while (nextResult(sql));
}

void MysqlSession::run(std::string_view text, const std::string& sql) {
  if (!firstCause_.empty()) raiseRolledBack(firstCause_, sql);
  send(text, sql);
}

void MysqlSession::send(std::string_view text, const std::string& sql) {
  while (mysql_more_results(connection_.get()) && mysql_next_result(connection_.get()) == 0) {
    const Result dropped(mysql_store_result(connection_.get()));
  }
  writes_ = !equalNoCase(trimmedBlanks(text).substr(0, 6), "SELECT") && text != kBegin;
  wasOpen_ = (serverStatus() & SERVER_STATUS_IN_TRANS) != 0;
  if (mysql_real_query(connection_.get(), text.data(), static_cast<unsigned long>(text.size())) !=
      0) {
    fail(sql);
  }
}

void MysqlSession::refuseToCommitFirst(const std::string& sql) const {
  if (text_.commitsFirst() && inTransaction()) raiseCommitsFirst(sql);
}

/// A procedure may have ended the transaction of its caller.
void MysqlSession::requireStillOpen(const std::string& sql) const {
  if (!begun_ || !wasOpen_ || (serverStatus() & SERVER_STATUS_IN_TRANS) != 0) return;
  if (endsTransaction(text_.text())) return;
  raiseStatementFailed(
      "the statement ended the open transaction: what was done before it can no longer be rolled "
      "back",
      {sql, 0, {}});
}

void MysqlSession::execute(const std::string& sql) {
  text_.readOne(sql, kMysqlDialect);
  refuseToCommitFirst(sql);
  run(text_.text(), sql);
  dropResults(sql);
  requireStillOpen(sql);
}

void MysqlSession::query(const std::string& sql, Snapshot& rows) {
  text_.readOne(sql, kMysqlDialect);
  if (text_.answersNoRows()) raiseAnswersNoRows(sql);
  refuseToCommitFirst(sql);
  run(text_.text(), sql);
  readRows(sql, rows);
  requireStillOpen(sql);
}

void MysqlSession::readRows(const std::string& sql, Snapshot& rows) {
  readFirst(sql, rows);
  if (nextResult(sql)) dropResults(sql);
}

void MysqlSession::readFirst(const std::string& sql, Snapshot& rows) {
  const Result result(mysql_use_result(connection_.get()));
  if (result == nullptr) {
    if (mysql_errno(connection_.get()) != 0) fail(sql);
    raiseAnswersNoRows(sql);
  }
  const Shape& shape = shapeOf(*result);
  rows.start(shape.columns);
  while (const MYSQL_ROW row = mysql_fetch_row(result.get())) {
    readRow(*result, row, shape, rows);
  }
  if (mysql_errno(connection_.get()) != 0) fail(sql);
}

void MysqlSession::readRow(MYSQL_RES& result, MYSQL_ROW row, const Shape& shape,
                           Snapshot& rows) const {
  const unsigned long* const lengths = mysql_fetch_lengths(&result);
  Cell* cell = rows.addRow();
  const std::size_t count = shape.columns->size();
  for (std::size_t i = 0; i < count; ++i, ++cell) {
    if (row[i] == nullptr) continue;
    const std::string_view text(row[i], lengths[i]);
    if (shape.isDecimal(i)) {
      setDecimal(*cell, text, static_cast<int>(shape.decimals[i]));
      continue;
    }
    switch ((*shape.columns)[i].kind) {
      case ColumnKind::SmallInteger:
      case ColumnKind::Integer:
        setInteger(*cell, text);
        break;
      case ColumnKind::Real:
        setReal(*cell, text);
        break;
      case ColumnKind::Day:
      case ColumnKind::Moment:
        if (!text.starts_with(kZeroDate)) rows.setText(*cell, text);
        break;
      default:
        rows.setText(*cell, text);
    }
  }
}

bool MysqlSession::Shape::isDecimal(std::size_t column) const {
  return types[column] == MYSQL_TYPE_DECIMAL || types[column] == MYSQL_TYPE_NEWDECIMAL;
}

bool MysqlSession::Shape::fits(std::span<const MYSQL_FIELD> fields) const {
  if (fields.size() != types.size()) return false;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const MYSQL_FIELD& field = fields[i];
    if (field.type != types[i] || field.decimals != decimals[i] ||
        std::string_view(field.name, field.name_length) != (*columns)[i].name) {
      return false;
    }
  }
  return true;
}

const MysqlSession::Shape& MysqlSession::shapeOf(MYSQL_RES& result) {
  const std::span<const MYSQL_FIELD> fields(mysql_fetch_fields(&result), mysql_num_fields(&result));
  const std::size_t digest = digestOf(fields);
  for (std::size_t i = 0; i < shapes_.size(); ++i) {
    if (shapes_[i]->digest != digest || !shapes_[i]->fits(fields)) continue;
    if (i == 0) return *shapes_[0];
    std::swap(shapes_[i - 1], shapes_[i]);
    return *shapes_[i - 1];
  }
  auto shape = std::make_unique<Shape>();
  shape->digest = digest;
  std::vector<Column> columns;
  for (const MYSQL_FIELD& field : fields) {
    columns.push_back({std::string(field.name, field.name_length), kindOf(field)});
    shape->types.push_back(field.type);
    shape->decimals.push_back(field.decimals);
  }
  shape->columns = std::make_shared<const ResultShape>(std::move(columns));
  if (shapes_.size() == kKeptShapes) shapes_.pop_back();
  return *shapes_.emplace_back(std::move(shape));
}

Value MysqlSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  const std::vector<Stored> values(parameters.begin(), parameters.end());
  run(templates_.withLiterals(sql, values, kMysqlDialect), sql);
  Snapshot rows;
  readRows(sql, rows);
  return rows.rowCount() == 0 ? Value() : rows.value(0, 0);
}

Stored MysqlSession::stored(const Value& value, ColumnKind kind) const {
  return storedOnServer(value, kind);
}

std::int64_t MysqlSession::change(const std::string& sql, std::span<const Stored> values) {
  run(templates_.withLiterals(sql, values, kMysqlDialect), sql);
  return static_cast<std::int64_t>(mysql_affected_rows(connection_.get()));
}

std::int64_t MysqlSession::insert(const std::string& sql, std::span<const Stored> values,
                                  const std::string&) {
  change(sql, values);
  return static_cast<std::int64_t>(mysql_insert_id(connection_.get()));
}

std::string MysqlSession::primaryKey(const std::string& table) {
  const std::string folded = lowerCase(table);
  if (const auto known = primaryKeys_.find(folded); known != primaryKeys_.end()) {
    return known->second;
  }
  std::string name = askOne(kPrimaryKeyInMysql, {&folded, 1}).joinedText();
  if (!name.empty()) primaryKeys_.emplace(folded, name);
  return name;
}

void MysqlSession::control(const std::string& statement) { send(statement, statement); }

bool MysqlSession::inTransaction() const {
  return begun_ || (serverStatus() & SERVER_STATUS_IN_TRANS) != 0;
}

/// A session that was told not to commit by itself would lose the next one's writes.
bool MysqlSession::lost() const {
  return lost_ || (serverStatus() & SERVER_STATUS_AUTOCOMMIT) == 0;
}

void MysqlSession::begin() {
  if (inTransaction()) {
    raiseStatementFailed("a transaction is already open on this connection", {"BEGIN", 0, {}});
  }
  control(kBegin);
  begun_ = true;
  refused_ = false;
}

void MysqlSession::commit() {
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"COMMIT", 0, {}});
  }
  if (!firstCause_.empty()) {
    const std::string cause = firstCause_;
    rollback();
    refused_ = true;
    raiseCannotCommit(cause);
  }
  control("COMMIT");
  begun_ = false;
}

void MysqlSession::rollback() {
  if (std::exchange(refused_, false)) return;
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"ROLLBACK", 0, {}});
  }
  control("ROLLBACK");
  begun_ = false;
  firstCause_.clear();
}

void MysqlSession::catchUp() {
  constexpr std::string_view kReads = "1";
  const auto setWait = [this](std::string_view value) {
    run("SET SESSION wsrep_sync_wait=" + std::string(value), "SET wsrep_sync_wait");
  };
  try {
    setWait(kReads);
  } catch (const Error& error) {
    // A server that cannot be part of a cluster.
    if (error.cause().nativeCode == ER_UNKNOWN_SYSTEM_VARIABLE) return;
    throw;
  }
  const auto setBack = [&] { setWait(std::to_string(syncWait_)); };
  try {
    askOne("SELECT 1", {});
  } catch (const Error&) {
    try {
      setBack();
    } catch (const Error&) {
      lost_ = true;  // every later read would wait
    }
    throw;
  }
  setBack();
}

bool MysqlSession::usable() {
  lost_ = lost_ || mysql_ping(connection_.get()) != 0;
  return !lost_;
}

}  // namespace kt7::data
