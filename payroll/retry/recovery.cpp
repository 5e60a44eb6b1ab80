#include "payroll/retry/recovery.h"

namespace kt7::payroll {

void Recovery::reconnect() {
  RetryBudget budget;
  for (;;) {
    try {
      services_.reconnect();
      services_.catchUp();
      return;
    } catch (const Error& error) {
      if (failureOf(error) == Failure::Final || !budget.pauseBeforeRetry(Failure::Lost)) throw;
    }
  }
}

bool Recovery::prepareRetry(Failure failure, RetryBudget& budget) {
  if (isLoss(failure)) ++outcome_.losses;
  if (failure == Failure::Conflict || failure == Failure::Duplicate) ++outcome_.conflicts;
  if (!budget.pauseBeforeRetry(failure)) return false;
  ++outcome_.retries;
  if (isLoss(failure)) reconnect();
  return true;
}

}  // namespace kt7::payroll
