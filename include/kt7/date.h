#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include <kt7/export.h>

namespace kt7 {

/// A day of the common-era calendar and a time of day, as the host's platform counts them: days
/// since 1899-12-30, the fraction being the time of day (towards later also before day 0).
/// Years 100 to 9999; leaving them is an overflow error. Order compares the moment.
class KT7_API Date {
 public:
  static constexpr std::int32_t kFirstDay = -657434;  // 0100-01-01
  static constexpr std::int32_t kLastDay = 2958465;   // 9999-12-31

  constexpr Date() = default;
  /// A raw day count as the platform stores it; overflow outside the years 100 to 9999.
  static Date fromSerial(double serial);
  /// The calendar date; overflow when there is no such day or year.
  static Date fromYmd(int year, int month, int day);
  static Date fromYmdHms(int year, int month, int day, int hour, int minute, int second);
  static bool isCalendarDay(int year, int month, int day);
  /// "yyyy-mm-dd", "yyyy-mm-dd hh:mm[:ss]" or with "T" between; type mismatch for anything else.
  static Date fromIsoText(std::string_view text);
  static bool tryFromIsoText(std::string_view text, Date& out);

  constexpr double serial() const { return serial_; }
  int year() const;
  int month() const;
  int day() const;
  /// Sunday 0 to Saturday 6.
  int weekday() const;
  /// Whole days since 1899-12-30, the time of day dropped.
  std::int32_t dayNumber() const;
  /// Time of day as a fraction of a day, 0 <= f < 1.
  double timeOfDay() const;
  Date datePart() const;

  /// Moved by whole days, the time of day kept; overflow outside the years 100 to 9999.
  Date plusDays(std::int64_t days) const;
  /// Moved by whole calendar months: the day of the month is kept and clipped to the last day of a
  /// shorter month, the time of day is kept; overflow outside the years 100 to 9999.
  Date plusMonths(std::int64_t months) const;

  /// "2026-01-31"
  std::string isoDateText() const;
  /// "2026-01-31 23:59:59", to the nearest second.
  std::string isoDateTimeText() const;
  /// The system's short date form, common era: "31/1/2026".
  std::string shortText() const;

  friend bool operator==(Date a, Date b) { return a.moment() == b.moment(); }
  friend std::partial_ordering operator<=>(Date a, Date b) { return a.moment() <=> b.moment(); }

 private:
  explicit constexpr Date(double serial) : serial_(serial) {}
  static Date fromDayAndTime(std::int64_t dayNumber, double timeOfDay);
  double moment() const;

  double serial_ = 0;
};

/// Marks a profile date as not set: 3333-03-03.
KT7_API Date notSetDate();

}  // namespace kt7
