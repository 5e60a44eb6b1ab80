#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"
#include "host/data/database.h"
#include "host/data/pool.h"
#include "host/data/session.h"
#include "host/data/sqlite_session.h"

namespace kt7::data {

namespace {

/// A row a name that "Driver=" knows. Without `open` the driver is not part of this program;
/// without a kind the driver has to be asked.
struct Driver {
  std::string_view name;
  std::string_view kind;
  std::unique_ptr<Session> (*open)(const ConnectionString&, std::string_view, std::string_view);
  void (*create)(const ConnectionString&);
};

constexpr std::array<Driver, 5> kDrivers{{
    {"SQLite", "SQLITE", openSqlite, createSqlite},
    {"MySQL", "MYSQL", nullptr, nullptr},
    {"MariaDB", "MYSQL", nullptr, nullptr},
    {"PostgreSQL", "POSTGRESQL", nullptr, nullptr},
    {"ODBC", "", nullptr, nullptr},
}};

std::string builtInNames() {
  std::string names;
  for (const Driver& driver : kDrivers) {
    if (driver.open == nullptr) continue;
    if (!names.empty()) names += ", ";
    names += driver.name;
  }
  return names;
}

const Driver& driverOf(const ConnectionString& where) {
  const std::string_view name = where.driver();
  const auto found = std::find_if(kDrivers.begin(), kDrivers.end(), [name](const Driver& driver) {
    return equalNoCase(driver.name, name);
  });
  if (found != kDrivers.end()) return *found;
  if (name.empty()) {
    raiseConnectionFailed("the connection string names no driver; write Driver=" + builtInNames());
  }
  raiseConnectionFailed("the driver '" + std::string(name) +
                        "' is not known; known is: " + builtInNames());
}

const Driver& builtInDriver(const ConnectionString& where) {
  const Driver& driver = driverOf(where);
  if (driver.open == nullptr) {
    raiseConnectionFailed("the driver '" + std::string(driver.name) +
                          "' is not built into this program; built in is: " + builtInNames());
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
  return std::string(driver.kind.empty() ? builtInDriver(where).kind : driver.kind);
}

void createDatabase(const std::string& connectionString) {
  const ConnectionString where(connectionString);
  const Driver& driver = builtInDriver(where);
  if (driver.create != nullptr) driver.create(where);
  // Connections kept open to a file that was deleted and made anew would answer from the old one.
  dropUnusableSessions();
}

}  // namespace kt7::data
