#include "payroll/retry/failure.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <thread>

#include <kt7/error.h>

namespace kt7::payroll {

namespace {

using std::chrono::milliseconds;

constexpr std::string_view kOutcomeUnknown = "08007";
constexpr std::string_view kConnectionClass = "08";
constexpr std::int32_t kFileMoved = 1032;  // of the embedded engine
constexpr std::int32_t kMysqlLockWait = 1205;
constexpr std::int32_t kMysqlDeadlock = 1213;
constexpr std::int32_t kMysqlDuringCommit = 1180;

struct StateRow {
  std::string_view sqlState;
  Failure failure;
};

constexpr std::array<StateRow, 6> kStates{{{"40001", Failure::Conflict},
                                           {"40P01", Failure::Conflict},   // deadlock
                                           {"55P03", Failure::Conflict},   // lock not available
                                           {"HYT00", Failure::Conflict},   // the same by ODBC
                                           {"23505", Failure::Duplicate},  // unique violation
                                           {"23000", Failure::Duplicate}}};

struct CodeRow {
  std::int32_t code;
  Failure failure;
};

/// Of the embedded engine, which knows no SQLSTATE.
constexpr std::array<CodeRow, 6> kEmbeddedCodes{{{5, Failure::Conflict},      // busy
                                                 {261, Failure::Conflict},    // busy, recovering
                                                 {517, Failure::Conflict},    // snapshot outdated
                                                 {6, Failure::Conflict},      // locked
                                                 {1555, Failure::Duplicate},  // primary key
                                                 {2067, Failure::Duplicate}}};

struct Tries {
  int most;
  milliseconds firstPause;
};

Tries triesFor(Failure failure) {
  switch (failure) {
    case Failure::Conflict:
      return {12, milliseconds(10)};
    case Failure::Duplicate:
      return {12, milliseconds(20)};
    case Failure::Lost:
    case Failure::OutcomeUnknown:
      return {40, milliseconds(100)};
    default:
      return {0, milliseconds(0)};
  }
}

}  // namespace

Failure failureOf(const Error& error) {
  if (error.kind() != ErrorKind::Database) return Failure::Final;
  const std::string_view state = error.cause().sqlState;
  const std::int32_t code = error.cause().nativeCode;
  if (state == kOutcomeUnknown) {
    return code == kFileMoved ? Failure::Moved : Failure::OutcomeUnknown;
  }
  if (error.number() == error_number::kConnectionFailed) return Failure::Lost;
  if (state.empty()) {
    const auto row = std::find_if(kEmbeddedCodes.begin(), kEmbeddedCodes.end(),
                                  [code](const CodeRow& known) { return known.code == code; });
    return row == kEmbeddedCodes.end() ? Failure::Final : row->failure;
  }
  if (state.starts_with(kConnectionClass)) return Failure::Lost;
  const auto row = std::find_if(kStates.begin(), kStates.end(),
                                [state](const StateRow& known) { return known.sqlState == state; });
  if (row != kStates.end()) return row->failure;
  if (code == kMysqlDuringCommit) return Failure::OutcomeUnknown;
  return code == kMysqlLockWait || code == kMysqlDeadlock ? Failure::Conflict : Failure::Final;
}

void pauseUpTo(milliseconds longest) {
  thread_local std::minstd_rand random{std::random_device{}()};
  std::uniform_int_distribution<std::int64_t> length(0, longest.count());
  std::this_thread::sleep_for(milliseconds(length(random)));
}

bool RetryBudget::pauseBeforeRetry(Failure failure) {
  constexpr int kDoublings = 6;
  constexpr milliseconds kLongestPause(1000);
  const Tries allowed = triesFor(failure);
  if (tries_ >= allowed.most) return false;
  const auto grown = allowed.firstPause * (1 << std::min(tries_, kDoublings));
  ++tries_;
  pauseUpTo(std::min<milliseconds>(grown, kLongestPause));
  return true;
}

std::string causeOf(const Error& error) {
  return std::string(kindName(error.kind())) + " error " + std::to_string(error.number()) + ": " +
         error.what();
}

}  // namespace kt7::payroll
