#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <kt7/export.h>
#include "host/data/session/connection_string.h"
#include "roles/data/session.h"

namespace kt7::data {

/// What a driver does with a connection string.
struct Driver {
  std::unique_ptr<Session> (*open)(const ConnectionString& where, std::string_view user,
                                   std::string_view password);
  /// Makes the empty database where it is not there; null where the driver cannot.
  void (*create)(const ConnectionString& where) = nullptr;
  /// The database kind, of a driver whose name does not tell it.
  std::string (*askKind)(const std::string& connectionString) = nullptr;
};

/// A connection with that user and password, which stand for those in the connection string where
/// they are not empty. A connection error when the engine refuses or is not built in.
std::unique_ptr<Session> openSession(const ConnectionString& where, std::string_view user,
                                     std::string_view password);

/// Makes a driver known under one of the names that "Driver=" may have. The driver lives as long as
/// the process.
KT7_API void addDriver(std::string_view name, const Driver& driver);

}  // namespace kt7::data
