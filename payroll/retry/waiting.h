#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace kt7::payroll {

/// A worker that waits for another one says for whom, once it has waited for some seconds and again
/// when it waits for somebody else.
class Waiting {
 public:
  using Clock = std::chrono::steady_clock;

  /// One more look that found the worker waiting. `whom` is asked once it is time to say so, and
  /// answers "" where nobody can be named.
  template <typename Whom, typename Say>
  void on(Whom whom, Say say) {
    constexpr std::chrono::seconds kQuiet(2);
    const auto now = Clock::now();
    if (!asked_) asked_ = now;
    if (now - *asked_ < kQuiet) return;
    asked_ = now;
    const std::string name = whom();
    if (name.empty() || name == said_) return;
    said_ = name;
    say("waiting for " + name);
  }
  void ends() { asked_.reset(); }

 private:
  std::optional<Clock::time_point> asked_;
  std::string said_;
};

}  // namespace kt7::payroll
