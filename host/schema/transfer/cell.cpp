#include "host/schema/transfer/cell.h"

#include <cstdint>
#include <limits>

#include <kt7/error.h>
#include "base/number_text.h"
#include "base/text.h"
#include "host/schema/description/entered_text.h"

namespace kt7::schema {
namespace {

using Cell = std::variant<Value, CellProblem>;

constexpr std::size_t kDecimalsOfMoney = 4;
constexpr std::size_t kDateTextLength = 10;  // yyyy-mm-dd

Cell readText(const Column& column, const std::string& cell) {
  if (const auto problem = whyUnkept(cell, column.length)) return CellProblem{*problem};
  if (column.isCode) {
    if (const char* why = whyNoCode(cell)) {
      return CellProblem{std::string(why) + ", which a code cannot"};
    }
  }
  return Value(cell);
}

template <typename Number>
Cell readWhole(const std::string& cell, Number highest = std::numeric_limits<Number>::max()) {
  Number number = 0;
  if (readPlainNumber(cell, number) && number <= highest) return Value(number);
  return CellProblem{"is not a whole number from " +
                     std::to_string(std::numeric_limits<Number>::min()) + " to " +
                     std::to_string(highest)};
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
      return readWhole<std::int32_t>(cell);
    case ColumnType::RowId:
      // The database goes on with the number after the highest one.
      return readWhole<std::int32_t>(cell, std::numeric_limits<std::int32_t>::max() - 1);
  }
  return CellProblem{"stands in a column of an unknown type"};
}

}  // namespace kt7::schema
