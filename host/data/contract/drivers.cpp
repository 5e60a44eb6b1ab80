#include <algorithm>
#include <array>

#include <kt7/error.h>
#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/data/session/pool.h"
#include "host/data/session/session.h"
#include "host/data/sqlite/session.h"
#ifdef KT7_WITH_MYSQL
#include "host/data/mysql/driver.h"
#endif
#ifdef KT7_WITH_POSTGRESQL
#include "host/data/postgresql/driver.h"
#endif
#ifdef KT7_WITH_ODBC
#include "host/data/odbc/driver.h"
#endif

namespace kt7::data {

namespace {

// A driver whose client library was missing at build time has no functions.
#ifndef KT7_WITH_MYSQL
constexpr std::nullptr_t openMysql = nullptr, createMysql = nullptr;
#endif
#ifndef KT7_WITH_POSTGRESQL
constexpr std::nullptr_t openPostgresql = nullptr, createPostgresql = nullptr;
#endif
#ifndef KT7_WITH_ODBC
constexpr std::nullptr_t openOdbc = nullptr, odbcDatabaseType = nullptr;
#endif

/// A row a name that "Driver=" knows. Without a kind the driver is asked.
struct Driver {
  std::string_view name;
  std::string_view kind;
  std::unique_ptr<Session> (*open)(const ConnectionString&, std::string_view, std::string_view);
  void (*create)(const ConnectionString&);
  std::string (*askKind)(const std::string& connectionString) = nullptr;
};

constexpr std::array<Driver, 5> kDrivers{{
    {"SQLite", "SQLITE", openSqlite, createSqlite},
    {"MySQL", "MYSQL", openMysql, createMysql},
    {"MariaDB", "MYSQL", openMysql, createMysql},
    {"PostgreSQL", "POSTGRESQL", openPostgresql, createPostgresql},
    {"ODBC", "", openOdbc, nullptr, odbcDatabaseType},
}};

}  // namespace

std::string builtInDrivers() {
  std::string names;
  for (const Driver& driver : kDrivers) {
    if (driver.open == nullptr) continue;
    if (!names.empty()) names += ", ";
    names += driver.name;
  }
  return names;
}

namespace {

const Driver& driverOf(const ConnectionString& where) {
  const std::string_view name = where.driver();
  const auto found = std::find_if(kDrivers.begin(), kDrivers.end(), [name](const Driver& driver) {
    return equalNoCase(driver.name, name);
  });
  if (found != kDrivers.end()) return *found;
  if (name.empty()) {
    raiseConnectionFailed("the connection string names no driver; write Driver=" +
                          builtInDrivers());
  }
  raiseConnectionFailed("the driver '" + std::string(name) +
                        "' is not known; known is: " + builtInDrivers());
}

const Driver& builtInDriver(const ConnectionString& where) {
  const Driver& driver = driverOf(where);
  if (driver.open == nullptr) {
    raiseConnectionFailed("the driver '" + std::string(driver.name) +
                          "' is not built into this program; built in is: " + builtInDrivers());
  }
  return driver;
}

}  // namespace

std::unique_ptr<Session> openSession(const ConnectionString& where, std::string_view user,
                                     std::string_view password) {
  return builtInDriver(where).open(where, user, password);
}

std::string databaseType(const std::string& connectionString) {
  const ConnectionString where(connectionString);
  const Driver& driver = driverOf(where);
  return driver.kind.empty() ? builtInDriver(where).askKind(connectionString)
                             : std::string(driver.kind);
}

std::string namedDatabaseType(const std::string& connectionString) {
  return std::string(driverOf(ConnectionString(connectionString)).kind);
}

void createDatabase(const std::string& connectionString) {
  const ConnectionString where(connectionString);
  const Driver& driver = builtInDriver(where);
  if (driver.create != nullptr) driver.create(where);
  // Connections kept open to a file that was deleted and made anew would answer from the old one.
  dropUnusableSessions();
}

}  // namespace kt7::data
