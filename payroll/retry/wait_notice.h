#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace kt7::payroll {

/// Says whom a worker is waiting for: once it has waited for some seconds, and again when it waits
/// for another one.
class WaitNotice {
 public:
  using Clock = std::chrono::steady_clock;

  /// Call at every look that finds the worker still waiting. `whom` is asked when a notice is due;
  /// it answers "" if nobody is known.
  template <typename Whom, typename Say>
  void stillWaiting(Whom whom, Say say) {
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
  void end() { asked_.reset(); }

 private:
  std::optional<Clock::time_point> asked_;
  std::string said_;
};

}  // namespace kt7::payroll
