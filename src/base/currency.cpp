#include <kt7/currency.h>

#include <cfloat>
#include <charconv>
#include <cmath>

#include <kt7/error.h>

namespace kt7 {

Currency Currency::fromWhole(std::int64_t baht) { return baht * Currency(kScale); }

Currency Currency::fromDouble(double amount) {
  // 53 bits of a double times 10000 (10 bits and a power of two) fit a 64-bit mantissa, so the
  // product is exact and the only rounding is the wanted one.
  static_assert(LDBL_MANT_DIG >= 64);
  const long double scaled = std::rint(static_cast<long double>(amount) * 10000.0L);
  if (!(scaled >= -9223372036854775808.0L && scaled <= 9223372036854775807.0L)) raiseOverflow();
  return Currency(static_cast<std::int64_t>(scaled));
}

Currency Currency::fromText(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  std::string_view digits = text;
  if (negative || (!text.empty() && text.front() == '+')) digits.remove_prefix(1);
  const std::size_t dot = digits.find('.');
  const std::string_view whole = digits.substr(0, dot);
  std::string_view fraction = dot == std::string_view::npos ? "" : digits.substr(dot + 1);
  if ((whole.empty() && fraction.empty()) ||
      whole.find_first_not_of("0123456789") != std::string_view::npos ||
      fraction.find_first_not_of("0123456789") != std::string_view::npos) {
    raiseTypeMismatch("'" + std::string(text) + "' is not an amount");
  }
  std::string scaled = (negative ? "-" : "") + std::string(whole.empty() ? "0" : whole);
  scaled.append(fraction.substr(0, 4)).append(4 - std::min<std::size_t>(4, fraction.size()), '0');
  std::int64_t count = 0;
  const auto [end, code] = std::from_chars(scaled.data(), scaled.data() + scaled.size(), count);
  if (code != std::errc{}) raiseOverflow();
  const std::string_view rest = fraction.size() > 4 ? fraction.substr(4) : "";
  const bool aboveHalf =
      !rest.empty() && (rest[0] > '5' || (rest[0] == '5' && rest.find_first_not_of('0', 1) !=
                                                                std::string_view::npos));
  const bool half = !rest.empty() && rest[0] == '5' && !aboveHalf;
  if (aboveHalf || (half && count % 2 != 0)) {
    return Currency(count) + Currency(negative ? -1 : 1);
  }
  return Currency(count);
}

std::string Currency::toText() const {
  std::uint64_t magnitude = static_cast<std::uint64_t>(count_);
  if (count_ < 0) magnitude = 0 - magnitude;
  const std::string fraction = std::to_string(magnitude % kScale);
  return (count_ < 0 ? "-" : "") + std::to_string(magnitude / kScale) + "." +
         std::string(4 - fraction.size(), '0') + fraction;
}

Currency operator+(Currency a, Currency b) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(a.count_, b.count_, &sum)) raiseOverflow();
  return Currency(sum);
}

Currency operator-(Currency a, Currency b) {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(a.count_, b.count_, &difference)) raiseOverflow();
  return Currency(difference);
}

Currency operator-(Currency a) { return Currency() - a; }

Currency operator*(std::int64_t times, Currency amount) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(times, amount.count_, &product)) raiseOverflow();
  return Currency(product);
}

}  // namespace kt7
