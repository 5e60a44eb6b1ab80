#include "open_company.h"

#include "host/data/contract/database.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

std::unique_ptr<ado::Connection> openCompany(const std::string& connectionString) {
  auto connection = data::createConnection();
  connection->Open(connectionString);
  schema::requireCompany(*connection);
  return connection;
}

}  // namespace kt7::cli
