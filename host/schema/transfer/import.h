#pragma once

#include <cstddef>
#include <istream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <kt7/contract/data_access.h>

namespace kt7::schema {

/// Why nothing was imported: one line a problem, each with its line of the file and its column.
class ImportError : public std::runtime_error {
 public:
  explicit ImportError(std::vector<std::string> problems);
  const std::vector<std::string>& problems() const { return problems_; }

 private:
  std::vector<std::string> problems_;
};

struct ImportResult {
  std::string table;
  std::size_t rows = 0;
};

/// Adds the rows of a CSV file to a table, all of them or none, in one transaction. The table and
/// the columns of the first line are found without regard to letter case; an empty cell is null;
/// dates are yyyy-mm-dd, moments yyyy-mm-dd hh:mm:ss, numbers plain decimals. ImportError names the
/// first bad rows; a database error where the table cannot be reached.
ImportResult importTable(ado::Connection& connection, std::string_view tableName,
                         std::istream& stream);

/// The same inside the caller's transaction, which the caller rolls back on an error.
ImportResult importTableTR(ado::Connection& connection, std::string_view tableName,
                           std::istream& stream);

}  // namespace kt7::schema
