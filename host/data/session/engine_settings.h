#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

// One round trip after a connection is made. Codes compare byte for byte, blanks at their end too;
// a backslash is an ordinary character; what a column cannot hold is refused; nobody waits longer
// than five seconds for a lock.
#define KT7_MYSQL_FAMILY_SETTINGS                                                            \
  "sql_mode='STRICT_ALL_TABLES,NO_ZERO_DATE,NO_ZERO_IN_DATE,ERROR_FOR_DIVISION_BY_ZERO,"     \
  "NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT', innodb_lock_wait_timeout=5, lock_wait_timeout=5, " \
  "character_set_results=utf8mb4, autocommit=1, "

namespace kt7::data {

inline constexpr const char* kMariadbSettings =
    "SET " KT7_MYSQL_FAMILY_SETTINGS
    "collation_connection=utf8mb4_nopad_bin, tx_isolation='READ-COMMITTED'";
inline constexpr const char* kMysqlSettings =
    "SET " KT7_MYSQL_FAMILY_SETTINGS
    "collation_connection=utf8mb4_0900_bin, transaction_isolation='READ-COMMITTED'";

/// Of the two that speak one protocol, by what a server or a driver says of the server's name or
/// version: "10.11.6-MariaDB-0+deb12u1", "MariaDB".
inline bool isMariadb(std::string_view words) {
  return lowerCase(words).find("mariadb") != std::string::npos;
}

inline const char* settingsOf(bool mariadb) { return mariadb ? kMariadbSettings : kMysqlSettings; }

}  // namespace kt7::data

#undef KT7_MYSQL_FAMILY_SETTINGS
