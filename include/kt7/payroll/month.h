#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <kt7/export.h>
#include <kt7/payroll/day_span.h>

namespace kt7::payroll {

/// A calendar month of the common era.
class KT7_API Month {
 public:
  Month(int year, int month) : year_(year), month_(month) {}
  /// "2026-01"; nothing for any other text.
  static std::optional<Month> fromText(std::string_view text);

  int year() const { return year_; }
  int number() const { return month_; }
  Month plus(int months) const;
  Date firstDay() const { return Date::fromYmd(year_, month_, 1); }
  Date lastDay() const;
  DaySpan days() const { return {firstDay(), lastDay()}; }
  /// The day of that number, a day beyond the month's length being its last.
  Date dayAtMost(int day) const;
  std::string text() const;

 private:
  int year_;
  int month_;
};

}  // namespace kt7::payroll
