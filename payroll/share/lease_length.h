#pragma once

#include <algorithm>

#include <kt7/date.h>

namespace kt7::payroll {

/// For how long a worker takes what it takes.
class LeaseLength {
 public:
  explicit LeaseLength(int seconds) : seconds_(seconds) {}

  int seconds() const { return seconds_; }
  Date from(Date moment) const {
    constexpr double kSecondsPerDay = 86400;
    return Date::fromSerial(moment.serial() + seconds_ / kSecondsPerDay);
  }
  /// What was taken was lost before the work was done. The next time is twice as long, so that a
  /// lease that is shorter than the work does not keep workers from ever getting on.
  void wasTooShort() {
    constexpr int kLongest = 3600;
    seconds_ = std::max(seconds_, std::min(2 * seconds_, kLongest));
  }

 private:
  int seconds_;
};

}  // namespace kt7::payroll
