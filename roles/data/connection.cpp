#include "roles/data/connection.h"

#include <kt7/error.h>
#include "roles/data/wrapped_connection.h"

namespace kt7::data {

void Connection::Open(const std::string& connectionString, const std::string& user,
                      const std::string& password, int) {
  if (session_) raiseStatementFailed("the connection is already open");
  session_ = sessions_.take(connectionString, user, password);
  connectionString_ = connectionString;
}

void Connection::Close() {
  session();
  session_.reset();
}

void Connection::Execute(const std::string& sql) { session()->execute(sql); }
void Connection::BeginTrans() { session()->begin(); }
void Connection::CommitTrans() { session()->commit(); }
void Connection::RollbackTrans() { session()->rollback(); }

const std::shared_ptr<Session>& Connection::session() const {
  if (!session_) raiseStatementFailed("the connection is closed");
  return session_;
}

Connection& ownConnection(ado::Connection& connection) {
  ado::Connection* inner = &connection;
  for (;;) {
    if (auto* const own = dynamic_cast<Connection*>(inner)) return *own;
    auto* const wrapped = dynamic_cast<WrappedConnection*>(inner);
    if (wrapped == nullptr) {
      raiseStatementFailed("the connection was not made by this host");
    }
    inner = &wrapped->inner();
  }
}

bool isLost(ado::Connection& connection) {
  Session& session = *ownConnection(connection).session();
  return session.lost() || !session.usable();
}

Value askOne(Sessions& sessions, const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters) {
  if (on.connection() != nullptr) {
    return ownConnection(*on.connection()).session()->askOne(sql, parameters);
  }
  return sessions.take(on.connectionString(), {}, {})->askOne(sql, parameters);
}

}  // namespace kt7::data
