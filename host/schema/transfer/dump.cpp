#include "host/schema/transfer/dump.h"

#include <kt7/error.h>
#include "base/number_text.h"
#include "host/schema/transfer/sha256.h"
#include "host/schema/transfer/table_reader.h"

namespace kt7::schema {
namespace {

constexpr std::string_view kNull = "\\N";

// A zero has no sign here.
std::string numberText(double number) { return compactText(number == 0 ? 0.0 : number); }

std::string escaped(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '\t':
        result += "\\t";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      default:
        result += c;
    }
  }
  return result;
}

void appendCell(std::string& line, const Table& table, std::size_t i, std::span<const Value> row) {
  const Column& column = table.columns[i];
  try {
    line += cellText(column, row[i]);
  } catch (const Error& error) {
    raiseTypeMismatch(table.name + " row " + row.front().joinedText() + ", column " + column.name +
                      ": '" + row[i].joinedText() + "' is not of its type (" + error.what() + ")");
  }
}

}  // namespace

std::string cellText(const Column& column, const Value& value) {
  if (value.isNull()) return std::string(kNull);
  switch (column.type) {
    case ColumnType::Money:
      return value.toCurrency().toText();
    case ColumnType::Number:
      return numberText(value.toDouble());
    case ColumnType::Date:
      return value.toDate().isoDateText();
    case ColumnType::Moment:
      return value.toDate().isoDateTimeText();
    case ColumnType::Small:
    case ColumnType::Whole:
    case ColumnType::RowId:
      return std::to_string(value.toInt32());
    case ColumnType::Text:
      break;
  }
  return escaped(value.toText());
}

void dumpTable(ado::Connection& connection, const Table& table, RowIds rowIds,
               const std::function<void(std::string_view line)>& take) {
  TableReader reader(connection, table);
  std::string line;
  for (auto row = reader.next(); !row.empty(); row = reader.next()) {
    line.clear();
    const std::size_t first = rowIds == RowIds::Shown ? 0 : 1;
    for (std::size_t i = first; i < row.size(); ++i) {
      if (i > first) line += '\t';
      appendCell(line, table, i, row);
    }
    take(line);
  }
}

TableSum sumTable(ado::Connection& connection, const Table& table) {
  Sha256 hash;
  TableSum sum;
  dumpTable(connection, table, RowIds::Shown, [&](std::string_view line) {
    hash.add(line);
    hash.add("\n");
    ++sum.rows;
  });
  sum.sha256 = hash.hexadecimal();
  return sum;
}

}  // namespace kt7::schema
