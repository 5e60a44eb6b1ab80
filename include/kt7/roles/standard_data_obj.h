#pragma once

#include <memory>
#include <string>

#include <kt7/contract/data_obj.h>
#include <kt7/export.h>

namespace kt7::data {
class Connection;
class Sessions;
}  // namespace kt7::data

namespace kt7::roles {

/// The ready-made data object: one connection to the company's database, made usable by counted
/// opens. Using it while closed is a failed collaborator call.
class KT7_API StandardDataObj : public DataObj {
 public:
  /// Closed at first.
  StandardDataObj(std::shared_ptr<data::Sessions> sessions, std::string connectionString,
                  std::string databaseType);
  ~StandardDataObj() override;

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
  std::string DatabaseType() override { return databaseType_; }
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
  std::shared_ptr<data::Sessions> sessions_;
  std::string connectionString_;
  std::string databaseType_;
  std::unique_ptr<data::Connection> connection_;
  int opens_ = 0;
  bool inTransaction_ = false;
};

}  // namespace kt7::roles
