#pragma once

#include <string_view>

#include <kt7/export.h>

namespace kt7 {

/// The database behind a connection: it decides the words of statements, such as "SELECT TOP n",
/// "year()", the letter case of table names and how a new row's key is asked for.
enum class Engine { Sqlite, MySql, PostgreSql, SqlServer, Other };

/// The engine of a DataObj::DatabaseType, in any letter case; MariaDB's is MySql. Other for a text
/// that is not known.
KT7_API Engine engineOf(std::string_view databaseType);
/// Its DatabaseType: "SQLITE", "MYSQL", "POSTGRESQL", "MICROSOFT SQL SERVER"; "" of Other.
KT7_API std::string_view databaseTypeOf(Engine engine);

}  // namespace kt7
