#pragma once

#include <kt7/error.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/ports/run_services.h"
#include "payroll/retry/failure.h"

namespace kt7::payroll {

/// Repeats work after a lost connection, on a new one, and counts that in the outcome.
class Recovery {
 public:
  Recovery(RunServices& services, RunOutcome& outcome) : services_(services), outcome_(outcome) {}

  /// Answers what `work` answers. `work` must not write. Raises other errors, and the loss if no
  /// retry is left.
  template <typename Work>
  auto retryOnLoss(Work work) {
    return retry(work, [](Failure failure) { return isLoss(failure); });
  }
  /// The same, repeating also after a conflict. `work` may write what can be written twice.
  template <typename Work>
  auto retryOnLossOrConflict(Work work) {
    return retry(work,
                 [](Failure failure) { return isLoss(failure) || failure == Failure::Conflict; });
  }

  /// Replaces the connection; the error of the last attempt if that fails.
  void reconnect();
  /// Counts the failure, pauses and reconnects if need be; false if the work should not be
  /// repeated.
  [[nodiscard]] bool prepareRetry(Failure failure, RetryBudget& budget);

 private:
  template <typename Work, typename MayRepeat>
  auto retry(Work& work, MayRepeat mayRepeat) {
    RetryBudget budget;
    for (;;) {
      try {
        return work();
      } catch (const Error& error) {
        const Failure failure = failureOf(error);
        if (!mayRepeat(failure) || !prepareRetry(failure, budget)) throw;
      }
    }
  }

  RunServices& services_;
  RunOutcome& outcome_;
};

/// Answers what `make` answers, repeated after lost connections, which are not counted.
template <typename Make>
auto buildWithRetry(RunServices& services, Make make) {
  RunOutcome uncounted;
  return Recovery(services, uncounted).retryOnLoss(make);
}

}  // namespace kt7::payroll
