#include "host/data/odbc/handle.h"

#include <array>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7::data {

Diagnosis diagnosisOf(SQLSMALLINT type, SQLHANDLE handle) {
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 2048> text{};
  Diagnosis diagnosis;
  SQLSMALLINT length = 0;
  if (!succeeded(SQLGetDiagRec(type, handle, 1, state.data(), &diagnosis.native, text.data(),
                               static_cast<SQLSMALLINT>(text.size()), &length))) {
    diagnosis.text = "the driver gave no reason";
    return diagnosis;
  }
  diagnosis.state = reinterpret_cast<const char*>(state.data());
  std::string_view words = reinterpret_cast<const char*>(text.data());
  // "[vendor][driver][server]" stands before the words.
  while (words.starts_with('[') && words.find(']') != std::string_view::npos) {
    words.remove_prefix(words.find(']') + 1);
  }
  diagnosis.text = trimmedBlanks(words);
  return diagnosis;
}

OdbcHandle::OdbcHandle(const std::string& connectionString) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  constexpr std::uintptr_t kLoginSeconds = 5;
  SQLSetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, numberAttribute(kLoginSeconds), 0);
  const SQLRETURN code = SQLDriverConnect(connection_, nullptr, bytesOf(connectionString),
                                          static_cast<SQLSMALLINT>(connectionString.size()),
                                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (succeeded(code)) {
    connected_ = true;
    return;
  }
  const Diagnosis cause = diagnosisOf(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  raiseConnectionFailed("cannot connect by ODBC: " + cause.text, {{}, cause.native, cause.state});
}

std::string OdbcHandle::info(SQLUSMALLINT what) const {
  std::array<char, 128> text{};
  SQLSMALLINT length = 0;
  SQLGetInfo(connection_, what, text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
  return text.data();
}

OdbcHandle::~OdbcHandle() {
  if (connected_) {
    // A connection whose transaction is open is not closed.
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
  }
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

}  // namespace kt7::data
