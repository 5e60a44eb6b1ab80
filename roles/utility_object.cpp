#include <kt7/roles/utility_object.h>

#include <kt7/error.h>
#include "base/arithmetic.h"
#include "roles/texts/base64_url.h"
#include "roles/texts/date_text.h"
#include "roles/texts/number_text.h"
#include "roles/texts/rounding.h"

namespace kt7::roles {

double StandardUtilityObject::TextToNumber(const std::string& text) { return numberInText(text); }

std::int16_t StandardUtilityObject::TextToInteger(const std::string& text, bool) {
  return toInt16(numberInText(text));
}

double StandardUtilityObject::RoundToDigits(double value, std::int16_t digits) {
  return roundHalfAway(value, digits);
}

double StandardUtilityObject::RoundValue(double value, std::int16_t digits, std::int16_t mode) {
  return roundDecimal(value, digits, roundingMode(mode));
}

std::string StandardUtilityObject::SqlDateText(Date date) { return dayForSql(date); }
std::string StandardUtilityObject::SqlShortDateText(Date date) { return dayForSql(date); }

std::string StandardUtilityObject::SqlDateTimeText(Date date, std::int16_t form) {
  if (form != 0) {
    raiseCollaborator(error_number::kCallFailed,
                      "SqlDateTimeText: unknown form " + std::to_string(form) + " (only 0)");
  }
  return momentForSql(date);
}

bool StandardUtilityObject::IsBlankDate(Date date) { return isBlankDay(date); }

bool StandardUtilityObject::IsValidDateText(const std::string& text) {
  Date date;
  return readDayMonthYear(text, date);
}

Date StandardUtilityObject::TextToDate(const std::string& text) {
  Date date;
  if (!readDayMonthYear(text, date)) {
    raiseTypeMismatch("'" + text + "' is not a date (write day/month/year)");
  }
  return date;
}

Date StandardUtilityObject::AddMonths(Date date, std::int16_t count) {
  return date.plusMonths(count);
}

std::int16_t StandardUtilityObject::CurrentYear() { return narrow16(platform_.now().year()); }

std::string StandardUtilityObject::MonthNumberText(std::int16_t month, std::int16_t, std::int16_t) {
  return std::to_string(month);
}

Date StandardUtilityObject::FallbackDate() { return platform_.now().datePart(); }

std::string StandardUtilityObject::EncodeWithKey(const std::string& text, const std::string& key) {
  if (!hash_) {
    raiseCollaborator(error_number::kCallFailed,
                      "permission tokens need a keyed hash: give the platform one by setKeyedHash");
  }
  return hash_(text, key);
}

std::string StandardUtilityObject::EncodeToken(const std::string& text) { return base64Url(text); }

}  // namespace kt7::roles
