#include "host/roles/number_text.h"

#include <algorithm>
#include <charconv>
#include <string>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7::host {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t digitsFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && isDigit(text[end])) ++end;
  return end - at;
}

/// Digits with "," after a digit, a fraction, an exponent; no sign.
bool isUnsignedNumber(std::string_view text, bool& grouped) {
  grouped = false;
  std::size_t at = digitsFrom(text, 0);
  std::size_t digits = at;
  while (at > 0 && at < text.size() && text[at] == ',') {
    grouped = true;
    const std::size_t group = digitsFrom(text, at + 1);
    if (group == 0) return false;
    at += 1 + group;
  }
  if (at < text.size() && text[at] == '.') {
    const std::size_t decimals = digitsFrom(text, at + 1);
    digits += decimals;
    at += 1 + decimals;
  }
  if (digits == 0) return false;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t exponent = digitsFrom(text, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == text.size();
}

/// Of a number that no double holds: whether it is too small rather than too large.
bool isTooSmall(std::string_view number) {
  const std::size_t exponent = number.find_first_of("eE");
  if (exponent != std::string_view::npos) return number[exponent + 1] == '-';
  return number.substr(0, number.find('.')).find_first_not_of('0') == std::string_view::npos;
}

double plainNumber(std::string_view number) {
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (isTooSmall(number)) return 0;
    raiseOverflow();
  }
  return value;
}

}  // namespace

double numberInText(std::string_view text) {
  std::string_view number = trimmedBlanks(text);
  const bool negative = !number.empty() && number.front() == '-';
  if (!number.empty() && (negative || number.front() == '+')) number.remove_prefix(1);
  bool grouped = false;
  if (!isUnsignedNumber(number, grouped)) return 0;
  double magnitude = 0;
  if (grouped) {
    std::string plain(number);
    plain.erase(std::remove(plain.begin(), plain.end(), ','), plain.end());
    magnitude = plainNumber(plain);
  } else {
    magnitude = plainNumber(number);
  }
  return negative && magnitude != 0 ? -magnitude : magnitude;
}

}  // namespace kt7::host
