#include "host/data/mysql/session.h"

#include <mariadb/errmsg.h>
#include <mariadb/mysqld_error.h>

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "host/data/server_values.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptShapes = 64;
constexpr Dialect kMysqlDialect{.limitForTop = true, .foldsTableNames = true};
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

bool isDecimal(const MYSQL_FIELD& field) {
  return field.type == MYSQL_TYPE_DECIMAL || field.type == MYSQL_TYPE_NEWDECIMAL;
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

/// A result that is read to its end before the next statement, whatever happens.
struct FreeResult {
  void operator()(MYSQL_RES* result) const { mysql_free_result(result); }
};
using Result = std::unique_ptr<MYSQL_RES, FreeResult>;

}  // namespace

MysqlSession::MysqlSession(MysqlHandle connection, int syncWait)
    : connection_(std::move(connection)), syncWait_(syncWait), shapes_(kKeptShapes) {}

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
  if (code == ER_LOCK_WAIT_TIMEOUT) {
    raiseStatementFailed(
        "the rows are locked: another connection, perhaps of this same thread, has a transaction "
        "open that writes to them; commit or roll back that one first (" +
            text + ")",
        cause);
  }
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
  if (!firstCause_.empty()) {
    raiseStatementFailed(
        "the database rolled the transaction back; the first error was: " + firstCause_,
        {sql, 0, "25P02"});
  }
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

void MysqlSession::execute(const std::string& sql) {
  text_.readOne(sql, kMysqlDialect);
  run(text_.text(), sql);
  dropResults(sql);
}

void MysqlSession::query(const std::string& sql, Snapshot& rows) {
  text_.readOne(sql, kMysqlDialect);
  if (text_.onlyChanges()) raiseStatementFailed("the statement answers no rows", {sql, 0, {}});
  run(text_.text(), sql);
  readRows(sql, rows);
}

void MysqlSession::readRows(const std::string& sql, Snapshot& rows) {
  const Result result(mysql_use_result(connection_.get()));
  if (result == nullptr) {
    if (mysql_errno(connection_.get()) != 0) fail(sql);
    raiseStatementFailed("the statement answers no rows", {sql, 0, {}});
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
    if (shape.decimals[i] >= 0) {
      setDecimal(*cell, text, shape.decimals[i]);
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

const MysqlSession::Shape& MysqlSession::shapeOf(MYSQL_RES& result) {
  const unsigned count = mysql_num_fields(&result);
  const MYSQL_FIELD* const fields = mysql_fetch_fields(&result);
  shapeKey_.clear();
  for (unsigned i = 0; i < count; ++i) {
    shapeKey_.append(fields[i].name, fields[i].name_length);
    shapeKey_ += static_cast<char>(fields[i].type);
    shapeKey_ += static_cast<char>(fields[i].decimals);
  }
  if (const Shape* const kept = shapes_.find(shapeKey_)) return *kept;
  Shape shape;
  std::vector<Column> columns;
  for (unsigned i = 0; i < count; ++i) {
    columns.push_back({std::string(fields[i].name, fields[i].name_length), kindOf(fields[i])});
    shape.decimals.push_back(isDecimal(fields[i]) ? static_cast<int>(fields[i].decimals) : -1);
  }
  shape.columns = std::make_shared<const ResultShape>(std::move(columns));
  return shapes_.keep(shapeKey_, std::move(shape));
}

Value MysqlSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  const std::vector<Stored> values(parameters.begin(), parameters.end());
  run(fixed_.withLiterals(sql, values, kMysqlDialect), sql);
  Snapshot rows;
  readRows(sql, rows);
  return rows.rowCount() == 0 ? Value() : rows.value(0, 0);
}

Stored MysqlSession::stored(const Value& value, ColumnKind kind) const {
  return storedOnServer(value, kind);
}

std::int64_t MysqlSession::change(const std::string& sql, std::span<const Stored> values) {
  run(fixed_.withLiterals(sql, values, kMysqlDialect), sql);
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
  std::string name = askOne(
                         "SELECT MAX(column_name) FROM information_schema.statistics WHERE "
                         "table_schema=DATABASE() AND index_name='PRIMARY' AND "
                         "LOWER(table_name)=? HAVING COUNT(*)=1",
                         {&folded, 1})
                         .joinedText();
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
}

void MysqlSession::commit() {
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"COMMIT", 0, {}});
  }
  if (!firstCause_.empty()) {
    const std::string cause = firstCause_;
    rollback();
    raiseStatementFailed(
        "the transaction could not be committed and was rolled back; the first error was: " + cause,
        {"COMMIT", 0, "25P02"});
  }
  control("COMMIT");
  begun_ = false;
}

void MysqlSession::rollback() {
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

bool MysqlSession::usable() { return !lost_ && mysql_ping(connection_.get()) == 0; }

}  // namespace kt7::data
