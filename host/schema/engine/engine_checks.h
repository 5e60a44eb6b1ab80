#pragma once

#include <string>

#include <kt7/contract/data_access.h>
#include <kt7/error.h>
#include "host/schema/engine/ddl.h"

/// What a database must have beside its tables, asked of the engine itself.
namespace kt7::schema {

/// A database error where the database cannot keep every text (PostgreSQL not in UTF8).
void requireUnicode(ado::Connection& connection, Engine engine);

/// A database error that names the first text column of ours that does not compare byte for byte,
/// or the first table that keeps no transactions.
void requireByteOrder(ado::Connection& connection, Engine engine);

/// Whether the functions that the engine lacks are there; createFunctionTexts makes them.
bool hasFunctions(ado::Connection& connection, Engine engine);

/// The statement in the words of this very server: MySQL knows the collation by another name than
/// MariaDB.
std::string fittedToServer(std::string sql, ado::Connection& connection, Engine engine);

/// What an administrator grants where the engine refused for want of rights; "" for other errors.
std::string grantsFor(const Error& error, Engine engine);

}  // namespace kt7::schema
