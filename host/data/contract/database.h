#pragma once

#include <memory>
#include <span>
#include <string>

#include <kt7/contract/data_access.h>
#include <kt7/engine.h>
#include "roles/data/wrapped_connection.h"

/// The reference host's drivers behind the data-access contract.
namespace kt7::data {

class Sessions;

/// The sessions of all connection strings, kept open for the next who asks.
const std::shared_ptr<Sessions>& pooledSessions();

/// A closed connection; Open takes one from the pool of its connection string.
std::unique_ptr<ado::Connection> createConnection();
std::unique_ptr<ado::Recordset> createRecordset();

/// First column of the first row of a SELECT whose "?" are bound to the texts; null without a row.
/// The text should be the same every time: it is prepared once. A database error on a connection
/// that was not made here.
Value askOne(const ado::ActiveConnection& on, const std::string& sql,
             std::span<const std::string> parameters);

/// Waits until the connection sees what was committed on any node of a cluster before.
void catchUp(ado::Connection& connection);

/// "SQLITE", "MYSQL", "POSTGRESQL" or what the driver answers; a database error for a connection
/// string without a known driver.
std::string databaseType(const std::string& connectionString);

/// The same of an open connection; a database error for one that was not made here.
std::string databaseType(ado::Connection& connection);
Engine engineOn(ado::Connection& connection);

/// The same as far as the driver's name tells it; "" where the driver would have to be asked.
std::string namedDatabaseType(const std::string& connectionString);

/// The names after "Driver=" that this program can open, joined by ", ".
std::string builtInDrivers();

/// Makes the empty database that the connection string names where it is not there and its driver
/// can; a database error when it cannot be made. Opening never makes one.
void createDatabase(const std::string& connectionString);

}  // namespace kt7::data
