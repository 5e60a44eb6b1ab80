#pragma once

#include <memory>
#include <string>

#include <kt7/contract/data_access.h>
#include "host/data/session/pool.h"

namespace kt7::data {

/// The contract's connection on a session of the pool.
class Connection final : public ado::Connection {
 public:
  /// Every cursor is on the client, whatever is asked for.
  void CursorLocation(int) override {}
  void Open(const std::string& connectionString, const std::string& user,
            const std::string& password, int options) override;
  void Close() override;
  void Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;

  /// A database error while closed.
  const std::shared_ptr<Lease>& lease() const;
  const std::string& connectionString() const { return connectionString_; }

 private:
  Session& session() const { return lease()->session(); }
  std::shared_ptr<Lease> lease_;
  std::string connectionString_;
};

/// The connection behind any wrapping; a database error for one that is not this host's.
Connection& ownConnection(ado::Connection& connection);

}  // namespace kt7::data
