#include <kt7/date.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7 {

namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;
using std::chrono::year_month_day_last;

constexpr sys_days kDayZero{year_month_day{year{1899}, month{12}, day{30}}};
constexpr int kSecondsPerDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

year_month_day calendarOf(std::int32_t dayNumber) {
  return year_month_day{kDayZero + std::chrono::days{dayNumber}};
}

year_month_day calendarDate(int y, int m, int d) {
  return {year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
}

std::int32_t numberOf(year_month_day date) {
  return static_cast<std::int32_t>((sys_days{date} - kDayZero).count());
}

std::string isoText(year_month_day date) {
  return padded(int{date.year()}, 4) + "-" + padded(static_cast<int>(unsigned{date.month()}), 2) +
         "-" + padded(static_cast<int>(unsigned{date.day()}), 2);
}

}  // namespace

Date Date::fromDayAndTime(std::int64_t dayNumber, double timeOfDay) {
  if (dayNumber < kFirstDay || dayNumber > kLastDay) raiseOverflow();
  const double whole = static_cast<double>(dayNumber);
  return Date(dayNumber < 0 ? whole - timeOfDay : whole + timeOfDay);
}

Date Date::fromSerial(double serial) {
  if (!(serial > kFirstDay - 1.0 && serial < kLastDay + 1.0)) raiseOverflow();
  return Date(serial);
}

bool Date::isCalendarDay(int y, int m, int d) {
  if (y < kFirstYear || y > kLastYear || m < 1 || m > 12 || d < 1 || d > 31) return false;
  return calendarDate(y, m, d).ok();
}

Date Date::fromYmd(int y, int m, int d) {
  if (!isCalendarDay(y, m, d)) raiseOverflow();
  return Date(numberOf(calendarDate(y, m, d)));
}

Date Date::fromYmdHms(int y, int m, int d, int hour, int minute, int second) {
  const int seconds = (hour * 60 + minute) * 60 + second;
  return fromDayAndTime(fromYmd(y, m, d).dayNumber(),
                        static_cast<double>(seconds) / kSecondsPerDay);
}

bool Date::tryFromIsoText(std::string_view text, Date& out) {
  int y = 0, m = 0, d = 0, hour = 0, minute = 0, second = 0;
  DigitReader reader(text);
  if (!(reader.number(4, y) && reader.sign('-') && reader.number(2, m) && reader.sign('-') &&
        reader.number(2, d))) {
    return false;
  }
  if (!reader.atEnd()) {
    if (!((reader.sign('T') || reader.sign(' ')) && reader.number(2, hour) && reader.sign(':') &&
          reader.number(2, minute))) {
      return false;
    }
    if (reader.sign(':') && !reader.number(2, second)) return false;
    if (!reader.atEnd()) return false;
  }
  if (!isCalendarDay(y, m, d) || hour > 23 || minute > 59 || second > 59) return false;
  out = fromYmdHms(y, m, d, hour, minute, second);
  return true;
}

Date Date::fromIsoText(std::string_view text) {
  Date date;
  if (!tryFromIsoText(text, date)) {
    raiseTypeMismatch("'" + std::string(text) + "' is not a date (write yyyy-mm-dd)");
  }
  return date;
}

std::int32_t Date::dayNumber() const { return static_cast<std::int32_t>(std::trunc(serial_)); }
double Date::timeOfDay() const { return std::fabs(serial_ - std::trunc(serial_)); }
double Date::moment() const { return dayNumber() + timeOfDay(); }
Date Date::datePart() const { return Date(std::trunc(serial_)); }

int Date::year() const { return int{calendarOf(dayNumber()).year()}; }
int Date::month() const { return static_cast<int>(unsigned{calendarOf(dayNumber()).month()}); }
int Date::day() const { return static_cast<int>(unsigned{calendarOf(dayNumber()).day()}); }
int Date::weekday() const {
  return static_cast<int>(
      std::chrono::weekday{kDayZero + std::chrono::days{dayNumber()}}.c_encoding());
}

Date Date::plusDays(std::int64_t days) const {
  return fromDayAndTime(std::int64_t{dayNumber()} + days, timeOfDay());
}

Date Date::plusMonths(std::int64_t months) const {
  const year_month_day from = calendarOf(dayNumber());
  const std::int64_t index =
      std::int64_t{int{from.year()}} * 12 + static_cast<int>(unsigned{from.month()}) - 1 + months;
  const std::int64_t y = index >= 0 ? index / 12 : -1;
  if (y < kFirstYear || y > kLastYear) raiseOverflow();
  const year_month_day first =
      calendarDate(static_cast<int>(y), static_cast<int>(index % 12) + 1, 1);
  const year_month_day_last last{first.year(), std::chrono::month_day_last{first.month()}};
  return fromDayAndTime(numberOf({first.year(), first.month(), std::min(from.day(), last.day())}),
                        timeOfDay());
}

std::string Date::isoDateText() const { return isoText(calendarOf(dayNumber())); }

std::string Date::isoDateTimeText() const {
  std::int32_t number = dayNumber();
  int seconds = static_cast<int>(std::lround(timeOfDay() * kSecondsPerDay));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++number;
  }
  return isoText(calendarOf(number)) + " " + padded(seconds / 3600, 2) + ":" +
         padded(seconds / 60 % 60, 2) + ":" + padded(seconds % 60, 2);
}

std::string Date::shortText() const {
  const year_month_day date = calendarOf(dayNumber());
  return std::to_string(unsigned{date.day()}) + "/" + std::to_string(unsigned{date.month()}) + "/" +
         std::to_string(int{date.year()});
}

Date notSetDate() { return Date::fromYmd(3333, 3, 3); }

}  // namespace kt7
