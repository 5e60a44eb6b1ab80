#include <kt7/error.h>

#include <array>

namespace kt7 {

namespace {

constexpr std::array<ErrorKindRow, 7> kKinds{{
    {ErrorKind::Overflow, "overflow", error_number::kOverflow, "Overflow"},
    {ErrorKind::Subscript, "subscript", error_number::kSubscript, "Subscript out of range"},
    {ErrorKind::DivisionByZero, "division by zero", error_number::kDivisionByZero,
     "Division by zero"},
    {ErrorKind::TypeMismatch, "type mismatch", error_number::kTypeMismatch, "Type mismatch"},
    {ErrorKind::NotImplemented, "not implemented", error_number::kNotImplemented,
     "Object doesn't support this action"},
    {ErrorKind::Collaborator, "collaborator", error_number::kCallFailed, "Automation error"},
    {ErrorKind::Database, "database", error_number::kStatementFailed, "Database error"},
}};

const ErrorKindRow& rowOf(ErrorKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

[[noreturn]] void raiseUsual(ErrorKind kind, std::string_view detail = {}) {
  const ErrorKindRow& row = rowOf(kind);
  std::string text(row.text);
  if (!detail.empty()) text.append(": ").append(detail);
  throw Error(kind, row.number, text);
}

}  // namespace

std::span<const ErrorKindRow> errorKinds() { return kKinds; }

std::string_view kindName(ErrorKind kind) { return rowOf(kind).name; }

Error::Error(ErrorKind kind, std::int32_t number, const std::string& text, DatabaseCause cause)
    : std::runtime_error(text), kind_(kind), number_(number), cause_(std::move(cause)) {}

void raiseOverflow() { raiseUsual(ErrorKind::Overflow); }
void raiseSubscript() { raiseUsual(ErrorKind::Subscript); }
void raiseDivisionByZero() { raiseUsual(ErrorKind::DivisionByZero); }
void raiseTypeMismatch(std::string_view detail) { raiseUsual(ErrorKind::TypeMismatch, detail); }
void raiseNotImplemented(std::string_view operation) {
  raiseUsual(ErrorKind::NotImplemented, operation);
}
void raiseCollaborator(std::int32_t number, const std::string& text) {
  throw Error(ErrorKind::Collaborator, number, text);
}
void raiseConnectionFailed(const std::string& text, DatabaseCause cause) {
  throw Error(ErrorKind::Database, error_number::kConnectionFailed, text, std::move(cause));
}
void raiseStatementFailed(const std::string& text, DatabaseCause cause) {
  throw Error(ErrorKind::Database, error_number::kStatementFailed, text, std::move(cause));
}

}  // namespace kt7
