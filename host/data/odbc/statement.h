#pragma once

#include "host/data/odbc/session.h"

namespace kt7::data {

/// The handle of a statement of the session.
class OdbcSession::Statement {
 public:
  Statement(OdbcSession& session, const std::string& sql);
  ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  SQLHSTMT get() const { return handle_; }
  std::int64_t changedRows() const {
    SQLLEN count = 0;
    SQLRowCount(handle_, &count);
    return count;
  }

 private:
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

}  // namespace kt7::data
