#include "base/number_text.h"

#include <algorithm>
#include <cstdint>

#include <kt7/error.h>
#include "base/text.h"

namespace kt7 {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t digitsFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && isDigit(text[end])) ++end;
  return end - at;
}

/// Digits with "," between them, a fraction, an exponent; no sign.
bool isUnsignedNumber(std::string_view text) {
  std::size_t at = digitsFrom(text, 0);
  std::size_t digits = at;
  while (at > 0 && at < text.size() && text[at] == ',') {
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

std::string ungrouped(std::string_view number) {
  std::string plain(number);
  plain.erase(std::remove(plain.begin(), plain.end(), ','), plain.end());
  return plain;
}

/// Of a text that is an unsigned number.
double magnitudeOf(std::string_view number) {
  if (number.find(',') != std::string_view::npos) return magnitudeOf(ungrouped(number));
  double value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    if (isTooSmall(number)) return 0;
    raiseOverflow();
  }
  return value;
}

double withSign(bool negative, double magnitude) {
  return negative && magnitude != 0 ? -magnitude : magnitude;
}

/// A number as people write it: its sign, and the text without it.
struct SignedText {
  bool negative = false;
  std::string_view number;
};

SignedText automationSign(std::string_view text) {
  text = trimmedBlanks(text);
  if (text.empty()) return {};
  const auto isSign = [](char c) { return c == '-' || c == '+'; };
  if (text.front() == '(' && text.back() == ')') {
    return {true, trimmedBlanks(text.substr(1, text.size() - 2))};
  }
  if (isSign(text.front())) return {text.front() == '-', trimmedBlanks(text.substr(1))};
  if (isSign(text.back())) {
    return {text.back() == '-', trimmedBlanks(text.substr(0, text.size() - 1))};
  }
  return {false, text};
}

/// "&H1F" or "&O17"; nothing for a text that does not begin so.
std::optional<double> numberInOtherBase(std::string_view text) {
  if (text.size() < 2 || text[0] != '&') return std::nullopt;
  const bool hexadecimal = text[1] == 'H' || text[1] == 'h';
  if (!hexadecimal && text[1] != 'O' && text[1] != 'o') return std::nullopt;
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data() + 2, end, number, hexadecimal ? 16 : 8);
  if (read.ec == std::errc::result_out_of_range) raiseOverflow();
  if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
  return static_cast<double>(number);
}

[[noreturn]] void raiseNoNumber(std::string_view text) {
  raiseTypeMismatch("'" + std::string(text) + "' is not a number");
}

}  // namespace

std::optional<double> writtenNumber(std::string_view text) {
  std::string_view number = trimmedBlanks(text);
  const bool negative = number.starts_with('-');
  if (negative || number.starts_with('+')) number.remove_prefix(1);
  if (!isUnsignedNumber(number)) return std::nullopt;
  return withSign(negative, magnitudeOf(number));
}

double automationNumber(std::string_view text) {
  const SignedText given = automationSign(text);
  if (const auto number = numberInOtherBase(given.number)) return withSign(given.negative, *number);
  if (!isUnsignedNumber(given.number)) raiseNoNumber(text);
  return withSign(given.negative, magnitudeOf(given.number));
}

Currency automationAmount(std::string_view text) {
  const SignedText given = automationSign(text);
  const bool plain = given.number.find_first_of("eE") == std::string_view::npos;
  if (!plain || !isUnsignedNumber(given.number)) {
    return Currency::fromDouble(automationNumber(text));
  }
  return Currency::fromText((given.negative ? "-" : "") + ungrouped(given.number));
}

std::string compactText(double value) {
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

std::string joinedText(double value) {
  constexpr int kDigits = 15;
  if (value == 0) return "0";  // also of a negative zero
  char buffer[32];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, kDigits).ptr;
  return upperCase({buffer, end});
}

double widened(float value) {
  char buffer[32];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  double wide = value;  // stays where the number is infinite or undefined
  readPlainNumber({buffer, end}, wide);
  return wide;
}

}  // namespace kt7
