#pragma once

#include <chrono>
#include <string>

namespace kt7 {
class Error;
}

namespace kt7::payroll {

/// What a unit of work that failed calls for.
enum class Failure {
  Final,           // it would fail again
  Conflict,        // another connection was in the way; repeating it may succeed
  Duplicate,       // a row of that key stands already, perhaps written meanwhile
  Lost,            // the connection was lost and nothing of the unit was kept
  OutcomeUnknown,  // the connection was lost while the unit was being kept: look before repeating
  Moved            // the same, and another connection would lead to another database
};

/// By the SQLSTATE of the error, or by the engine's own code where it tells no SQLSTATE.
Failure failureOf(const Error& error);

/// Kind and text of an error, for people.
std::string causeOf(const Error& error);

/// Whether the connection is of no use any more.
inline bool isLoss(Failure failure) {
  return failure == Failure::Lost || failure == Failure::OutcomeUnknown ||
         failure == Failure::Moved;
}

/// How often and after which pauses work is repeated. The pauses grow and differ, so that those who
/// met once do not meet again.
class Patience {
 public:
  /// Waits and answers true, or answers false when it has been tried often enough.
  bool waitsAgainAfter(Failure failure);

 private:
  int tries_ = 0;
};

/// A random pause of at most that length.
void pauseUpTo(std::chrono::milliseconds longest);

}  // namespace kt7::payroll
