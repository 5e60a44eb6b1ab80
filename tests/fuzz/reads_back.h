#pragma once

#include "door.h"
#include "host/schema/transfer/cell.h"
#include "host/schema/transfer/dump.h"

namespace kt7::fuzz {

/// A cell that a column takes is, written into a dump and read again, the same value.
inline void readsBack(schema::ColumnType type, const std::string& text) {
  const schema::Column column{.name = "X", .type = type, .length = 20};
  const auto read = schema::readCell(column, text);
  const Value* value = std::get_if<Value>(&read);
  if (value == nullptr || value->isNull()) return;
  const std::string written = schema::cellText(column, *value);
  const auto again = schema::readCell(column, written);
  require(std::holds_alternative<Value>(again) && std::get<Value>(again) == *value,
          "a cell reads as it was written", written);
}

}  // namespace kt7::fuzz
