#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace kt7::data {

/// Who may write to one database: the writers of this process take turns, in the order in which
/// they came. A second session of the thread whose turn it is would wait for a lock that only its
/// own thread can give free; it is refused at once instead.
class WriteLock {
 public:
  /// The lock of that database, the same for all sessions of the process.
  static std::shared_ptr<WriteLock> of(const std::string& database);

  /// Waits for the session's turn, five seconds at most; nothing where it is its turn already. A
  /// database error where it does not come, and when another session of this thread has it.
  void take(const void* session, const std::string& sql);
  void release(const void* session);

 private:
  std::mutex mutex_;
  std::condition_variable released_;
  std::deque<const void*> waiting_;
  const void* holder_ = nullptr;
  std::thread::id thread_;
};

}  // namespace kt7::data
