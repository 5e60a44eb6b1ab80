#pragma once

#include <memory>
#include <span>
#include <string>

#include <kt7/contract/data_access.h>
#include "roles/data/sessions.h"

namespace kt7::data {

/// The contract's connection on a session.
class Connection final : public ado::Connection {
 public:
  explicit Connection(Sessions& sessions) : sessions_(sessions) {}

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
  const std::shared_ptr<Session>& session() const;
  const std::string& connectionString() const { return connectionString_; }

 private:
  Sessions& sessions_;
  std::shared_ptr<Session> session_;
  std::string connectionString_;
};

/// The connection behind any wrapping; a database error for one that is not this host's.
Connection& ownConnection(ado::Connection& connection);

/// True where the connection was lost, does not answer, or was told by a text what the next user
/// must not meet; a database error on a connection that was not made here.
bool isLost(ado::Connection& connection);

/// First column of the first row of a SELECT whose "?" are bound to the texts; null without a row.
/// For a connection string a session is taken for the length of the call.
Value askOne(Sessions& sessions, const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters);

}  // namespace kt7::data
