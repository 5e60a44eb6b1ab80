#pragma once

#include <chrono>
#include <string>

namespace kt7 {
class Error;
}

namespace kt7::payroll {

/// What to do about a transaction that failed.
enum class Failure {
  Final,           // it would fail again
  Conflict,        // a conflict with another connection; repeating may succeed
  Duplicate,       // the key exists already, perhaps since a moment ago
  Lost,            // the connection was lost, nothing was committed
  OutcomeUnknown,  // the connection was lost during COMMIT: look first whether it took effect
  Moved            // the same, and a new connection would reach another database
};

/// By the error's SQLSTATE, or by the engine's own code if it has no SQLSTATE.
Failure failureOf(const Error& error);

/// Kind, number and text of an error, for people.
std::string causeOf(const Error& error);

/// Whether the connection is lost.
inline bool isLoss(Failure failure) {
  return failure == Failure::Lost || failure == Failure::OutcomeUnknown ||
         failure == Failure::Moved;
}

/// How often one piece of work is repeated. The pauses grow and are random, so that two workers in
/// conflict do not meet again.
class RetryBudget {
 public:
  /// Pauses and answers true; false if no retry is left for such a failure.
  [[nodiscard]] bool pauseBeforeRetry(Failure failure);

 private:
  int tries_ = 0;
};

/// Pauses for a random time of at most `longest`.
void pauseUpTo(std::chrono::milliseconds longest);

}  // namespace kt7::payroll
