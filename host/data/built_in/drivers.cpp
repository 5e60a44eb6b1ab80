#include "host/data/built_in/drivers.h"

#include <kt7/host/drivers.h>

namespace kt7::data {

void useBuiltInDrivers() {
#ifdef KT7_WITH_MYSQL
  host::useMysql();
#endif
#ifdef KT7_WITH_POSTGRESQL
  host::usePostgresql();
#endif
#ifdef KT7_WITH_ODBC
  host::useOdbc();
#endif
}

}  // namespace kt7::data
