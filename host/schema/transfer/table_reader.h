#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <kt7/contract/data_access.h>
#include "host/schema/description/table.h"

namespace kt7::schema {

/// The rows of a table in the order of their row ids, read in pages, so that a table of any size
/// takes the memory of a page.
class TableReader {
 public:
  /// From the first row, or from the one after that row id.
  TableReader(ado::Connection& connection, const Table& table,
              std::optional<std::int64_t> after = {});

  /// The values of the next row, valid until the next call; empty after the last row.
  std::span<const Value> next();

 private:
  bool openPage();

  ado::Connection& connection_;
  const Table& table_;
  std::string columns_;
  std::optional<std::int64_t> after_;
  std::unique_ptr<ado::Recordset> page_;
  std::vector<ado::Field*> fields_;
  std::vector<Value> row_;
  std::size_t rowsOfPage_ = 0;
};

/// "TUsrRowID, TUsrID, ..."
std::string columnList(const Table& table);

}  // namespace kt7::schema
