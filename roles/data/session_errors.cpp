#include "roles/data/session_errors.h"

namespace kt7::data {

namespace {

constexpr const char* kInFailedTransaction = "25P02";
constexpr const char* kInActiveTransaction = "25001";

}  // namespace

void raiseConnectionLost(const std::string& text, const std::string& sql, std::int32_t nativeCode,
                         bool outcomeUnknown) {
  if (!outcomeUnknown) {
    raiseConnectionFailed("the connection to the database was lost: " + text,
                          {sql, nativeCode, "08006"});
  }
  raiseConnectionFailed(
      "the connection to the database was lost and it is not known whether the work was kept; "
      "look before repeating it: " +
          text,
      {sql, nativeCode, std::string(kOutcomeUnknown)});
}

void raiseDatabaseMoved(const std::string& sql) {
  raiseConnectionFailed(
      "the database file was moved, replaced or deleted while it was in use, and it is not known "
      "whether the work was kept; look which file is the company's before repeating it",
      {sql, kDatabaseMoved, std::string(kOutcomeUnknown)});
}

void raiseAnswersNoRows(const std::string& sql) {
  raiseStatementFailed("the statement answers no rows", {sql, 0, {}});
}

void raiseRowsLocked(const std::string& text, const DatabaseCause& cause) {
  raiseStatementFailed(
      "the rows are locked: another connection, perhaps of this same thread, has a transaction "
      "open that writes to them; commit or roll back that one first (" +
          text + ")",
      cause);
}

void raiseRolledBack(const std::string& cause, const std::string& sql) {
  raiseStatementFailed("the database rolled the transaction back; the first error was: " + cause,
                       {sql, 0, kInFailedTransaction});
}

void raiseCannotCommit(const std::string& cause) {
  raiseStatementFailed(
      "the transaction could not be committed and was rolled back; the first error was: " + cause,
      {"COMMIT", 0, kInFailedTransaction});
}

void raiseCommitsFirst(const std::string& sql) {
  raiseStatementFailed(
      "the database would commit the open transaction before this statement, so it was not run; "
      "commit or roll back first",
      {sql, 0, kInActiveTransaction});
}

}  // namespace kt7::data
