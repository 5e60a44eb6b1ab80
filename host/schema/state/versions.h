#pragma once

#include <string_view>

#include <kt7/contract/data_access.h>
#include "host/schema/description/table.h"
#include "host/schema/engine/catalogue.h"

namespace kt7::schema {

/// The version of the description. A change of it adds rows to the table in versions.cpp.
inline constexpr int kSchemaVersion = 2;

/// The version in which the table, or its index of that number (from 1), came.
int versionOf(const Table& table);
int versionOf(const Table& table, std::size_t index);

/// Makes what the versions after `from` added, the version last; in one transaction where the
/// engine can, else so that it can be repeated after a failure. A database error names the rows
/// that stand in the way of a unique index.
void upgradeSchema(ado::Connection& connection, Engine engine, int from);

}  // namespace kt7::schema
