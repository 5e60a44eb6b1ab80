#include <kt7/host/data_obj.h>

#include "host/data/contract/database.h"

namespace kt7::host {

HostDataObj::HostDataObj(const std::string& connectionString)
    : StandardDataObj(data::pooledSessions(), connectionString,
                      data::namedDatabaseType(connectionString)) {}

std::string HostDataObj::DatabaseType() {
  if (std::string named = StandardDataObj::DatabaseType(); !named.empty()) return named;
  if (askedType_.empty()) askedType_ = data::databaseType(StandardDataObj::ConnectionString());
  return askedType_;
}

}  // namespace kt7::host
