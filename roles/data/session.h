#pragma once

#include <chrono>
#include <span>
#include <string>

#include "roles/data/snapshot.h"

namespace kt7::data {

/// One physical connection to one engine; a driver is an implementation of it, and so is a host's
/// own data source. A session is used by one thread at a time. Failures are Error of kind database.
class Session {
 public:
  virtual ~Session() = default;

  /// Runs one statement and drops its rows; anything after it is refused before it runs.
  virtual void execute(const std::string& sql) = 0;
  /// All rows of one statement that answers rows.
  virtual void query(const std::string& sql, Snapshot& rows) = 0;
  /// First column of the first row; null without a row. The text is prepared once and kept.
  virtual Value askOne(const std::string& sql, std::span<const std::string> parameters) = 0;

  /// The form in which the engine stores a value of a column of that kind; a database error if the
  /// engine could not return the same value.
  virtual Stored stored(const Value& value, ColumnKind kind) const = 0;
  /// Runs a fixed text with its "?" bound and answers how many rows it changed.
  virtual std::int64_t change(const std::string& sql, std::span<const Stored> values) = 0;
  /// Runs a fixed INSERT with its "?" bound and answers the whole number that the engine gave to
  /// the column `key` of the new row; it is not asked for where `key` is "".
  virtual std::int64_t insert(const std::string& sql, std::span<const Stored> values,
                              const std::string& key) = 0;
  /// The one column of the table's primary key; "" when it has none or several.
  virtual std::string primaryKey(const std::string& table) = 0;

  virtual void begin() = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
  virtual bool inTransaction() const = 0;

  /// Waits until this node has applied what other nodes of a cluster committed; nothing on a single
  /// server.
  virtual void catchUp() {}

  /// How long a session may be idle before `usable` is asked first.
  virtual std::chrono::seconds trustedIdleness() const { return std::chrono::seconds(30); }
  /// False when the connection should be dropped; it counts as lost then.
  virtual bool usable() = 0;
  /// True once the connection was lost: it is not used again.
  virtual bool lost() const { return false; }
};

}  // namespace kt7::data
