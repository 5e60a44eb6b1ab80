#include "host/data/sqlite/write_lock.h"

#include <map>

#include "base/error.h"

namespace kt7::data {

std::shared_ptr<WriteLock> WriteLock::of(const std::string& database) {
  static std::mutex mutex;
  static auto* const locks = new std::map<std::string, std::shared_ptr<WriteLock>>;
  const std::lock_guard lock(mutex);
  std::shared_ptr<WriteLock>& entry = (*locks)[database];
  if (!entry) entry = std::make_shared<WriteLock>();
  return entry;
}

void WriteLock::refuseSecondWriter(const void* session, const std::string& sql) const {
  const std::lock_guard lock(mutex_);
  if (holder_ == nullptr || holder_ == session || thread_ != std::this_thread::get_id()) return;
  raiseStatementFailed(
      "the database is locked: another connection of this thread has a transaction open that "
      "writes to it; commit or roll back that one first",
      {sql, 0, {}});
}

void WriteLock::held(const void* session) {
  const std::lock_guard lock(mutex_);
  holder_ = session;
  thread_ = std::this_thread::get_id();
}

void WriteLock::released(const void* session) {
  const std::lock_guard lock(mutex_);
  if (holder_ == session) holder_ = nullptr;
}

}  // namespace kt7::data
