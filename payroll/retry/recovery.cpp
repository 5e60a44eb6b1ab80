#include "payroll/retry/recovery.h"

namespace kt7::payroll {

void Recovery::reconnect() {
  Patience patience;
  for (;;) {
    try {
      services_.reconnect();
      services_.catchUp();
      return;
    } catch (const Error& error) {
      if (failureOf(error) == Failure::Final || !patience.waitsAgainAfter(Failure::Lost)) throw;
    }
  }
}

bool Recovery::triesAgainAfter(Failure failure, Patience& patience) {
  if (isLoss(failure)) ++outcome_.losses;
  if (failure == Failure::Conflict || failure == Failure::Duplicate) ++outcome_.conflicts;
  if (!patience.waitsAgainAfter(failure)) return false;
  ++outcome_.retries;
  if (isLoss(failure)) reconnect();
  return true;
}

}  // namespace kt7::payroll
