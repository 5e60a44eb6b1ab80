#include "host/data/contract/database.h"

#include "host/data/session/pool.h"
#include "roles/data/connection.h"
#include "roles/data/recordset.h"

namespace kt7::data {

namespace {

/// Sessions of the built-in drivers, from the pool.
class PooledSessions final : public Sessions {
 public:
  std::shared_ptr<Session> take(std::string_view connectionString, std::string_view user,
                                std::string_view password) override {
    const auto lease = std::make_shared<Lease>(takeSession(connectionString, user, password));
    return {lease, &lease->session()};
  }
};

}  // namespace

const std::shared_ptr<Sessions>& pooledSessions() {
  static const std::shared_ptr<Sessions> pooled = std::make_shared<PooledSessions>();
  return pooled;
}

std::unique_ptr<ado::Connection> createConnection() {
  return std::make_unique<Connection>(*pooledSessions());
}

std::unique_ptr<ado::Recordset> createRecordset() {
  return std::make_unique<Recordset>(*pooledSessions());
}

void catchUp(ado::Connection& connection) { ownConnection(connection).session()->catchUp(); }

std::string databaseType(ado::Connection& connection) {
  return databaseType(ownConnection(connection).connectionString());
}

Engine engineOn(ado::Connection& connection) { return engineOf(databaseType(connection)); }

Value askOne(const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters) {
  return askOne(*pooledSessions(), on, sql, parameters);
}

}  // namespace kt7::data
