#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>

#include "payroll/post/report.h"

namespace kt7::payroll {

/// Reports of several workers in the order in which they come; a worker waits while many are kept.
class ReportQueue {
 public:
  explicit ReportQueue(int workers) : workers_(workers) {}

  void put(Report report) {
    constexpr std::size_t kMostKept = 32;
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return reports_.size() < kMostKept || stopped_; });
    reports_.push_back(std::move(report));
    changed_.notify_all();
  }
  void workerEnds() {
    const std::lock_guard lock(mutex_);
    --workers_;
    changed_.notify_all();
  }
  /// Somebody cannot go on; the workers end at their next look.
  void stop(std::exception_ptr reason) {
    const std::lock_guard lock(mutex_);
    if (!stopped_) reason_ = std::move(reason);
    stopped_ = true;
    changed_.notify_all();
  }
  bool stopped() const {
    const std::lock_guard lock(mutex_);
    return stopped_;
  }
  /// The next report; none when all workers have ended. `meanwhile` is called once a second that it
  /// is waited for.
  template <typename Meanwhile>
  std::optional<Report> next(Meanwhile meanwhile) {
    std::unique_lock lock(mutex_);
    const auto isThere = [this] { return !reports_.empty() || workers_ <= 0; };
    while (!changed_.wait_for(lock, std::chrono::seconds(1), isThere)) {
      lock.unlock();
      meanwhile();
      lock.lock();
    }
    if (reports_.empty()) return std::nullopt;
    Report report = std::move(reports_.front());
    reports_.pop_front();
    changed_.notify_all();
    return report;
  }
  /// Raises what stopped a worker.
  void raiseReason() const {
    if (reason_) std::rethrow_exception(reason_);
  }

 private:
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Report> reports_;
  int workers_;
  bool stopped_ = false;
  std::exception_ptr reason_;
};

}  // namespace kt7::payroll
