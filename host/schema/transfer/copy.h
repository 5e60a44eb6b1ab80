#pragma once

#include <cstdint>
#include <vector>

#include <kt7/contract/data_access.h>
#include "host/schema/description/table.h"
#include "host/schema/transfer/dump.h"

/// A company moved from one database to another, whatever their engines.
namespace kt7::schema {

/// What a table holds at both ends after the copy.
struct CopiedTable {
  const Table* table = nullptr;
  TableSum source;
  TableSum target;

  bool same() const { return source == target; }
};

/// Told how far a copy is; an exception of it ends the copy.
class CopyListener {
 public:
  virtual ~CopyListener() = default;
  /// Rows that are safe in the target, of all tables, and how many there are to be.
  virtual void copied(std::int64_t /*rows*/, std::int64_t /*ofRows*/) {}
  /// Tables whose both ends were compared, and how many there are.
  virtual void compared(std::size_t /*tables*/, std::size_t /*ofTables*/) {}
};

inline constexpr std::int64_t kRowsOfCopyTransaction = 5000;

/// Copies every row of the company, row ids included, in transactions of so many rows, and reads
/// both ends again to compare them. The source must be of this version and is left alone; nobody
/// should write to it meanwhile. The target must be empty or hold a copy that was broken off, which
/// goes on where it was; it is a company of its own only once both ends agree. A database error
/// names what a target cannot hold.
std::vector<CopiedTable> copyCompany(ado::Connection& source, ado::Connection& target,
                                     CopyListener& listener,
                                     std::int64_t rowsOfTransaction = kRowsOfCopyTransaction);

}  // namespace kt7::schema
