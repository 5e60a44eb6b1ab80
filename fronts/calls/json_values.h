#pragma once

#include <concepts>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <type_traits>

#include <kt7/currency.h>
#include <kt7/date.h>

namespace kt7::cli {

using Json = nlohmann::ordered_json;

/// A parameter's JSON value as the type of the interface; invalid params naming the parameter where
/// the value is of another type or out of range. Whole numbers take no fraction; money comes as a
/// number or as a decimal text, which is read exactly; dates are yyyy-mm-dd or yyyy-mm-ddThh:mm:ss.
template <typename T>
T fromJson(const Json& json, std::string_view parameter);

template <>
bool fromJson<bool>(const Json& json, std::string_view parameter);
template <>
std::int16_t fromJson<std::int16_t>(const Json& json, std::string_view parameter);
template <>
std::int32_t fromJson<std::int32_t>(const Json& json, std::string_view parameter);
template <>
float fromJson<float>(const Json& json, std::string_view parameter);
template <>
double fromJson<double>(const Json& json, std::string_view parameter);
template <>
std::string fromJson<std::string>(const Json& json, std::string_view parameter);
template <>
Currency fromJson<Currency>(const Json& json, std::string_view parameter);
template <>
Date fromJson<Date>(const Json& json, std::string_view parameter);

template <typename T>
requires std::is_enum_v<T> T fromJson(const Json& json, std::string_view parameter) {
  return static_cast<T>(fromJson<std::underlying_type_t<T>>(json, parameter));
}

/// Money with four decimals as text, dates as they are read, a single-precision number as the
/// shortest decimal that reads back as the same one.
Json toJson(Currency amount);
Json toJson(Date date);
Json toJson(float number);
template <typename T>
requires(std::is_arithmetic_v<T> || std::same_as<T, std::string>) Json toJson(const T& value) {
  return Json(value);
}

/// The JSON text, which a terminal may show: bytes that are no UTF-8 are replacement characters,
/// and what a terminal would obey is escaped. Indented over several lines on request.
std::string jsonText(const Json& json, bool indented = false);

}  // namespace kt7::cli
