#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/data/session/connection_string.h"
#include "roles/data/session.h"

namespace kt7::data {

/// A connection through the driver manager: "Driver=ODBC;" is taken off and the rest goes to it as
/// it stands. A connection error with the driver's own words.
std::unique_ptr<Session> openOdbc(const ConnectionString& where, std::string_view user,
                                  std::string_view password);
/// What is behind the driver: "SQLITE", "MYSQL", "POSTGRESQL" or the name that it gives in
/// capitals, such as "MICROSOFT SQL SERVER". Asked once for each connection string.
std::string odbcDatabaseType(const std::string& connectionString);

}  // namespace kt7::data
