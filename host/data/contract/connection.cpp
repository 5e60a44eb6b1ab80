#include "host/data/contract/connection.h"

#include <kt7/error.h>
#include "host/data/contract/database.h"

namespace kt7::data {

void Connection::Open(const std::string& connectionString, const std::string& user,
                      const std::string& password, int) {
  if (lease_) raiseStatementFailed("the connection is already open");
  lease_ = std::make_shared<Lease>(takeSession(connectionString, user, password));
  connectionString_ = connectionString;
}

void Connection::Close() {
  lease();
  lease_.reset();
}

void Connection::Execute(const std::string& sql) { session().execute(sql); }
void Connection::BeginTrans() { session().begin(); }
void Connection::CommitTrans() { session().commit(); }
void Connection::RollbackTrans() { session().rollback(); }

const std::shared_ptr<Lease>& Connection::lease() const {
  if (!lease_) raiseStatementFailed("the connection is closed");
  return lease_;
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

std::unique_ptr<ado::Connection> createConnection() { return std::make_unique<Connection>(); }

bool isLost(ado::Connection& connection) {
  Session& session = ownConnection(connection).lease()->session();
  return session.lost() || !session.usable();
}

void catchUp(ado::Connection& connection) {
  ownConnection(connection).lease()->session().catchUp();
}

std::string databaseType(ado::Connection& connection) {
  return databaseType(ownConnection(connection).connectionString());
}

Value askOne(const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters) {
  if (on.connection() != nullptr) {
    return ownConnection(*on.connection()).lease()->session().askOne(sql, parameters);
  }
  return takeSession(on.connectionString()).session().askOne(sql, parameters);
}

}  // namespace kt7::data
