#include "host/schema/transfer/cell.h"

#include <cstdint>
#include <limits>

#include <kt7/error.h>
#include "base/number_text.h"
#include "base/text.h"
#include "host/csv/reader.h"

namespace kt7::schema {
namespace {

using Cell = std::variant<Value, CellProblem>;

constexpr std::size_t kMostShown = 40;
constexpr std::size_t kDecimalsOfMoney = 4;
constexpr std::size_t kDateTextLength = 10;  // yyyy-mm-dd

Cell readText(const Column& column, const std::string& cell) {
  if (!csv::isValidText(cell)) return CellProblem{"is not UTF-8 text"};
  if (csv::characterCount(cell) > static_cast<std::size_t>(column.length)) {
    return CellProblem{"is longer than " + std::to_string(column.length) + " characters"};
  }
  if (column.isCode && cell.find_first_of("'\\") != std::string::npos) {
    return CellProblem{"holds a quote or a backslash, which a code cannot"};
  }
  return Value(cell);
}

template <typename Number>
Cell readWhole(const std::string& cell) {
  Number number = 0;
  if (readPlainNumber(cell, number)) return Value(number);
  return CellProblem{"is not a whole number from " +
                     std::to_string(std::numeric_limits<Number>::min()) + " to " +
                     std::to_string(std::numeric_limits<Number>::max())};
}

Cell readNumber(const std::string& cell) {
  double number = 0;
  if (readPlainNumber(cell, number)) return Value(number);
  return CellProblem{"is not a number"};
}

Cell readMoney(const std::string& cell) {
  const std::size_t point = cell.find('.');
  const std::size_t last = cell.find_last_not_of('0');
  if (point != std::string::npos && last != std::string::npos && last > point + kDecimalsOfMoney) {
    return CellProblem{"is not an amount with at most four decimals"};
  }
  try {
    return Value(Currency::fromText(cell));
  } catch (const Error& error) {
    return CellProblem{error.kind() == ErrorKind::Overflow
                           ? "is beyond the range of an amount"
                           : "is not an amount with at most four decimals"};
  }
}

Cell readDate(const std::string& cell) {
  Date day;
  if (cell.size() == kDateTextLength && Date::tryFromIsoText(cell, day)) return Value(day);
  return CellProblem{"is not a date (yyyy-mm-dd)"};
}

Cell readMoment(const std::string& cell) {
  Date moment;
  if (Date::tryFromIsoText(cell, moment)) return Value(moment);
  return CellProblem{"is not a date and time (yyyy-mm-dd hh:mm:ss)"};
}

}  // namespace

Cell readCell(const Column& column, const std::string& cell) {
  if (cell.empty()) return Value();
  switch (column.type) {
    case ColumnType::Text:
      return readText(column, cell);
    case ColumnType::Money:
      return readMoney(cell);
    case ColumnType::Number:
      return readNumber(cell);
    case ColumnType::Date:
      return readDate(cell);
    case ColumnType::Moment:
      return readMoment(cell);
    case ColumnType::Small:
      return readWhole<std::int16_t>(cell);
    case ColumnType::Whole:
    case ColumnType::RowId:
      return readWhole<std::int32_t>(cell);
  }
  return CellProblem{"stands in a column of an unknown type"};
}

std::string shownCell(const std::string& cell) {
  if (!csv::isValidText(cell)) return "the cell";
  const std::string start = firstCharacters(cell, kMostShown);
  std::string shown = "\"";
  for (const char byte : start) shown += byte == '\n' || byte == '\r' ? ' ' : byte;
  return shown + (start.size() < cell.size() ? "...\"" : "\"");
}

}  // namespace kt7::schema
