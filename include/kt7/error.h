#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include <kt7/export.h>

namespace kt7 {

/// What went wrong, in the words of the host's platform.
enum class ErrorKind {
  Overflow,
  Subscript,
  DivisionByZero,
  TypeMismatch,
  NotImplemented,
  Collaborator,
  Database
};

/// Published error numbers; every front maps from these.
namespace error_number {
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kSubscript = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kCannotCreate = 429;
inline constexpr std::int32_t kCallFailed = 440;
inline constexpr std::int32_t kNotImplemented = 445;
inline constexpr std::int32_t kConnectionFailed = -2147467259;
inline constexpr std::int32_t kStatementFailed = -2147217900;
}  // namespace error_number

struct ErrorKindRow {
  ErrorKind kind;
  std::string_view name;
  std::int32_t number;
  std::string_view text;
};

/// One row a kind: its name on every front, its usual number and its usual text.
KT7_API std::span<const ErrorKindRow> errorKinds();
KT7_API std::string_view kindName(ErrorKind kind);

/// What the database said when it refused a statement or a connection.
struct DatabaseCause {
  std::string statement;
  std::int32_t nativeCode = 0;
  std::string sqlState;
};

/// The one exception of the library: a kind, the published number and a text for people.
class KT7_API Error : public std::runtime_error {
 public:
  Error(ErrorKind kind, std::int32_t number, const std::string& text, DatabaseCause cause = {});

  ErrorKind kind() const { return kind_; }
  std::int32_t number() const { return number_; }
  const DatabaseCause& cause() const { return cause_; }

 private:
  ErrorKind kind_;
  std::int32_t number_;
  DatabaseCause cause_;
};

[[noreturn]] KT7_API void raiseOverflow();
[[noreturn]] KT7_API void raiseSubscript();
[[noreturn]] KT7_API void raiseDivisionByZero();
[[noreturn]] KT7_API void raiseTypeMismatch(std::string_view detail = {});
[[noreturn]] KT7_API void raiseNotImplemented(std::string_view operation);
[[noreturn]] KT7_API void raiseCollaborator(std::int32_t number, const std::string& text);
[[noreturn]] KT7_API void raiseConnectionFailed(const std::string& text, DatabaseCause cause = {});
[[noreturn]] KT7_API void raiseStatementFailed(const std::string& text, DatabaseCause cause = {});

}  // namespace kt7
