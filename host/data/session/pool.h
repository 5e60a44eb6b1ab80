#pragma once

#include <chrono>
#include <memory>
#include <string_view>

#include <kt7/export.h>
#include "host/data/session/connection_string.h"
#include "roles/data/session.h"

namespace kt7::data {

struct PoolBucket;

/// A session taken from the pool; it goes back, rolled back, when the lease ends.
class KT7_API Lease {
 public:
  using Clock = std::chrono::steady_clock;

  Lease(PoolBucket& bucket, std::unique_ptr<Session> session, Clock::time_point taken)
      : bucket_(&bucket), session_(std::move(session)), taken_(taken) {}
  Lease(Lease&&) = default;
  Lease& operator=(Lease&&) = delete;
  ~Lease();

  Session& session() const { return *session_; }

 private:
  PoolBucket* bucket_;
  std::unique_ptr<Session> session_;
  Clock::time_point taken_;
};

/// An idle session of exactly that connection string, user and password, or a new one.
KT7_API Lease takeSession(std::string_view connectionString, std::string_view user = {},
                          std::string_view password = {});

/// Closes the idle sessions of that connection string, whoever logged in by it.
void dropIdleSessions(std::string_view connectionString);

/// Closes the idle sessions whose database is no longer the one they opened.
void dropUnusableSessions();

}  // namespace kt7::data
