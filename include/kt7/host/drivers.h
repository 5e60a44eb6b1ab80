#pragma once

#include <kt7/export.h>

namespace kt7::host {

// "Driver=SQLite" is always known. Each of these makes another driver known to the process and
// lives in a library of its own, which needs that engine's client library. To be called before the
// first connection is opened; a second call does nothing.

/// "Driver=MySQL" and "Driver=MariaDB", from KT7HRLib::kt7mysql.
KT7_API void useMysql();
/// "Driver=PostgreSQL", from KT7HRLib::kt7postgresql.
KT7_API void usePostgresql();
/// "Driver=ODBC", from KT7HRLib::kt7odbc.
KT7_API void useOdbc();

}  // namespace kt7::host
