#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <kt7/engine.h>
#include <kt7/export.h>
#include <kt7/value.h>

/// Ready-made collaborators for a host with a database access of its own: the host writes a
/// DataSource, SourcePlatform and SourceDataObj (source_host.h) do the rest.
namespace kt7::roles {

using kt7::Engine;

/// All rows of one SELECT.
struct Rows {
  struct Column {
    std::string name;
    /// As the table declares it: "DATE", "NUMERIC(19,4)", "SMALLINT". Numbers, amounts and dates
    /// that come as text, and amounts that come as a number, are read by it. May be "" for values
    /// that come in their own types.
    std::string declaredType;
  };
  std::vector<Column> columns;
  /// One list a row, a value a column.
  std::vector<std::vector<Value>> values;
};

/// One connection to the company's database, used by one thread at a time. A failure is reported by
/// an exception: an Error as it stands, any other std::exception becomes a database error with the
/// statement. An Error with the number kConnectionFailed says that the connection is lost, or that
/// the engine ended the transaction by itself; the source is not used again.
///
/// The tables are those of docs/databases.md. In a quoted text a backslash is an ordinary character
/// (MySQL: NO_BACKSLASH_ESCAPES) and codes compare byte for byte.
class KT7_API DataSource {
 public:
  virtual ~DataSource() = default;

  /// Sqlite, MySql or PostgreSql: a source of another engine is refused when it is opened.
  virtual Engine engine() const = 0;
  /// All rows of one statement that answers rows.
  virtual Rows query(const std::string& sql) = 0;
  /// Runs one statement and answers how many rows it found to change.
  virtual std::int64_t execute(const std::string& sql) = 0;
  /// Run the engine's own words for it unless overridden.
  virtual void begin();
  virtual void commit();
  virtual void rollback();
};

/// Opens a source by a connection string. Some operations open one of their own, and every lookup
/// by connection string does: where opening takes its time, hand out of a pool.
using OpenSource = std::function<std::unique_ptr<DataSource>(const std::string& connectionString)>;

}  // namespace kt7::roles
