#pragma once

#include <memory>

#include <kt7/contract/data_obj.h>
#include <kt7/export.h>

namespace kt7::host {

/// The data object of the reference host: one connection to the company's database, made usable
/// by counted opens. Using it while closed is a failed collaborator call.
class KT7_API HostDataObj : public DataObj {
 public:
  /// Closed at first. Whether the connection string names a known driver is tested here.
  explicit HostDataObj(std::string connectionString);
  ~HostDataObj() override;

  ado::Connection& Connection() override;
  void OpenConnection() override;
  /// Closing more often than opening does nothing. The last close gives up a transaction that was
  /// neither committed nor rolled back.
  void CloseConnection() override;
  void BeginTransaction() override;
  void CommitTransaction() override;
  void RollbackTransaction();
  void ExecuteSql(const std::string& sql) override;
  /// As ExecuteSql: the flag has no effect.
  void ExecuteSqlEx(const std::string& sql, bool flag) override;
  std::string DatabaseType() override;
  std::string ConnectionString() override { return connectionString_; }

  int opens() const { return opens_; }
  /// Began and neither committed nor rolled back; a commit that failed counts as not committed.
  bool inTransaction() const { return inTransaction_; }

  /// Closes what was opened beyond that count, a transaction that began stays. For the end of a
  /// failed call inside the caller's own transaction.
  void closeDownTo(int opens);
  /// Rolls back and leaves the connection opened that many times, reconnected where it was lost;
  /// a database error when that is not possible.
  void reset(int opens);

 private:
  std::string connectionString_;
  std::string databaseType_;
  std::unique_ptr<ado::Connection> connection_;
  int opens_ = 0;
  bool inTransaction_ = false;
};

}  // namespace kt7::host
