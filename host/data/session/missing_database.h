#pragma once

#include <string>

#include <kt7/error.h>
#include <kt7/export.h>

namespace kt7::data {

/// A connection error: the database of a connection string is not there, though its server or its
/// folder may be. Opening never makes one.
class KT7_API MissingDatabase : public Error {
 public:
  MissingDatabase(const std::string& text, DatabaseCause cause, std::string file = {})
      : Error(ErrorKind::Database, error_number::kConnectionFailed, text, std::move(cause)),
        file_(std::move(file)) {}

  /// The connection string as it may be shown, where the database is a file; else "".
  const std::string& file() const { return file_; }

 private:
  std::string file_;
};

}  // namespace kt7::data
