#pragma once

#include <algorithm>

#include <kt7/date.h>

namespace kt7::payroll {

/// The longest lease.
inline constexpr int kLongestLease = 3600;  // seconds

inline Date secondsAfter(Date moment, int seconds) {
  constexpr double kSecondsPerDay = 86400;
  return Date::fromSerial(moment.serial() + seconds / kSecondsPerDay);
}

/// A lease that ends at this moment or later was taken while the server's clock was wrong. It
/// counts as over; otherwise it could block a run for years.
inline Date latestUntil(Date now) { return secondsAfter(now, kLongestLease + 1); }

/// Whether a lease that ends at `until` still holds.
inline bool isHeld(Date until, Date now) { return now < until && until < latestUntil(now); }

/// How long a lease lasts.
class LeaseLength {
 public:
  explicit LeaseLength(int seconds) : seconds_(seconds) {}

  int seconds() const { return seconds_; }
  Date from(Date moment) const { return secondsAfter(moment, seconds_); }
  /// Call after losing a lease: the next one lasts twice as long, so that a lease shorter than the
  /// work cannot stop the run for good.
  void wasTooShort() { seconds_ = std::max(seconds_, std::min(2 * seconds_, kLongestLease)); }

 private:
  int seconds_;
};

}  // namespace kt7::payroll
