#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include <kt7/currency.h>

/// Numbers from texts and back. What a machine wrote is read strictly, what people write by the
/// rules of the host's platform.
namespace kt7 {

/// The number that the whole text writes in digits, "-12" or for a double "1.5e-3": no blanks, no
/// "+", no groups. False for any other text and beyond the type's range; `out` then stays.
template <typename Number>
bool readPlainNumber(std::string_view text, Number& out,
                     std::chars_format format = std::chars_format::general) {
  const char* const end = text.data() + text.size();
  Number number{};
  std::from_chars_result read{};
  if constexpr (std::is_floating_point_v<Number>) {
    read = std::from_chars(text.data(), end, number, format);
    if (!std::isfinite(number)) return false;
  } else {
    read = std::from_chars(text.data(), end, number);
  }
  if (read.ec != std::errc{} || read.ptr != end) return false;
  out = number;
  return true;
}

/// The number written in a text: blanks around it are ignored, a sign may stand before it, "," may
/// group the digits before the point, a decimal exponent may follow. Nothing for a text that is no
/// number; overflow for one that no double holds.
std::optional<double> writtenNumber(std::string_view text);

/// A text as a number by the automation rules: as written, the sign also behind the digits or as
/// brackets round them, or in the base of "&H10" and "&O17". Type mismatch for any other text.
double automationNumber(std::string_view text);
/// The same as money, exact to the ten-thousandth, a tie to even.
Currency automationAmount(std::string_view text);

/// As shortestText, with an exponent wherever that is shorter, as engines and dumps write it:
/// "1e+20".
std::string compactText(double value);
/// The 15 digits that a double shows when it is joined with a text: 0.1 + 0.2 gives "0.3".
std::string joinedText(double value);

/// The double that a single-precision number shows: 104.3, not 104.30000305175781.
double widened(float value);

}  // namespace kt7
