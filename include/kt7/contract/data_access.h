#pragma once

#include <string>
#include <string_view>

#include <kt7/export.h>
#include <kt7/value.h>

/// The data-access contract of the library, in the shape of the platform's data-access objects.
/// Table and field names are found without regard to letter case.
namespace kt7::ado {

inline constexpr int kClientSide = 3;    // CursorLocation
inline constexpr int kStatic = 3;        // cursor type: a snapshot, all rows read by Open
inline constexpr int kReadOnly = 1;      // lock type
inline constexpr int kOptimistic = 3;    // lock type: Update writes back the row it read
inline constexpr int kUnspecified = -1;  // options

/// One connection to the host's database. Failures are Error of kind database.
class KT7_API Connection {
 public:
  virtual ~Connection() = default;

  virtual void CursorLocation(int location) = 0;
  virtual void Open(const std::string& connectionString, const std::string& user = "",
                    const std::string& password = "", int options = kUnspecified) = 0;
  virtual void Close() = 0;
  virtual void Execute(const std::string& sql) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
};

/// What a recordset or a lookup works on: a connection, or a connection string for which one is
/// opened. Refers to its argument: valid for the length of the call it is passed to.
class ActiveConnection {
 public:
  ActiveConnection(Connection& connection) : connection_(&connection) {}
  ActiveConnection(const std::string& connectionString) : connectionString_(connectionString) {}

  /// Null where a connection string was given.
  Connection* connection() const { return connection_; }
  std::string_view connectionString() const { return connectionString_; }

 private:
  Connection* connection_ = nullptr;
  std::string_view connectionString_;
};

/// One column of the current row. Assigning keeps the value in the row buffer until Update.
class KT7_API Field {
 public:
  virtual ~Field() = default;
  virtual kt7::Value Value() const = 0;
  virtual void Value(const kt7::Value& value) = 0;
};

class KT7_API Fields {
 public:
  virtual ~Fields() = default;
  /// The column of that name; a database error when the result has none.
  virtual Field& Item(std::string_view name) = 0;
};

/// The rows of one SELECT. All rows are on the client when Open returns, so that writing to the
/// table while reading is safe. Opened optimistic, Update names the row by its primary key, writes
/// only assigned columns, and fails when the row is gone.
class KT7_API Recordset {
 public:
  virtual ~Recordset() = default;

  virtual void Open(const std::string& source, const ActiveConnection& activeConnection,
                    int cursorType, int lockType, int options = kUnspecified) = 0;
  /// True past the last row (the platform's EOF, which is a macro in C).
  virtual bool Eof() const = 0;
  virtual void MoveNext() = 0;
  virtual ado::Fields& Fields() = 0;
  virtual void AddNew() = 0;
  virtual void Update() = 0;
  virtual void Close() = 0;

  /// Shorthand for Fields().Item(name).Value().
  kt7::Value get(std::string_view name) { return Fields().Item(name).Value(); }
  void set(std::string_view name, const kt7::Value& value) { Fields().Item(name).Value(value); }
};

}  // namespace kt7::ado
