#include "roles/data/server_values.h"

#include <cmath>

#include <kt7/error.h>
#include "base/number_text.h"

namespace kt7::data {

namespace {

constexpr std::size_t kMoneyDecimals = 4;
constexpr std::size_t kPlainLength = 18;  // a longer text may be beyond an amount: read with care

template <typename Number>
Number parsed(std::string_view text) {
  Number number{};
  if (!readPlainNumber(text, number)) raiseNoNumber(text);
  return number;
}

}  // namespace

void raiseNoNumber(std::string_view text) {
  raiseStatementFailed("the database answered '" + std::string(text) + "' for a number");
}

void requireParameters(const std::string& sql, std::size_t wanted, std::size_t given) {
  if (wanted == given) return;
  raiseStatementFailed("the statement takes " + std::to_string(wanted) +
                           " parameters and was given " + std::to_string(given),
                       {sql, 0, {}});
}

void refuseZeroCharacters(const std::string& sql, std::span<const Stored> values) {
  for (const Stored& value : values) {
    const auto* const text = std::get_if<std::string>(&value);
    if (text != nullptr && text->find('\0') != std::string::npos) {
      raiseStatementFailed("the database cannot keep a text with a zero character", {sql, 0, {}});
    }
  }
}

Stored storedOnServer(const Value& value, ColumnKind kind) {
  const Value::Storage& storage = value.storage();
  if (value.isNull()) return Null{};
  if (const auto* text = std::get_if<std::string>(&storage)) return *text;
  if (const auto* flag = std::get_if<bool>(&storage)) return std::int64_t{*flag ? 1 : 0};
  if (const auto* number = std::get_if<double>(&storage)) {
    if (!std::isfinite(*number)) {
      raiseStatementFailed("a number that is infinite or undefined cannot be kept");
    }
    if (kind == ColumnKind::Money) return Currency::fromDouble(*number);
    return *number;
  }
  if (const auto* whole = std::get_if<std::int64_t>(&storage)) return *whole;
  if (const auto* date = std::get_if<Date>(&storage)) {
    const bool withTime =
        kind == ColumnKind::Moment || (kind != ColumnKind::Day && date->timeOfDay() != 0);
    return withTime ? date->isoDateTimeText() : date->isoDateText();
  }
  if (const auto* money = std::get_if<Currency>(&storage)) return *money;
  return std::int64_t{value.toInt32()};
}

Stored storedAsDouble(const Value& value, ColumnKind kind) {
  const Value::Storage& storage = value.storage();
  if (const auto* money = std::get_if<Currency>(&storage)) {
    const std::int64_t count = money->tenThousandths();
    if (count % Currency::kScale == 0) return count / Currency::kScale;
    // 15 digits
    const double number = money->toDouble();
    if (Currency::fromDouble(number) == *money) return number;
    raiseStatementFailed("the amount " + money->toText() +
                         " has more digits than the database can keep");
  }
  return storedOnServer(value, std::holds_alternative<double>(storage) ? ColumnKind::Real : kind);
}

std::string serverText(const Stored& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) return compactText(*number);
  if (const auto* money = std::get_if<Currency>(&value)) return money->toText();
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return {};
}

void appendLiteral(std::string& sql, const Stored& value) {
  if (std::holds_alternative<Null>(value)) {
    sql += "NULL";
    return;
  }
  const auto* const text = std::get_if<std::string>(&value);
  if (text == nullptr) {
    sql += serverText(value);
    return;
  }
  sql += '\'';
  std::size_t at = 0;
  for (std::size_t quote = 0; (quote = text->find('\'', at)) != std::string::npos; at = quote + 1) {
    sql.append(*text, at, quote - at).append("''");
  }
  sql.append(*text, at).append(1, '\'');
}

ColumnKind decimalKind(int decimals) {
  if (decimals == 0) return ColumnKind::Integer;
  return decimals > static_cast<int>(kMoneyDecimals) ? ColumnKind::Real : ColumnKind::Money;
}

void setDecimal(Cell& cell, std::string_view text, int decimals) {
  const std::size_t point = text.find('.');
  const std::size_t given = point == std::string_view::npos ? 0 : text.size() - point - 1;
  const ColumnKind kind = decimalKind(decimals < 0 ? static_cast<int>(given) : decimals);
  if (kind == ColumnKind::Real) {
    setReal(cell, text);
    return;
  }
  if (kind == ColumnKind::Integer) {
    setInteger(cell, text);
    return;
  }
  cell.storage = Cell::Storage::Money;
  if (given > kMoneyDecimals || text.size() + kMoneyDecimals - given > kPlainLength) {
    cell.integer = Currency::fromText(text).tenThousandths();
    return;
  }
  std::int64_t count = 0;
  const bool negative = text.starts_with('-');
  for (std::size_t i = negative ? 1 : 0; i < text.size(); ++i) {
    if (i == point) continue;
    if (text[i] < '0' || text[i] > '9') raiseNoNumber(text);  // "NaN" is a decimal on some servers
    count = count * 10 + (text[i] - '0');
  }
  for (std::size_t i = given; i < kMoneyDecimals; ++i) count *= 10;
  cell.integer = negative ? -count : count;
}

void setInteger(Cell& cell, std::string_view text) {
  cell.storage = Cell::Storage::Integer;
  cell.integer = parsed<std::int64_t>(text);
}

void setReal(Cell& cell, std::string_view text) {
  cell.storage = Cell::Storage::Real;
  cell.real = parsed<double>(text);
}

bool setNumber(Cell& cell, std::string_view text) {
  std::int64_t whole = 0;
  if (readPlainNumber(text, whole)) {
    cell.storage = Cell::Storage::Integer;
    cell.integer = whole;
    return true;
  }
  double number = 0;
  if (!readPlainNumber(text, number)) return false;
  cell.storage = Cell::Storage::Real;
  cell.real = number;
  return true;
}

}  // namespace kt7::data
