#pragma once

#include <thread>
#include <vector>

namespace kt7::payroll {

/// Threads that are joined at the end of the scope.
class Threads {
 public:
  Threads() = default;
  Threads(const Threads&) = delete;
  Threads& operator=(const Threads&) = delete;
  ~Threads() { join(); }

  template <typename Work>
  void start(int count, const Work& work) {
    threads_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) threads_.emplace_back(work);
  }
  void join() {
    for (std::thread& thread : threads_) thread.join();
    threads_.clear();
  }

 private:
  std::vector<std::thread> threads_;
};

}  // namespace kt7::payroll
