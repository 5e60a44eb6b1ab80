#pragma once

#include <span>
#include <string>
#include <vector>

#include <kt7/contract/data_access.h>
#include "roles/data/session.h"

namespace kt7::data {

/// Adds rows to a table by INSERTs of many rows each, in the transaction that is open on the
/// connection. Rows are kept back until a statement is full: `flush` sends the last ones.
class BulkInsert {
 public:
  /// A database error for a connection that was not made here, and for an unknown column.
  BulkInsert(ado::Connection& connection, const std::string& table,
             std::vector<std::string> columns);

  /// One value a column, in their order.
  void add(std::span<const Value> row);
  void flush();

 private:
  std::string text(std::size_t rows) const;

  Session& session_;
  std::string table_;
  std::vector<std::string> columns_;
  std::vector<ColumnKind> kinds_;
  std::size_t rowsOfStatement_;
  std::string fullText_;
  std::vector<Stored> values_;
};

}  // namespace kt7::data
