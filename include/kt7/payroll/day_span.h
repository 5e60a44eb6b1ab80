#pragma once

#include <algorithm>

#include <kt7/date.h>

namespace kt7::payroll {

/// Whole days from the first to the last, both included; empty if the last is before the first.
struct DaySpan {
  Date first;
  Date last;

  bool empty() const { return last < first; }
  int days() const { return empty() ? 0 : last.dayNumber() - first.dayNumber() + 1; }
  bool contains(Date day) const { return !(day < first) && !(last < day); }
  bool overlaps(const DaySpan& other) const {
    return !empty() && !other.empty() && !(last < other.first) && !(other.last < first);
  }
  /// "2026-01-01 to 2026-01-31"
  std::string text() const { return first.isoDateText() + " to " + last.isoDateText(); }

  friend bool operator==(const DaySpan&, const DaySpan&) = default;
};

/// The days in both spans.
inline DaySpan common(const DaySpan& a, const DaySpan& b) {
  return {std::max(a.first, b.first), std::min(a.last, b.last)};
}

}  // namespace kt7::payroll
