#include "json_values.h"

#include <cmath>
#include <limits>

#include <kt7/error.h>
#include "base/number_text.h"
#include "base/text.h"
#include "fronts/common/display_text.h"
#include "protocol_error.h"

namespace kt7::cli {

namespace {

std::string shown(const Json& json) {
  constexpr std::size_t kLongest = 60;
  const std::string text = jsonText(json);
  return text.size() <= kLongest ? text : firstCharacters(text, kLongest) + "...";
}

[[noreturn]] void raiseWanted(std::string_view parameter, const std::string& wanted,
                              const Json& got) {
  throw ProtocolError(
      ProtocolError::kInvalidParams,
      "parameter '" + std::string(parameter) + "' wants " + wanted + ", not " + shown(got));
}

template <typename T>
T wholeNumber(const Json& json, std::string_view parameter) {
  constexpr T kLowest = std::numeric_limits<T>::min();
  constexpr T kHighest = std::numeric_limits<T>::max();
  if (json.is_number()) {
    const double number = json.get<double>();
    if (number >= kLowest && number <= kHighest && number == std::trunc(number)) {
      return static_cast<T>(number);
    }
  }
  raiseWanted(parameter,
              "a whole number from " + std::to_string(kLowest) + " to " + std::to_string(kHighest),
              json);
}

Currency amountOf(const Json& json) {
  if (json.is_string()) return Currency::fromText(json.get_ref<const std::string&>());
  if (json.is_number_unsigned() && json.get<std::uint64_t>() > INT64_MAX) raiseOverflow();
  if (json.is_number_integer()) return Currency::fromWhole(json.get<std::int64_t>());
  return Currency::fromDouble(json.get<double>());
}

}  // namespace

template <>
bool fromJson<bool>(const Json& json, std::string_view parameter) {
  if (!json.is_boolean()) raiseWanted(parameter, "true or false", json);
  return json.get<bool>();
}

template <>
std::int16_t fromJson<std::int16_t>(const Json& json, std::string_view parameter) {
  return wholeNumber<std::int16_t>(json, parameter);
}

template <>
std::int32_t fromJson<std::int32_t>(const Json& json, std::string_view parameter) {
  return wholeNumber<std::int32_t>(json, parameter);
}

template <>
double fromJson<double>(const Json& json, std::string_view parameter) {
  if (!json.is_number()) raiseWanted(parameter, "a number", json);
  return json.get<double>();
}

template <>
float fromJson<float>(const Json& json, std::string_view parameter) {
  const double number = fromJson<double>(json, parameter);
  const float single = static_cast<float>(number);
  if (!std::isfinite(single)) raiseWanted(parameter, "a single-precision number", json);
  return single;
}

template <>
std::string fromJson<std::string>(const Json& json, std::string_view parameter) {
  if (!json.is_string()) raiseWanted(parameter, "a text", json);
  return json.get<std::string>();
}

template <>
Currency fromJson<Currency>(const Json& json, std::string_view parameter) {
  constexpr auto kWanted = "an amount (a number or a text like \"1234.50\")";
  if (!json.is_string() && !json.is_number()) raiseWanted(parameter, kWanted, json);
  try {
    return amountOf(json);
  } catch (const Error& error) {
    const bool tooLarge = error.kind() == ErrorKind::Overflow;
    raiseWanted(parameter, tooLarge ? "an amount within the range of money" : kWanted, json);
  }
}

template <>
Date fromJson<Date>(const Json& json, std::string_view parameter) {
  constexpr std::size_t kDay = std::string_view("yyyy-mm-dd").size();
  constexpr std::size_t kMoment = std::string_view("yyyy-mm-ddThh:mm:ss").size();
  if (json.is_string()) {
    const std::string& text = json.get_ref<const std::string&>();
    const bool wellFormed = text.size() == kDay || (text.size() == kMoment && text[kDay] == 'T');
    Date date;
    if (wellFormed && Date::tryFromIsoText(text, date)) return date;
  }
  raiseWanted(parameter, "a date (\"yyyy-mm-dd\" or \"yyyy-mm-ddThh:mm:ss\")", json);
}

Json toJson(Currency amount) { return amount.toText(); }

Json toJson(Date date) {
  std::string text = date.isoDateTimeText();
  constexpr std::string_view kMidnight = " 00:00:00";
  const std::size_t day = text.size() - kMidnight.size();
  if (std::string_view(text).substr(day) == kMidnight) return text.substr(0, day);
  text[day] = 'T';
  return text;
}

Json toJson(float number) { return widened(number); }

std::string jsonText(const Json& json, bool indented) {
  std::string text = json.dump(indented ? 2 : -1, ' ', false, Json::error_handler_t::replace);
  screens::escapeUnprintable(text);
  return text;
}

}  // namespace kt7::cli
