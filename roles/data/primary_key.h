#pragma once

namespace kt7::data {

// The one column of a table's primary key, no row where it has none or several. "?" is the table's
// name in lower case.
inline constexpr const char* kPrimaryKeyInSqlite =
    "SELECT MAX(name) FROM pragma_table_info(?) WHERE pk > 0 HAVING COUNT(*) = 1";
inline constexpr const char* kPrimaryKeyInMysql =
    "SELECT MAX(column_name) FROM information_schema.statistics WHERE table_schema=DATABASE() AND "
    "index_name='PRIMARY' AND LOWER(table_name)=? HAVING COUNT(*)=1";
inline constexpr const char* kPrimaryKeyInPostgresql =
    "SELECT MAX(CAST(a.attname AS text)) FROM pg_index i JOIN pg_attribute a ON "
    "a.attrelid=i.indrelid AND a.attnum=ANY(i.indkey) WHERE i.indisprimary AND "
    "i.indrelid=to_regclass(?) HAVING COUNT(*)=1";

}  // namespace kt7::data
