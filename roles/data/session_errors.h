#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <kt7/error.h>

namespace kt7::data {

/// The SQLSTATE of an error after which nobody knows whether the work took effect: the connection
/// was lost while the engine was at it. Whatever repeats the work has to look first.
inline constexpr std::string_view kOutcomeUnknown = "08007";

/// A connection error for a connection that was lost while `sql` ran.
[[noreturn]] void raiseConnectionLost(const std::string& text, const std::string& sql,
                                      std::int32_t nativeCode, bool outcomeUnknown);

/// The code, SQLite's own, of an error after which the connection string no longer leads to the
/// database that the work was done in. Its SQLSTATE is kOutcomeUnknown.
inline constexpr std::int32_t kDatabaseMoved = 1032;
[[noreturn]] void raiseDatabaseMoved(const std::string& sql);

[[noreturn]] void raiseAnswersNoRows(const std::string& sql);
/// Another transaction held a lock for longer than anybody waits.
[[noreturn]] void raiseRowsLocked(const std::string& text, const DatabaseCause& cause);
/// A statement in a transaction that the engine has rolled back; `cause`: the first error's text.
[[noreturn]] void raiseRolledBack(const std::string& cause, const std::string& sql);
/// The COMMIT of such a transaction.
[[noreturn]] void raiseCannotCommit(const std::string& cause);
/// A statement before which the engine would commit the open transaction; it was not sent.
[[noreturn]] void raiseCommitsFirst(const std::string& sql);

}  // namespace kt7::data
