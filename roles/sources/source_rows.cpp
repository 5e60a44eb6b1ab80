#include "roles/sources/source_rows.h"

#include <kt7/error.h>
#include "roles/data/server_values.h"

namespace kt7::roles {

namespace {

using data::Cell;
using data::ColumnKind;

/// The declared kind; where none is declared, dates tell that the column holds them.
ColumnKind kindOf(const Rows& rows, std::size_t column) {
  const ColumnKind declared = data::columnKind(rows.columns[column].declaredType);
  if (declared != ColumnKind::Other) return declared;
  for (const std::vector<Value>& row : rows.values) {
    if (row[column].isNull()) continue;
    return std::holds_alternative<Date>(row[column].storage()) ? ColumnKind::Moment : declared;
  }
  return declared;
}

bool isNumeric(ColumnKind kind) {
  return kind == ColumnKind::SmallInteger || kind == ColumnKind::Integer ||
         kind == ColumnKind::Real || kind == ColumnKind::Money;
}

/// A number that comes as text, as many client libraries give it; any other text stays one.
bool setNumberIn(Cell& cell, const std::string& text, ColumnKind kind) {
  if (!isNumeric(kind) || !data::setNumber(cell, text)) return false;
  if (kind == ColumnKind::Money && text.find_first_of("eE") == std::string::npos) {
    data::setDecimal(cell, text, -1);
  }
  return true;
}

}  // namespace

void readRows(const Rows& from, data::Snapshot& to, const std::string& sql) {
  for (const std::vector<Value>& row : from.values) {
    if (row.size() == from.columns.size()) continue;
    raiseStatementFailed("the data source answered a row of " + std::to_string(row.size()) +
                             " values for " + std::to_string(from.columns.size()) + " columns",
                         {sql, 0, {}});
  }
  std::vector<data::Column> columns;
  columns.reserve(from.columns.size());
  for (std::size_t i = 0; i < from.columns.size(); ++i) {
    columns.push_back({from.columns[i].name, kindOf(from, i)});
  }
  to.start(std::make_shared<const data::ResultShape>(std::move(columns)));
  for (std::size_t row = 0; row < from.values.size(); ++row) {
    Cell* cell = to.addRow();
    for (std::size_t i = 0; i < from.columns.size(); ++i, ++cell) {
      const Value& value = from.values[row][i];
      const ColumnKind kind = (*to.shape())[i].kind;
      const auto* const text = std::get_if<std::string>(&value.storage());
      if (text != nullptr && setNumberIn(*cell, *text, kind)) continue;
      to.put(row, i, data::storedOnServer(value, kind));
    }
  }
}

}  // namespace kt7::roles
