#pragma once

#include <sqlite3.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "roles/data/snapshot.h"

namespace kt7::data {

/// A database error with SQLite's own text and extended code: a connection error where the file
/// cannot be reached, else a statement error.
[[noreturn]] void raiseSqlite(sqlite3* database, int code, const std::string& sql);

/// One prepared statement. It is at rest whenever no member function runs: rows are read to the
/// end and the statement is reset at once, so that it never holds a lock.
class SqliteStatement {
 public:
  /// A statement error for a text that SQLite refuses and for anything after its first statement;
  /// `sql` is what errors show.
  SqliteStatement(sqlite3* database, std::string_view text, const std::string& sql);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  bool answersRows() const { return sqlite3_column_count(handle_) > 0; }
  bool writes() const { return sqlite3_stmt_readonly(handle_) == 0; }

  /// The texts and values must live until the statement has run.
  void bind(std::span<const std::string> texts);
  void bind(std::span<const Stored> values);

  void run(const std::string& sql);
  void readAll(Snapshot& rows, const std::string& sql);
  Value readFirst(const std::string& sql);

 private:
  /// Resets on every way out.
  class Running;

  void requireParameters(std::size_t count) const;
  bool step(const std::string& sql);
  const std::shared_ptr<const ResultShape>& shape();
  void readRow(Snapshot& rows);

  sqlite3* database_;
  sqlite3_stmt* handle_ = nullptr;
  int parameterCount_ = 0;
  std::shared_ptr<const ResultShape> shape_;
  int preparations_ = 0;
};

}  // namespace kt7::data
