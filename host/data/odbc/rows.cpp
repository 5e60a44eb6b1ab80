// What a statement answers, read into a snapshot.
#include <array>
#include <cstring>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/odbc/statement.h"
#include "roles/data/server_values.h"
#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr int kNotDecimal = -2;

ColumnKind kindOf(SQLSMALLINT type, int decimals) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
      return ColumnKind::SmallInteger;
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ColumnKind::Integer;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ColumnKind::Real;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return decimalKind(decimals);
    case SQL_TYPE_DATE:
      return ColumnKind::Day;
    case SQL_TYPE_TIMESTAMP:
      return ColumnKind::Moment;
    default:
      return ColumnKind::Text;
  }
}

/// "007" is no number that SQLite would write.
bool isPadded(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return text.size() > 1 && text[0] == '0' && text[1] >= '0' && text[1] <= '9';
}

}  // namespace

/// SQLite's driver tells a type of its own for what was declared, PostgreSQL's a text for a
/// boolean.
ColumnKind OdbcSession::kindOfColumn(Statement& statement, SQLUSMALLINT number, SQLSMALLINT type,
                                     int decimals) const {
  const ColumnKind told = kindOf(type, decimals);
  const bool maybeBoolean = engine_ == Engine::PostgreSql && told == ColumnKind::Text;
  if (!isEmbedded() && !maybeBoolean) return told;
  std::array<char, 128> declared{};
  SQLSMALLINT length = 0;
  SQLColAttribute(statement.get(), number, SQL_DESC_TYPE_NAME, declared.data(),
                  static_cast<SQLSMALLINT>(declared.size()), &length, nullptr);
  if (isEmbedded()) return columnKind(declared.data());
  return equalNoCase(declared.data(), "bool") ? ColumnKind::SmallInteger : told;
}

void OdbcSession::readRows(Statement& statement, Snapshot& rows, const std::string& sql) {
  SQLSMALLINT count = 0;
  SQLNumResultCols(statement.get(), &count);
  if (count == 0) raiseAnswersNoRows(sql);
  std::vector<Column> columns;
  kinds_.clear();
  decimals_.clear();
  for (SQLUSMALLINT i = 1; i <= static_cast<SQLUSMALLINT>(count); ++i) {
    std::array<SQLCHAR, 256> name{};
    SQLSMALLINT length = 0, type = 0, decimals = 0, nullable = 0;
    SQLULEN size = 0;
    SQLDescribeCol(statement.get(), i, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                   &type, &size, &decimals, &nullable);
    const bool decimal = type == SQL_DECIMAL || type == SQL_NUMERIC;
    const ColumnKind kind = kindOfColumn(statement, i, type, decimals);
    kinds_.push_back(kind);
    decimals_.push_back(decimal ? decimals : kNotDecimal);
    columns.push_back({reinterpret_cast<const char*>(name.data()), kind});
  }
  rows.start(std::make_shared<const ResultShape>(std::move(columns)));
  for (;;) {
    const SQLRETURN code = SQLFetch(statement.get());
    if (code == SQL_NO_DATA) return;
    if (!succeeded(code)) fail(SQL_HANDLE_STMT, statement.get(), sql);
    Cell* cell = rows.addRow();
    for (std::size_t i = 0; i < kinds_.size(); ++i, ++cell)
      readCell(statement, i, rows, *cell, sql);
  }
}

void OdbcSession::readCell(Statement& statement, std::size_t column, Snapshot& rows, Cell& cell,
                           const std::string& sql) {
  std::size_t have = 0;
  for (;;) {
    SQLLEN left = 0;
    const auto room = static_cast<SQLLEN>(buffer_.size() - have);
    const SQLRETURN code = SQLGetData(statement.get(), static_cast<SQLUSMALLINT>(column + 1),
                                      SQL_C_CHAR, buffer_.data() + have, room, &left);
    if (!succeeded(code)) fail(SQL_HANDLE_STMT, statement.get(), sql);
    if (left == SQL_NULL_DATA) return;
    if (left == SQL_NO_TOTAL && code == SQL_SUCCESS)
      left = static_cast<SQLLEN>(std::strlen(buffer_.data() + have));
    if (left != SQL_NO_TOTAL && left < room) {
      setCell(rows, cell, column,
              std::string_view(buffer_.data(), have + static_cast<std::size_t>(left)));
      return;
    }
    have = buffer_.size() - 1;  // a zero byte stands at its end
    buffer_.resize(buffer_.size() * 2);
  }
}

void OdbcSession::setCell(Snapshot& rows, Cell& cell, std::size_t column,
                          std::string_view text) const {
  if (decimals_[column] != kNotDecimal && !isEmbedded()) {
    setDecimal(cell, text, decimals_[column]);
    return;
  }
  const ColumnKind kind = kinds_[column];
  const bool number = kind == ColumnKind::SmallInteger || kind == ColumnKind::Integer ||
                      kind == ColumnKind::Real || kind == ColumnKind::Money ||
                      (isEmbedded() && kind == ColumnKind::Other && !isPadded(text));
  if (number && setNumber(cell, text)) return;
  if (number && !isEmbedded()) raiseNoNumber(text);
  const bool date = kind == ColumnKind::Day || kind == ColumnKind::Moment;
  if (date && text.starts_with("0000-00-00")) return;
  rows.setText(cell, text);
}

}  // namespace kt7::data
