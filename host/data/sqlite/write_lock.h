#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace kt7::data {

/// Who holds the write lock of one database. A second session of the same thread would wait for a
/// lock that only its own thread can give free; it is refused at once instead.
class WriteLock {
 public:
  /// The lock of that database, the same for all sessions of the process.
  static std::shared_ptr<WriteLock> of(const std::string& database);

  /// A database error when another session of this thread holds the lock.
  void refuseSecondWriter(const void* session, const std::string& sql) const;
  void held(const void* session);
  void released(const void* session);

 private:
  mutable std::mutex mutex_;
  const void* holder_ = nullptr;
  std::thread::id thread_;
};

}  // namespace kt7::data
