#pragma once

#include <kt7/error.h>
#include <kt7/payroll/run_outcome.h>
#include "payroll/ports/run_services.h"
#include "payroll/retry/failure.h"

namespace kt7::payroll {

/// Takes a worker over lost connections: work that writes nothing is done again on another one.
class Recovery {
 public:
  Recovery(RunServices& services, RunOutcome& outcome) : services_(services), outcome_(outcome) {}

  /// What `work` answers. Other errors leave, and a loss that lasts.
  template <typename Work>
  auto doing(Work work) {
    return repeated(work, [](Failure failure) { return isLoss(failure); });
  }
  /// The same of work that may be done twice: also over conflicts.
  template <typename Work>
  auto repeating(Work work) {
    return repeated(
        work, [](Failure failure) { return isLoss(failure) || failure == Failure::Conflict; });
  }

  /// Another connection; the error of the last attempt where there is none to be had.
  void reconnect();
  /// Counts the failure, and waits or takes another connection where trying again is worth it.
  bool triesAgainAfter(Failure failure, Patience& patience);

 private:
  template <typename Work, typename MayRepeat>
  auto repeated(Work& work, MayRepeat mayRepeat) {
    Patience patience;
    for (;;) {
      try {
        return work();
      } catch (const Error& error) {
        const Failure failure = failureOf(error);
        if (!mayRepeat(failure) || !triesAgainAfter(failure, patience)) throw;
      }
    }
  }

  RunServices& services_;
  RunOutcome& outcome_;
};

/// What `make` answers, over connections that are lost meanwhile.
template <typename Make>
auto madeOn(RunServices& services, Make make) {
  RunOutcome uncounted;
  return Recovery(services, uncounted).doing(make);
}

}  // namespace kt7::payroll
