#pragma once

#include <memory>
#include <optional>
#include <string>

#include <kt7/contract/data_access.h>
#include "fronts/com/database2/object_of.h"

/// Connection, Recordset, Fields and Field in the shape of the platform's data-access objects, over
/// the reference host's drivers.
namespace kt7::database2 {

class ConnectionObject {
 public:
  /// A closed connection of its own.
  ConnectionObject();
  /// Somebody else's, open already.
  explicit ConnectionObject(std::shared_ptr<ado::Connection> connection);

  std::int32_t CursorLocation() const { return cursorLocation_; }
  void setCursorLocation(std::int32_t location) { cursorLocation_ = location; }
  std::string ConnectionString() const { return connectionString_; }
  void setConnectionString(const std::string& text) { connectionString_ = text; }
  /// 1 while open, else 0.
  std::int32_t State() const { return open_ ? 1 : 0; }

  void Open(const std::optional<std::string>& connectionString,
            const std::optional<std::string>& user, const std::optional<std::string>& password,
            const std::optional<std::int32_t>& options);
  void Close();
  /// A SELECT answers its rows, everything else nothing. The other arguments have no effect.
  Variant Execute(const std::string& sql, const std::optional<std::int32_t>& recordsAffected,
                  const std::optional<std::int32_t>& options);
  void BeginTrans() { connection_->BeginTrans(); }
  void CommitTrans() { connection_->CommitTrans(); }
  void RollbackTrans() { connection_->RollbackTrans(); }

  const std::shared_ptr<ado::Connection>& connection() const { return connection_; }

 private:
  std::shared_ptr<ado::Connection> connection_;
  std::string connectionString_;
  std::int32_t cursorLocation_ = ado::kClientSide;
  bool open_ = false;
};

class RecordsetObject {
 public:
  RecordsetObject();

  void Open(const std::string& source, const ado::ActiveConnection& activeConnection,
            const std::optional<std::int32_t>& cursorType,
            const std::optional<std::int32_t>& lockType,
            const std::optional<std::int32_t>& options);
  bool Eof() const { return rows_->Eof(); }
  void MoveNext() { rows_->MoveNext(); }
  void AddNew() { rows_->AddNew(); }
  void Update() { rows_->Update(); }
  void Close();
  std::int32_t State() const { return open_ ? 1 : 0; }
  /// All fields, or the one that is named.
  Variant Fields(const std::optional<std::string>& name);

 private:
  std::shared_ptr<ado::Recordset> rows_;
  bool open_ = false;
};

class FieldsObject {
 public:
  explicit FieldsObject(std::shared_ptr<ado::Recordset> rows) : rows_(std::move(rows)) {}
  Variant Item(const std::string& name);

 private:
  std::shared_ptr<ado::Recordset> rows_;
};

class FieldObject {
 public:
  /// A database error where the rows have no such column.
  FieldObject(std::shared_ptr<ado::Recordset> rows, std::string name);
  std::string Name() const { return name_; }
  kt7::Value Value() const { return rows_->get(name_); }
  void setValue(const kt7::Value& value) { rows_->set(name_, value); }

 private:
  std::shared_ptr<ado::Recordset> rows_;
  std::string name_;
};

/// A connection string or a Connection of this library; a type mismatch for anybody else's.
template <>
class Parameter<ado::ActiveConnection> {
 public:
  explicit Parameter(const VARIANT& given);
  ado::ActiveConnection pass() const;

 private:
  std::string connectionString_;
  std::shared_ptr<ado::Connection> connection_;
};

}  // namespace kt7::database2
