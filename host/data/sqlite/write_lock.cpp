#include "host/data/sqlite/write_lock.h"

#include <sqlite3.h>

#include <chrono>
#include <map>

#include <kt7/error.h>

namespace kt7::data {

std::shared_ptr<WriteLock> WriteLock::of(const std::string& database) {
  static std::mutex mutex;
  static auto* const locks = new std::map<std::string, std::shared_ptr<WriteLock>>;
  const std::lock_guard lock(mutex);
  std::shared_ptr<WriteLock>& entry = (*locks)[database];
  if (!entry) entry = std::make_shared<WriteLock>();
  return entry;
}

void WriteLock::take(const void* session, const std::string& sql) {
  constexpr std::chrono::seconds kLongestWait(5);
  std::unique_lock lock(mutex_);
  if (holder_ == session) return;
  if (holder_ != nullptr && thread_ == std::this_thread::get_id()) {
    raiseStatementFailed(
        "the database is locked: another connection of this thread has a transaction open that "
        "writes to it; commit or roll back that one first",
        {sql, 0, {}});
  }
  waiting_.push_back(session);
  const bool came = released_.wait_for(
      lock, kLongestWait, [&] { return holder_ == nullptr && waiting_.front() == session; });
  std::erase(waiting_, session);
  if (!came) {
    released_.notify_all();
    raiseStatementFailed(
        "the database is locked: another thread's transaction has been writing to it for too long",
        {sql, SQLITE_BUSY, {}});
  }
  holder_ = session;
  thread_ = std::this_thread::get_id();
}

void WriteLock::release(const void* session) {
  const std::lock_guard lock(mutex_);
  if (holder_ != session) return;
  holder_ = nullptr;
  released_.notify_all();
}

}  // namespace kt7::data
