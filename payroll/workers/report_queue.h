#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>

#include "payroll/post/report.h"

namespace kt7::payroll {

/// Passes reports from several workers to one reader, in the order in which they arrive. A worker
/// waits while the queue is full.
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
  /// A worker or the reader failed; the workers end when they next ask stopped().
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
  /// Waits for the next report; none when all workers have ended. Calls `meanwhile` once a second
  /// while it waits.
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
  /// Raises the error that stopped the workers, if any.
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
