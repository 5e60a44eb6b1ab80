#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <kt7/contract/data_access.h>
#include "host/schema/description/table.h"

/// The content of a table as text that is the same on every engine.
namespace kt7::schema {

/// A value in the words of its column's type: amounts with four decimals, numbers as their shortest
/// decimals, dates yyyy-mm-dd, moments yyyy-mm-dd hh:mm:ss, null as \N; backslashes, tabs and line
/// ends of a text as \\, \t, \n and \r. Type mismatch for a value that the type cannot have.
std::string cellText(const Column& column, const Value& value);

enum class RowIds { Shown, LeftOut };

/// Gives every row as one line without its end, cells parted by tabs, in the order of row ids.
void dumpTable(ado::Connection& connection, const Table& table, RowIds rowIds,
               const std::function<void(std::string_view line)>& take);

/// What a table holds: equal at two ends where every row is.
struct TableSum {
  std::int64_t rows = 0;
  std::string sha256;  // of its dump with row ids, a line end after each row; in hexadecimal

  friend bool operator==(const TableSum&, const TableSum&) = default;
};

TableSum sumTable(ado::Connection& connection, const Table& table);

}  // namespace kt7::schema
