#pragma once

#include <memory>
#include <string_view>

#include "roles/data/session.h"

namespace kt7::data {

/// Where connections, recordsets and lookups get their sessions from: a pool of drivers, or the
/// data sources of a host. Outlives what it serves.
class Sessions {
 public:
  virtual ~Sessions() = default;
  /// A session by that connection string; user and password stand for those in it where they are
  /// not empty. It is given back when its last pointer goes.
  virtual std::shared_ptr<Session> take(std::string_view connectionString, std::string_view user,
                                        std::string_view password) = 0;
};

}  // namespace kt7::data
