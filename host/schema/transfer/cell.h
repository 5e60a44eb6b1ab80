#pragma once

#include <string>
#include <variant>

#include <kt7/value.h>
#include "host/csv/header.h"
#include "host/schema/description/table.h"

namespace kt7::schema {

/// Why a text cannot stand in a column: "is not a number".
struct CellProblem {
  std::string text;
};

/// The value of a cell of an imported file in its column; null for an empty cell. A whole number
/// stays within its range, an amount within four decimals, a text within the column's length.
std::variant<Value, CellProblem> readCell(const Column& column, const std::string& cell);

using csv::shownCell;

}  // namespace kt7::schema
