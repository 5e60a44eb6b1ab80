#include "fronts/com/adapters/answered.h"
#include "fronts/com/adapters/collaborators.h"

namespace kt7::adapters {

double LateUtilityObject::TextToNumber(const std::string& text) {
  return answered<double>(object_, L"TextToNumber", text);
}
std::int16_t LateUtilityObject::TextToInteger(const std::string& text, bool flag) {
  return answered<std::int16_t>(object_, L"TextToInteger", text, flag);
}
double LateUtilityObject::RoundToDigits(double value, std::int16_t digits) {
  return answered<double>(object_, L"RoundToDigits", value, digits);
}
double LateUtilityObject::RoundValue(double value, std::int16_t digits, std::int16_t mode) {
  return answered<double>(object_, L"RoundValue", value, digits, mode);
}
std::string LateUtilityObject::SqlDateText(Date date) {
  return answered<std::string>(object_, L"SqlDateText", date);
}
std::string LateUtilityObject::SqlShortDateText(Date date) {
  return answered<std::string>(object_, L"SqlShortDateText", date);
}
std::string LateUtilityObject::SqlDateTimeText(Date date, std::int16_t form) {
  return answered<std::string>(object_, L"SqlDateTimeText", date, form);
}
bool LateUtilityObject::IsBlankDate(Date date) {
  return answered<bool>(object_, L"IsBlankDate", date);
}
bool LateUtilityObject::IsValidDateText(const std::string& text) {
  return answered<bool>(object_, L"IsValidDateText", text);
}
Date LateUtilityObject::TextToDate(const std::string& text) {
  return answered<Date>(object_, L"TextToDate", text);
}
Date LateUtilityObject::AddMonths(Date date, std::int16_t count) {
  return answered<Date>(object_, L"AddMonths", date, count);
}
std::int16_t LateUtilityObject::CurrentYear() {
  return answered<std::int16_t>(object_, L"CurrentYear");
}
std::string LateUtilityObject::MonthNumberText(std::int16_t month, std::int16_t form,
                                               std::int16_t language) {
  return answered<std::string>(object_, L"MonthNumberText", month, form, language);
}
Date LateUtilityObject::FallbackDate() { return answered<Date>(object_, L"FallbackDate"); }
std::string LateUtilityObject::EncodeWithKey(const std::string& text, const std::string& key) {
  return answered<std::string>(object_, L"EncodeWithKey", text, key);
}
std::string LateUtilityObject::EncodeToken(const std::string& text) {
  return answered<std::string>(object_, L"EncodeToken", text);
}

}  // namespace kt7::adapters
