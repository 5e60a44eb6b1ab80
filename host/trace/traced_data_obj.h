#pragma once

#include <optional>

#include <kt7/host/data_obj.h>
#include "host/trace/traced_connection.h"

namespace kt7::trace {

/// The reference host's data object with every step observed, also the opens and closes that only
/// count. Both arguments outlive it.
class TracedDataObj : public DataObj {
 public:
  TracedDataObj(host::HostDataObj& inner, StepObserver& observer)
      : inner_(inner), observer_(observer) {}

  ado::Connection& Connection() override;
  void OpenConnection() override;
  void CloseConnection() override;
  void BeginTransaction() override;
  void CommitTransaction() override;
  void RollbackTransaction();
  void ExecuteSql(const std::string& sql) override;
  void ExecuteSqlEx(const std::string& sql, bool flag) override;
  std::string DatabaseType() override { return inner_.DatabaseType(); }
  std::string ConnectionString() override { return inner_.ConnectionString(); }

 private:
  host::HostDataObj& inner_;
  StepObserver& observer_;
  std::optional<TracedConnection> connection_;
};

}  // namespace kt7::trace
