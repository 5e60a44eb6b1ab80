#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace kt7::data {

/// The handle of a connection and of its environment; both go with it.
class OdbcHandle {
 public:
  /// A connection error with the driver's words.
  explicit OdbcHandle(const std::string& connectionString);
  ~OdbcHandle();
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  SQLHDBC get() const { return connection_; }
  /// What the driver answers to a question of SQLGetInfo about a text.
  std::string info(SQLUSMALLINT what) const;

 private:
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  bool connected_ = false;
};

/// Why the last call on a handle failed, in the driver's words.
struct Diagnosis {
  std::string state;
  SQLINTEGER native = 0;
  std::string text;
};
Diagnosis diagnosisOf(SQLSMALLINT type, SQLHANDLE handle);

inline bool succeeded(SQLRETURN code) {
  return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

inline SQLCHAR* bytesOf(std::string_view text) {
  // The driver manager takes its texts without const and leaves them as they are.
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
}

/// The driver manager takes whole numbers in the place of a pointer.
inline SQLPOINTER numberAttribute(std::uintptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace kt7::data
