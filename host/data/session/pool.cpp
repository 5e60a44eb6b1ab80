#include "host/data/session/pool.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/data/session/driver.h"

namespace kt7::data {

namespace {

using Clock = Lease::Clock;

constexpr std::size_t kIdleSessions = 16;

struct PoolKeyView {
  std::string_view connectionString;
  std::string_view user;
  std::string_view password;
  friend bool operator==(const PoolKeyView&, const PoolKeyView&) = default;
};

struct PoolKey {
  explicit PoolKey(const PoolKeyView& view)
      : connectionString(view.connectionString), user(view.user), password(view.password) {}
  operator PoolKeyView() const { return {connectionString, user, password}; }
  std::string connectionString;
  std::string user;
  std::string password;
};

struct KeyHash {
  using is_transparent = void;
  std::size_t operator()(const PoolKeyView& key) const {
    const std::hash<std::string_view> hash;
    std::size_t result = hash(key.connectionString);
    if (!key.user.empty()) result = result * 31 + hash(key.user);
    if (!key.password.empty()) result = result * 31 + hash(key.password);
    return result;
  }
};

struct KeyEqual {
  using is_transparent = void;
  bool operator()(const PoolKeyView& a, const PoolKeyView& b) const { return a == b; }
};

}  // namespace

struct PoolBucket {
  struct Idle {
    std::unique_ptr<Session> session;
    Clock::time_point used;  // when it was last taken: close enough, and half the clock readings
  };
  std::vector<Idle> idle;
};

namespace {

struct Pool {
  std::mutex mutex;
  std::unordered_map<PoolKey, PoolBucket, KeyHash, KeyEqual> buckets;
};

/// Lives as long as the process, so that a connection closed at the very end finds it; the idle
/// sessions are closed on exit.
Pool& pool() {
  static Pool* const instance = [] {
    auto* made = new Pool;
    std::atexit([] {
      for (auto& [key, bucket] : pool().buckets) bucket.idle.clear();
    });
    return made;
  }();
  return *instance;
}

}  // namespace

Lease takeSession(std::string_view connectionString, std::string_view user,
                  std::string_view password) {
  const PoolKeyView key{connectionString, user, password};
  PoolBucket* bucket = nullptr;
  for (;;) {
    PoolBucket::Idle found;
    {
      const std::lock_guard lock(pool().mutex);
      auto at = pool().buckets.find(key);
      if (at == pool().buckets.end()) at = pool().buckets.emplace(key, PoolBucket{}).first;
      bucket = &at->second;
      if (bucket->idle.empty()) break;
      found = std::move(bucket->idle.back());
      bucket->idle.pop_back();
    }
    const Clock::time_point now = Clock::now();
    if (now - found.used < found.session->trustedIdleness() || found.session->usable()) {
      return Lease(*bucket, std::move(found.session), now);
    }
  }
  return Lease(*bucket, openSession(ConnectionString(connectionString), user, password),
               Clock::now());
}

namespace {

/// Where one session was lost, the idle ones have most likely lost the same server.
void dropIdleSessions(PoolBucket& bucket) {
  std::vector<PoolBucket::Idle> dropped;
  const std::lock_guard lock(pool().mutex);
  dropped.swap(bucket.idle);
}

}  // namespace

Lease::~Lease() {
  if (!session_) return;
  if (session_->lost()) {
    dropIdleSessions(*bucket_);
    return;
  }
  try {
    if (session_->inTransaction()) session_->rollback();
    if (session_->lost()) return;
    const std::lock_guard lock(pool().mutex);
    if (bucket_->idle.size() < kIdleSessions) {
      bucket_->idle.push_back({std::move(session_), taken_});
    }
  } catch (const std::exception&) {
    // What cannot be rolled back is closed, which rolls it back at the engine.
    session_.reset();
  }
}

void dropIdleSessions(std::string_view connectionString) {
  std::vector<PoolBucket::Idle> dropped;
  const std::lock_guard lock(pool().mutex);
  for (auto& [key, bucket] : pool().buckets) {
    if (key.connectionString != connectionString) continue;
    std::ranges::move(bucket.idle, std::back_inserter(dropped));
    bucket.idle.clear();
  }
}

void dropUnusableSessions() {
  std::vector<std::pair<PoolBucket*, PoolBucket::Idle>> taken;
  {
    const std::lock_guard lock(pool().mutex);
    for (auto& [key, bucket] : pool().buckets) {
      for (PoolBucket::Idle& idle : bucket.idle) taken.emplace_back(&bucket, std::move(idle));
      bucket.idle.clear();
    }
  }
  // A server may take its time to answer: nobody else waits for that.
  std::erase_if(taken, [](const auto& one) { return !one.second.session->usable(); });
  const std::lock_guard lock(pool().mutex);
  for (auto& [bucket, idle] : taken) {
    if (bucket->idle.size() < kIdleSessions) bucket->idle.push_back(std::move(idle));
  }
}

}  // namespace kt7::data
