#include "host/data/postgresql/session.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include <kt7/error.h>
#include "base/text.h"
#include "roles/data/primary_key.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr std::size_t kKeptStatements = 64;
constexpr std::size_t kKeptShapes = 64;
constexpr int kNotDecimal = -2;
constexpr Dialect kPostgresqlDialect{
    .limitForTop = true, .liftsLiterals = true, .numberedPlaceholders = true};
constexpr Dialect kUnlifted{.limitForTop = true, .numberedPlaceholders = true};

/// Types by their fixed numbers in the catalogue.
enum TypeNumber : Oid {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kOid = 26,
  kFloat4 = 700,
  kFloat8 = 701,
  kDate = 1082,
  kTimestamp = 1114,
  kTimestampZone = 1184,
  kNumeric = 1700
};

ColumnKind kindOf(Oid type, int decimals) {
  switch (type) {
    case kBool:
    case kInt2:
      return ColumnKind::SmallInteger;
    case kInt4:
    case kInt8:
    case kOid:
      return ColumnKind::Integer;
    case kFloat4:
    case kFloat8:
      return ColumnKind::Real;
    case kNumeric:
      return decimals < 0 ? ColumnKind::Other : decimalKind(decimals);
    case kDate:
      return ColumnKind::Day;
    case kTimestamp:
    case kTimestampZone:
      return ColumnKind::Moment;
    default:
      return ColumnKind::Text;
  }
}

/// The decimals of a NUMERIC(p,s); -1 where the type does not say.
int decimalsOf(int modifier) {
  constexpr int kHeader = 4;
  constexpr int kScaleMask = 0x7ff;
  return modifier < kHeader ? -1 : (modifier - kHeader) & kScaleMask;
}

std::string messageOf(PGconn* connection, const PGresult* result) {
  const char* const primary = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
  return std::string(trimmedBlanks(primary != nullptr ? primary : PQerrorMessage(connection)));
}

/// The plan no longer fits the tables, or the server forgot the statement.
bool isStale(std::string_view state) { return state == "0A000" || state == "26000"; }

/// Changes what prepared statements were planned for, or forgets them.
bool makesStale(std::string_view text) {
  constexpr std::string_view kWords[] = {"CREATE", "ALTER", "DROP", "DISCARD", "DEALLOCATE"};
  return std::any_of(std::begin(kWords), std::end(kWords), [text](std::string_view word) {
    return equalNoCase(trimmedBlanks(text).substr(0, word.size()), word);
  });
}

std::vector<const char*> pointers(std::span<const std::string> texts) {
  std::vector<const char*> result;
  for (const std::string& text : texts) result.push_back(text.c_str());
  return result;
}

}  // namespace

std::string_view sqlStateOf(const PGresult* result) {
  const char* const state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
  return state == nullptr ? std::string_view{} : std::string_view(state);
}

PostgresqlSession::PostgresqlSession(PostgresqlHandle connection)
    : connection_(std::move(connection)),
      statements_(kKeptStatements),
      fixed_(kKeptStatements),
      shapes_(kKeptShapes) {
  PQsetNoticeProcessor(
      connection_.get(), [](void*, const char*) {}, nullptr);
}

void PostgresqlSession::fail(const PGresult* result, const std::string& sql) {
  PGconn* const handle = connection_.get();
  const std::string text = messageOf(handle, result);
  const std::string state(sqlStateOf(result));
  if (PQstatus(handle) == CONNECTION_BAD || state.starts_with("57P")) {
    lost_ = true;
    raiseConnectionLost(text, sql, 0, unknownIfLost_);
  }
  const DatabaseCause cause{sql, 0, state};
  if (state == "25P02") {
    raiseStatementFailed(text + "; the first error was: " + firstCause_, cause);
  }
  if (inTransaction() && firstCause_.empty()) firstCause_ = text;
  if (state == "55P03") raiseRowsLocked(text, cause);
  raiseStatementFailed(text, cause);
}

PostgresqlResult PostgresqlSession::checked(PostgresqlResult result, const std::string& sql) {
  const ExecStatusType status = PQresultStatus(result.get());
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) fail(result.get(), sql);
  return result;
}

void PostgresqlSession::noteStart(bool writes) {
  unknownIfLost_ = writes && PQtransactionStatus(connection_.get()) == PQTRANS_IDLE;
}

PostgresqlResult PostgresqlSession::send(const std::string& text,
                                         std::span<const char* const> values) {
  return PostgresqlResult(PQexecParams(connection_.get(), text.c_str(),
                                       static_cast<int>(values.size()), nullptr, values.data(),
                                       nullptr, nullptr, 0));
}

bool PostgresqlSession::prepare(const std::string& text, Kept& kept) {
  const bool inside = PQtransactionStatus(connection_.get()) == PQTRANS_INTRANS;
  // A text that is refused must not abort the caller's transaction.
  if (inside) send("SAVEPOINT kt7_prepare", {});
  const std::string name = "kt7_" + std::to_string(++made_);
  const PostgresqlResult made(PQprepare(connection_.get(), name.c_str(), text.c_str(), 0, nullptr));
  const bool done = PQresultStatus(made.get()) == PGRES_COMMAND_OK;
  if (inside && !done) send("ROLLBACK TO SAVEPOINT kt7_prepare", {});
  if (inside) send("RELEASE SAVEPOINT kt7_prepare", {});
  if (!done) return false;
  const auto drop = [this](const std::string* dropped) {
    dropped_.push_back(*dropped);
    delete dropped;
  };
  kept.name = {new std::string(name), drop};
  return true;
}

/// Outside the path of an error: a statement that fell out of the cache costs one message more.
void PostgresqlSession::closeDropped() {
  if (dropped_.empty() || PQtransactionStatus(connection_.get()) == PQTRANS_INERROR) return;
  const std::vector<std::string> names = std::move(dropped_);
  dropped_.clear();
  for (const std::string& name : names) send("DEALLOCATE " + name, {});
}

PostgresqlSession::Kept* PostgresqlSession::preparedFor(const std::string& text) {
  Kept* const kept = statements_.find(text);
  if (kept == nullptr) {
    statements_.keep(text, {});
    closeDropped();
    return nullptr;
  }
  if (kept->name == nullptr && !kept->refused) kept->refused = !prepare(text, *kept);
  return kept->refused ? nullptr : kept;
}

PostgresqlResult PostgresqlSession::runKept(const std::string& text,
                                            std::span<const char* const> values,
                                            const std::string& unlifted,
                                            std::span<const char* const> unliftedValues) {
  noteStart(!equalNoCase(trimmedBlanks(text).substr(0, 6), "SELECT"));
  Kept* const kept = preparedFor(text);
  if (kept == nullptr) return send(unlifted, unliftedValues);
  PostgresqlResult result(PQexecPrepared(connection_.get(), kept->name->c_str(),
                                         static_cast<int>(values.size()), values.data(), nullptr,
                                         nullptr, 0));
  if (!isStale(sqlStateOf(result.get()))) return result;
  kept->name.reset();
  closeDropped();
  return inTransaction() ? std::move(result) : send(unlifted, unliftedValues);
}

/// Nothing prepared outlives a change of the tables by this very session.
void PostgresqlSession::forgetPrepared() {
  statements_.clear();
  if (dropped_.empty()) return;
  dropped_.clear();
  send("DEALLOCATE ALL", {});
}

PostgresqlResult PostgresqlSession::run(const std::string& sql, bool wantsRows) {
  text_.readOne(sql, kPostgresqlDialect);
  if (wantsRows && text_.answersNoRows()) raiseAnswersNoRows(sql);
  const std::string text(text_.text());
  if (makesStale(text)) forgetPrepared();
  if (text_.literals().empty()) return checked(runKept(text, {}, text, {}), sql);
  const std::vector<std::string> literals = text_.literals();
  text_.readOne(sql, kUnlifted);
  return checked(runKept(text, pointers(literals), std::string(text_.text()), {}), sql);
}

PostgresqlResult PostgresqlSession::runFixed(const std::string& sql,
                                             std::span<const Stored> values) {
  const Fixed* fixed = fixed_.find(sql);
  if (fixed == nullptr) {
    text_.read(sql, kUnlifted);
    fixed = &fixed_.keep(sql, {std::string(text_.text()), text_.parameters()});
  }
  requireParameters(sql, fixed->parameters, values.size());
  refuseZeroCharacters(sql, values);
  std::vector<std::string> texts;
  std::vector<const char*> bound;
  texts.reserve(values.size());
  for (const Stored& value : values) {
    const bool isNull = std::holds_alternative<Null>(value);
    if (!isNull) texts.push_back(serverText(value));
    bound.push_back(isNull ? nullptr : texts.back().c_str());
  }
  return checked(runKept(fixed->text, bound, fixed->text, bound), sql);
}

void PostgresqlSession::execute(const std::string& sql) { run(sql, false); }

void PostgresqlSession::query(const std::string& sql, Snapshot& rows) {
  readRows(*run(sql, true), rows, sql);
}

void PostgresqlSession::readRows(const PGresult& result, Snapshot& rows, const std::string& sql) {
  if (PQresultStatus(&result) != PGRES_TUPLES_OK) raiseAnswersNoRows(sql);
  const Shape& shape = shapeOf(result);
  rows.start(shape.columns);
  const int count = PQntuples(&result);
  const int columns = PQnfields(&result);
  for (int row = 0; row < count; ++row) {
    Cell* cell = rows.addRow();
    for (int i = 0; i < columns; ++i, ++cell) {
      if (PQgetisnull(&result, row, i) != 0) continue;
      const auto column = static_cast<std::size_t>(i);
      const std::string_view text(PQgetvalue(&result, row, i),
                                  static_cast<std::size_t>(PQgetlength(&result, row, i)));
      if (shape.decimals[column] != kNotDecimal) {
        setDecimal(*cell, text, shape.decimals[column]);
        continue;
      }
      switch ((*shape.columns)[column].kind) {
        case ColumnKind::SmallInteger:
        case ColumnKind::Integer:
          setInteger(*cell, text == "t" ? "1" : text == "f" ? "0" : text);
          break;
        case ColumnKind::Real:
          setReal(*cell, text);
          break;
        default:
          rows.setText(*cell, text);
      }
    }
  }
}

const PostgresqlSession::Shape& PostgresqlSession::shapeOf(const PGresult& result) {
  const int count = PQnfields(&result);
  shapeKey_.clear();
  for (int i = 0; i < count; ++i) {
    shapeKey_.append(PQfname(&result, i)) += ' ';
    const std::uint32_t type[] = {PQftype(&result, i),
                                  static_cast<std::uint32_t>(PQfmod(&result, i))};
    shapeKey_.append(reinterpret_cast<const char*>(type), sizeof type);
  }
  if (const Shape* const kept = shapes_.find(shapeKey_)) return *kept;
  Shape shape;
  std::vector<Column> columns;
  for (int i = 0; i < count; ++i) {
    const bool decimal = PQftype(&result, i) == kNumeric;
    const int decimals = decimal ? decimalsOf(PQfmod(&result, i)) : kNotDecimal;
    columns.push_back({PQfname(&result, i), kindOf(PQftype(&result, i), decimals)});
    shape.decimals.push_back(decimals);
  }
  shape.columns = std::make_shared<const ResultShape>(std::move(columns));
  return shapes_.keep(shapeKey_, std::move(shape));
}

Value PostgresqlSession::askOne(const std::string& sql, std::span<const std::string> parameters) {
  const std::vector<Stored> values(parameters.begin(), parameters.end());
  Snapshot rows;
  readRows(*runFixed(sql, values), rows, sql);
  return rows.rowCount() == 0 ? Value() : rows.value(0, 0);
}

Stored PostgresqlSession::stored(const Value& value, ColumnKind kind) const {
  return storedOnServer(value, kind);
}

std::int64_t PostgresqlSession::change(const std::string& sql, std::span<const Stored> values) {
  const PostgresqlResult result = runFixed(sql, values);
  const std::string_view count = PQcmdTuples(result.get());
  std::int64_t changed = 0;
  std::from_chars(count.data(), count.data() + count.size(), changed);
  return changed;
}

std::int64_t PostgresqlSession::insert(const std::string& sql, std::span<const Stored> values,
                                       const std::string& key) {
  if (key.empty()) return change(sql, values), 0;
  Snapshot rows;
  readRows(*runFixed(sql + " RETURNING " + key, values), rows, sql);
  return rows.whole(0, 0);
}

std::string PostgresqlSession::primaryKey(const std::string& table) {
  const std::string folded = lowerCase(table);
  if (const auto known = primaryKeys_.find(folded); known != primaryKeys_.end()) {
    return known->second;
  }
  std::string name = askOne(kPrimaryKeyInPostgresql, {&folded, 1}).joinedText();
  if (!name.empty()) primaryKeys_.emplace(folded, name);
  return name;
}

PostgresqlResult PostgresqlSession::control(const std::string& statement) {
  unknownIfLost_ = statement == "COMMIT";
  return checked(send(statement, {}), statement);
}

bool PostgresqlSession::inTransaction() const {
  const PGTransactionStatusType status = PQtransactionStatus(connection_.get());
  return status == PQTRANS_INTRANS || status == PQTRANS_INERROR || status == PQTRANS_ACTIVE;
}

void PostgresqlSession::begin() {
  if (inTransaction()) {
    raiseStatementFailed("a transaction is already open on this connection", {"BEGIN", 0, {}});
  }
  firstCause_.clear();
  control("BEGIN");
  begun_ = true;
  refused_ = false;
}

/// What a transaction came to whose connection was lost in its middle.
void PostgresqlSession::requireConnection(const char* statement) const {
  if (lost_ && begun_) raiseConnectionLost("its transaction ended with it", statement, 0, false);
}

void PostgresqlSession::commit() {
  requireConnection("COMMIT");
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"COMMIT", 0, {}});
  }
  const PostgresqlResult result = control("COMMIT");
  begun_ = false;  // where it failed the caller still rolls back
  // An aborted transaction is rolled back by a COMMIT that reports no error.
  if (std::string_view(PQcmdStatus(result.get())) == "COMMIT") return;
  refused_ = true;
  raiseCannotCommit(firstCause_);
}

void PostgresqlSession::rollback() {
  if (std::exchange(refused_, false)) return;
  requireConnection("ROLLBACK");
  // A COMMIT that failed has rolled back already.
  if (!lost_ && begun_ && PQtransactionStatus(connection_.get()) == PQTRANS_IDLE) {
    begun_ = false;
    return;
  }
  if (!inTransaction()) {
    raiseStatementFailed("no transaction is open on this connection", {"ROLLBACK", 0, {}});
  }
  control("ROLLBACK");
  begun_ = false;
}

bool PostgresqlSession::usable() {
  if (lost_) return false;
  const PostgresqlResult result = send("SELECT 1", {});
  lost_ = PQresultStatus(result.get()) != PGRES_TUPLES_OK;
  return !lost_;
}

}  // namespace kt7::data
