#include <array>
#include <atomic>
#include <optional>

#include <kt7/engine.h>
#include <kt7/error.h>
#include "base/text.h"
#include "host/data/contract/database.h"
#include "host/data/session/driver.h"
#include "host/data/session/pool.h"
#include "host/data/sqlite/session.h"

namespace kt7::data {

namespace {

/// A row a name that "Driver=" may have. Without an engine the driver is asked.
struct DriverName {
  std::string_view name;
  std::optional<Engine> engine;
  std::string_view library;  // that makes the driver known
};

constexpr std::array<DriverName, 5> kNames{{{"SQLite", Engine::Sqlite, "kt7host"},
                                            {"MySQL", Engine::MySql, "kt7mysql"},
                                            {"MariaDB", Engine::MySql, "kt7mysql"},
                                            {"PostgreSQL", Engine::PostgreSql, "kt7postgresql"},
                                            {"ODBC", std::nullopt, "kt7odbc"}}};

constexpr Driver kSqlite{.open = openSqlite, .create = createSqlite};

/// The driver of each name; null for one that nobody made known.
std::array<std::atomic<const Driver*>, kNames.size()> drivers{&kSqlite};

}  // namespace

void addDriver(std::string_view name, const Driver& driver) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (equalNoCase(kNames[i].name, name)) drivers[i] = &driver;
  }
}

std::string builtInDrivers() {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (drivers[i] != nullptr) names.emplace_back(kNames[i].name);
  }
  return joined(names, ", ");
}

namespace {

std::size_t placeOf(const ConnectionString& where) {
  const std::string_view name = where.driver();
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (equalNoCase(kNames[i].name, name)) return i;
  }
  if (name.empty()) {
    raiseConnectionFailed("the connection string names no driver; write Driver=" +
                          builtInDrivers());
  }
  raiseConnectionFailed("the driver '" + std::string(name) +
                        "' is not known; known is: " + builtInDrivers());
}

const Driver& driverOf(const ConnectionString& where) {
  const std::size_t place = placeOf(where);
  const DriverName& row = kNames[place];
  const Driver* const driver = drivers[place];
  if (driver == nullptr) {
    raiseConnectionFailed("the driver '" + std::string(row.name) +
                          "' is not built into this program, which lacks the library " +
                          std::string(row.library) + "; built in is: " + builtInDrivers());
  }
  // What goes to the driver manager is its drivers' own.
  if (row.engine) where.requireKnownKeywords(*row.engine);
  return *driver;
}

}  // namespace

std::unique_ptr<Session> openSession(const ConnectionString& where, std::string_view user,
                                     std::string_view password) {
  return driverOf(where).open(where, user, password);
}

std::string databaseType(const std::string& connectionString) {
  const ConnectionString where(connectionString);
  const std::optional<Engine> engine = kNames[placeOf(where)].engine;
  return engine ? std::string(databaseTypeOf(*engine)) : driverOf(where).askKind(connectionString);
}

std::string namedDatabaseType(const std::string& connectionString) {
  const std::optional<Engine> engine = kNames[placeOf(ConnectionString(connectionString))].engine;
  return std::string(databaseTypeOf(engine.value_or(Engine::Other)));
}

void createDatabase(const std::string& connectionString) {
  const ConnectionString where(connectionString);
  const Driver& driver = driverOf(where);
  if (driver.create != nullptr) driver.create(where);
  // Connections kept open to a file that was deleted and made anew would answer from the old one.
  dropUnusableSessions();
}

}  // namespace kt7::data
