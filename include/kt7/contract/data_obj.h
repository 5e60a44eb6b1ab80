#pragma once

#include <string>

#include <kt7/contract/data_access.h>
#include <kt7/export.h>

namespace kt7 {

/// The host's data object, handed to every operation and never kept: its connection, connection
/// string and database kind. What the status-returning members of a host answer is ignored.
class KT7_API DataObj {
 public:
  virtual ~DataObj() = default;

  /// The open connection, the active connection of recordsets.
  virtual ado::Connection& Connection() = 0;
  /// Makes Connection usable; pairs may nest, an inner pair leaves the outer one standing.
  virtual void OpenConnection() = 0;
  virtual void CloseConnection() = 0;
  virtual void BeginTransaction() = 0;
  virtual void CommitTransaction() = 0;
  /// Runs one action statement, already prepared, on Connection and in its transaction.
  virtual void ExecuteSql(const std::string& sql) = 0;
  virtual void ExecuteSqlEx(const std::string& sql, bool flag) = 0;
  /// The database kind that DataTool::PrepareSql takes.
  virtual std::string DatabaseType() = 0;
  /// Contains "MYSQL" in some letter case for a MySQL database.
  virtual std::string ConnectionString() = 0;
};

/// The host's client: who works and where.
class KT7_API ClientObj {
 public:
  virtual ~ClientObj() = default;
  virtual std::int32_t CurrentUserID() = 0;
  virtual std::string CurrentBranchCode() = 0;
};

/// The host's application.
class KT7_API AppObj {
 public:
  virtual ~AppObj() = default;
  virtual std::string AppDatabaseConnectionString() = 0;
};

}  // namespace kt7
