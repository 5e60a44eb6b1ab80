#pragma once

// One round trip after a connection is made. Codes compare byte for byte, blanks at their end too;
// a backslash is an ordinary character; what a column cannot hold is refused; nobody waits longer
// than five seconds for a lock.
#define KT7_MYSQL_FAMILY_SETTINGS                                                            \
  "sql_mode='STRICT_ALL_TABLES,NO_ZERO_DATE,NO_ZERO_IN_DATE,ERROR_FOR_DIVISION_BY_ZERO,"     \
  "NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT', innodb_lock_wait_timeout=5, lock_wait_timeout=5, " \
  "character_set_results=utf8mb4, "

namespace kt7::data {

inline constexpr const char* kMariadbSettings =
    "SET " KT7_MYSQL_FAMILY_SETTINGS
    "collation_connection=utf8mb4_nopad_bin, tx_isolation='READ-COMMITTED'";
inline constexpr const char* kMysqlSettings =
    "SET " KT7_MYSQL_FAMILY_SETTINGS
    "collation_connection=utf8mb4_0900_bin, transaction_isolation='READ-COMMITTED'";

}  // namespace kt7::data

#undef KT7_MYSQL_FAMILY_SETTINGS
