#include "host/roles/host_utility_object.h"

#include <kt7/error.h>
#include "base/arithmetic.h"
#include "host/roles/date_text.h"
#include "host/roles/number_text.h"
#include "host/roles/permission_token.h"
#include "host/roles/rounding.h"

namespace kt7::host {

double HostUtilityObject::TextToNumber(const std::string& text) { return numberInText(text); }

std::int16_t HostUtilityObject::TextToInteger(const std::string& text, bool) {
  return toInt16(numberInText(text));
}

double HostUtilityObject::RoundToDigits(double value, std::int16_t digits) {
  return roundHalfAway(value, digits);
}

double HostUtilityObject::RoundValue(double value, std::int16_t digits, std::int16_t mode) {
  return roundDecimal(value, digits, roundingMode(mode));
}

std::string HostUtilityObject::SqlDateText(Date date) { return dayForSql(date); }
std::string HostUtilityObject::SqlShortDateText(Date date) { return dayForSql(date); }

std::string HostUtilityObject::SqlDateTimeText(Date date, std::int16_t form) {
  if (form != 0) {
    raiseCollaborator(error_number::kCallFailed,
                      "SqlDateTimeText: unknown form " + std::to_string(form) + " (only 0)");
  }
  return momentForSql(date);
}

bool HostUtilityObject::IsBlankDate(Date date) { return isBlankDay(date); }

bool HostUtilityObject::IsValidDateText(const std::string& text) {
  Date date;
  return readDayMonthYear(text, date);
}

Date HostUtilityObject::TextToDate(const std::string& text) {
  Date date;
  if (!readDayMonthYear(text, date)) {
    raiseTypeMismatch("'" + text + "' is not a date (write day/month/year)");
  }
  return date;
}

Date HostUtilityObject::AddMonths(Date date, std::int16_t count) { return date.plusMonths(count); }

std::int16_t HostUtilityObject::CurrentYear() { return narrow16(platform_.now().year()); }

std::string HostUtilityObject::MonthNumberText(std::int16_t month, std::int16_t, std::int16_t) {
  return std::to_string(month);
}

Date HostUtilityObject::FallbackDate() { return platform_.now().datePart(); }

std::string HostUtilityObject::EncodeWithKey(const std::string& text, const std::string& key) {
  return keyedHash(text, key);
}

std::string HostUtilityObject::EncodeToken(const std::string& text) { return base64Url(text); }

}  // namespace kt7::host
