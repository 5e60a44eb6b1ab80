// A host whose own headers are named as the library's are, and which is first in the search path.
#include "base/error.h"
#include "currency.h"
#include "date.h"
#include "host/platform.h"
#include "interface/hr_object.h"
#include "payroll/month.h"

#include <cstdio>

#include <kt7/host/host.h>
#include <kt7/kt7.h>
#include <kt7/payroll/payroll.h>
#include <kt7/roles/roles.h>

int main() {
  const int own =
      ownError() + ownHrObject() + ownPlatform() + ownMonth() + ownDate() + ownCurrency();
  std::printf("version %.*s, own headers %d\n", static_cast<int>(kt7::libraryVersion().size()),
              kt7::libraryVersion().data(), own);
  kt7::host::useMysql();
  kt7::host::usePostgresql();
  kt7::host::useOdbc();
  // Nobody listens at port 1. A driver that is not known is another error, and before the call.
  for (const char* driver : {"MySQL", "PostgreSQL"}) {
    kt7::host::Company company(std::string("Server=127.0.0.1;Port=1;Uid=u;Database=d;Driver=") +
                               driver);
    try {
      company.hr().GETDAYRATE("E0001", company.data());
    } catch (const kt7::Error& error) {
      std::printf("%s %d\n", driver, error.number());
    }
  }
}
