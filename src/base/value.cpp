#include <kt7/value.h>

#include <kt7/error.h>
#include "base/arithmetic.h"
#include "base/number_text.h"
#include "base/text.h"

namespace kt7 {

namespace {

template <class... Ts>
struct Overloaded : Ts... {
  using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

[[noreturn]] void raiseNullUsed() { raiseTypeMismatch("a null where a value is needed"); }

Date dateOfText(const std::string& text) {
  Date date;
  if (Date::tryFromIsoText(text, date)) return date;
  DigitReader reader(text);
  int day = 0, month = 0, year = 0;
  if (reader.numberUpTo(2, day) && reader.sign('/') && reader.numberUpTo(2, month) &&
      reader.sign('/') && reader.number(4, year) && reader.atEnd() &&
      Date::isCalendarDay(year, month, day)) {
    return Date::fromYmd(year, month, day);
  }
  raiseTypeMismatch("'" + text + "' is not a date");
}

}  // namespace

double Value::toDouble() const {
  return std::visit(Overloaded{[](Null) -> double { raiseNullUsed(); },
                               [](bool value) { return value ? -1.0 : 0.0; },
                               [](Currency value) { return value.toDouble(); },
                               [](Date value) { return value.serial(); },
                               [](const std::string& value) { return automationNumber(value); },
                               [](auto number) { return static_cast<double>(number); }},
                    storage_);
}

bool Value::toBool() const {
  if (const auto* text = std::get_if<std::string>(&storage_)) {
    if (equalNoCase(*text, "true")) return true;
    if (equalNoCase(*text, "false")) return false;
  }
  return toDouble() != 0.0;
}

std::int16_t Value::toInt16() const { return kt7::toInt16(toDouble()); }
std::int32_t Value::toInt32() const { return kt7::toInt32(toDouble()); }

Currency Value::toCurrency() const {
  if (const auto* money = std::get_if<Currency>(&storage_)) return *money;
  if (const auto* whole = std::get_if<std::int64_t>(&storage_)) return Currency::fromWhole(*whole);
  if (const auto* text = std::get_if<std::string>(&storage_)) return automationAmount(*text);
  return Currency::fromDouble(toDouble());
}

Date Value::toDate() const {
  if (const auto* date = std::get_if<Date>(&storage_)) return *date;
  if (const auto* text = std::get_if<std::string>(&storage_)) return dateOfText(*text);
  return Date::fromSerial(toDouble());
}

std::string Value::toText() const {
  return std::visit(Overloaded{[](Null) -> std::string { raiseNullUsed(); },
                               [](bool value) { return std::string(value ? "True" : "False"); },
                               [](double value) { return kt7::joinedText(value); },
                               [](Currency value) {
                                 std::string text = value.toText();
                                 text.erase(text.find_last_not_of('0') + 1);
                                 if (text.back() == '.') text.pop_back();
                                 return text;
                               },
                               [](Date value) {
                                 if (value.timeOfDay() == 0) return value.shortText();
                                 return value.shortText() + value.isoDateTimeText().substr(10);
                               },
                               [](const std::string& value) { return value; },
                               [](auto whole) { return std::to_string(whole); }},
                    storage_);
}

std::string Value::joinedText() const { return isNull() ? std::string() : toText(); }

}  // namespace kt7
