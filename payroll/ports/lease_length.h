#pragma once

#include <algorithm>

#include <kt7/date.h>

namespace kt7::payroll {

/// Nothing is taken for longer.
inline constexpr int kLongestLease = 3600;  // seconds

inline Date secondsAfter(Date moment, int seconds) {
  constexpr double kSecondsPerDay = 86400;
  return Date::fromSerial(moment.serial() + seconds / kSecondsPerDay);
}

/// The moments up to which something may be taken at `now`. What is taken until a later one was
/// taken while the server's clock was wrong, and counts as over: it would last for years.
inline Date latestUntil(Date now) { return secondsAfter(now, kLongestLease + 1); }

/// Whether what was taken until then is still somebody's.
inline bool isHeld(Date until, Date now) { return now < until && until < latestUntil(now); }

/// For how long a worker takes what it takes.
class LeaseLength {
 public:
  explicit LeaseLength(int seconds) : seconds_(seconds) {}

  int seconds() const { return seconds_; }
  Date from(Date moment) const { return secondsAfter(moment, seconds_); }
  /// What was taken was lost before the work was done. The next time is twice as long, so that a
  /// lease that is shorter than the work does not keep workers from ever getting on.
  void wasTooShort() { seconds_ = std::max(seconds_, std::min(2 * seconds_, kLongestLease)); }

 private:
  int seconds_;
};

}  // namespace kt7::payroll
