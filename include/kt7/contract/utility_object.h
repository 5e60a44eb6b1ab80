#pragma once

#include <cstdint>
#include <string>

#include <kt7/date.h>
#include <kt7/export.h>

namespace kt7 {

/// Number, rounding, date and text utilities of the host.
class KT7_API UtilityObject {
 public:
  virtual ~UtilityObject() = default;

  /// The number written in a text; 0 for the empty text and for a text that is no number.
  virtual double TextToNumber(const std::string& text) = 0;
  /// The same as a 16-bit whole number, ties to even; overflow outside its range.
  virtual std::int16_t TextToInteger(const std::string& text, bool flag) = 0;
  virtual double RoundToDigits(double value, std::int16_t digits) = 0;
  virtual double RoundValue(double value, std::int16_t digits, std::int16_t mode) = 0;

  /// The text between the "#$" markers of a date literal; "" for a blank date.
  virtual std::string SqlDateText(Date date) = 0;
  virtual std::string SqlShortDateText(Date date) = 0;
  virtual std::string SqlDateTimeText(Date date, std::int16_t form) = 0;
  /// True when the date counts as not entered.
  virtual bool IsBlankDate(Date date) = 0;
  /// True when TextToDate can read the text.
  virtual bool IsValidDateText(const std::string& text) = 0;
  /// The date of a day/month/year text.
  virtual Date TextToDate(const std::string& text) = 0;
  virtual Date AddMonths(Date date, std::int16_t count) = 0;
  virtual std::int16_t CurrentYear() = 0;
  /// The month for the middle of a day/month/year text.
  virtual std::string MonthNumberText(std::int16_t month, std::int16_t form,
                                      std::int16_t language) = 0;
  /// Stands in where a date is needed and none was given.
  virtual Date FallbackDate() = 0;

  virtual std::string EncodeWithKey(const std::string& text, const std::string& key) = 0;
  virtual std::string EncodeToken(const std::string& text) = 0;
};

}  // namespace kt7
