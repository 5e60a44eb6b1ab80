#pragma once

#include "collab/ado.h"
#include "host/schema/ddl.h"

namespace kt7::schema {

/// The version of the description that createSchema writes into KT7TSchema.
inline constexpr int kSchemaVersion = 1;

/// True where the database already holds a table or view of this system, whole schema or not.
bool hasSchema(ado::Connection& connection, Engine engine);

/// The version kept in KT7TSchema; a database error where there is no such table.
int schemaVersion(ado::Connection& connection);

/// Makes every table, index and view, in one transaction (MySQL commits each statement by itself).
/// A database error where the database already holds tables of this system.
void createSchema(ado::Connection& connection, Engine engine);

/// Fills the sample company into freshly made tables, in one transaction.
void loadSample(ado::Connection& connection);

}  // namespace kt7::schema
