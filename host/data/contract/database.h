#pragma once

#include <memory>
#include <span>
#include <string>

#include <kt7/contract/data_access.h>

/// The reference host's drivers behind the data-access contract.
namespace kt7::data {

/// A closed connection; Open takes one from the pool of its connection string.
std::unique_ptr<ado::Connection> createConnection();
std::unique_ptr<ado::Recordset> createRecordset();

/// First column of the first row of a SELECT whose "?" are bound to the texts; null without a row.
/// The text should be the same every time: it is prepared once. A database error on a connection
/// that was not made here.
Value askOne(const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters);

/// True where the connection was lost, does not answer, or was told by a text what the next user
/// must not meet; a database error on a connection that was not made here.
bool isLost(ado::Connection& connection);

/// Waits until the connection sees what was committed on any node of a cluster before.
void catchUp(ado::Connection& connection);

/// "SQLITE", "MYSQL", "POSTGRESQL" or what the driver answers; a database error for a connection
/// string without a known driver.
std::string databaseType(const std::string& connectionString);

/// The same of an open connection; a database error for one that was not made here.
std::string databaseType(ado::Connection& connection);

/// The same as far as the driver's name tells it; "" where the driver would have to be asked.
std::string namedDatabaseType(const std::string& connectionString);

/// The names after "Driver=" that this program can open, joined by ", ".
std::string builtInDrivers();

/// Makes the empty database that the connection string names where it is not there and its driver
/// can; a database error when it cannot be made. Opening never makes one.
void createDatabase(const std::string& connectionString);

/// The connection string without its password, for messages.
std::string shownConnectionString(const std::string& connectionString);

/// A connection that forwards to another (a trace, a fault injector). Recordsets and lookups look
/// through it.
class WrappedConnection : public ado::Connection {
 public:
  virtual ado::Connection& inner() = 0;
};

}  // namespace kt7::data
