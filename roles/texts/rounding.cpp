#include "roles/texts/rounding.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include <kt7/error.h>
#include "base/arithmetic.h"

namespace kt7::roles {

namespace {

constexpr int kMostDigits = 17;  // significant decimal digits of a double, at most
constexpr int kExactPower = 22;  // 10^22 is the last power of ten that a double holds exactly
constexpr std::uint64_t kExactWhole = std::uint64_t{1} << 53;

constexpr auto kPowers = [] {
  std::array<std::uint64_t, kMostDigits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// A positive number: `mantissa` * 10^`exponent`, exactly.
struct Decimal {
  std::uint64_t mantissa = 0;
  int exponent = 0;
};

Decimal shortestDecimal(double magnitude) {
  char text[40];
  const char* const end =
      std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr;
  Decimal decimal;
  int decimals = 0;
  const char* at = text;
  for (bool pastPoint = false; *at != 'e'; ++at) {
    if (*at == '.') {
      pastPoint = true;
      continue;
    }
    decimal.mantissa = decimal.mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    decimals += pastPoint ? 1 : 0;
  }
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, end, decimal.exponent);
  decimal.exponent -= decimals;
  return decimal;
}

double nearestDouble(Decimal decimal) {
  // One division or product of two exact numbers rounds once: the nearest double.
  if (decimal.mantissa <= kExactWhole && std::abs(decimal.exponent) <= kExactPower) {
    static constexpr std::array<double, kExactPower + 1> kTens = [] {
      std::array<double, kExactPower + 1> tens{1};
      for (std::size_t i = 1; i < tens.size(); ++i) tens[i] = tens[i - 1] * 10;
      return tens;
    }();
    const double power = kTens[static_cast<std::size_t>(std::abs(decimal.exponent))];
    const auto whole = static_cast<double>(decimal.mantissa);
    return decimal.exponent < 0 ? whole / power : whole * power;
  }
  const std::string text =
      std::to_string(decimal.mantissa) + "e" + std::to_string(decimal.exponent);
  double number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc{}) {
    raiseOverflow();
  }
  return number;
}

bool roundsUp(RoundingMode mode, std::uint64_t quotient, std::uint64_t rest, std::uint64_t unit) {
  switch (mode) {
    case RoundingMode::TowardsZero:
      return false;
    case RoundingMode::Away:
      return rest != 0;
    case RoundingMode::HalfAway:
      return rest >= unit - rest;
    case RoundingMode::HalfToEven:
      return rest > unit - rest || (rest == unit - rest && quotient % 2 == 1);
  }
  return false;
}

}  // namespace

double roundDecimal(double value, int digits, RoundingMode mode) {
  if (finite(value) == 0) return 0;
  const Decimal decimal = shortestDecimal(std::fabs(value));
  const int dropped = -digits - decimal.exponent;
  if (dropped <= 0) return value;
  // Beyond seventeen dropped digits the whole number lies below a tenth of the last place.
  Decimal rounded{0, -digits};
  if (dropped > kMostDigits) {
    rounded.mantissa = mode == RoundingMode::Away ? 1 : 0;
  } else {
    const std::uint64_t unit = kPowers[static_cast<std::size_t>(dropped)];
    rounded.mantissa = decimal.mantissa / unit;
    if (roundsUp(mode, rounded.mantissa, decimal.mantissa % unit, unit)) ++rounded.mantissa;
  }
  if (rounded.mantissa == 0) return 0;
  return std::copysign(nearestDouble(rounded), value);
}

double roundHalfAway(double value, int digits) {
  return roundDecimal(value, digits, RoundingMode::HalfAway);
}

RoundingMode roundingMode(int number) {
  if (number < 0 || number > 3) {
    raiseCollaborator(error_number::kCallFailed,
                      "RoundValue: unknown mode " + std::to_string(number) +
                          " (0 half to even, 1 half away from zero, 2 towards zero, 3 away)");
  }
  return static_cast<RoundingMode>(number);
}

}  // namespace kt7::roles
