#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include <kt7/export.h>

namespace kt7 {

/// Money: a 64-bit count of ten-thousandths of a baht. Arithmetic that leaves the range is an
/// overflow error; there is no implicit way to or from a double.
class KT7_API Currency {
 public:
  static constexpr std::int64_t kScale = 10000;

  constexpr Currency() = default;
  static constexpr Currency fromTenThousandths(std::int64_t count) { return Currency(count); }
  /// Whole baht; overflow beyond the range.
  static Currency fromWhole(std::int64_t baht);
  /// The nearest ten-thousandth of the exact binary value, a tie to even; overflow beyond the
  /// range.
  static Currency fromDouble(double amount);
  /// A plain decimal text ("-12.5"); more than four places round half to even; type mismatch for
  /// anything else.
  static Currency fromText(std::string_view text);

  constexpr std::int64_t tenThousandths() const { return count_; }
  double toDouble() const { return static_cast<double>(count_) / static_cast<double>(kScale); }
  /// Always four decimals: "60000.0000".
  std::string toText() const;

  friend constexpr auto operator<=>(const Currency&, const Currency&) = default;
  friend KT7_API Currency operator+(Currency a, Currency b);
  friend KT7_API Currency operator-(Currency a, Currency b);
  friend KT7_API Currency operator-(Currency a);
  friend KT7_API Currency operator*(std::int64_t times, Currency amount);
  Currency& operator+=(Currency other) { return *this = *this + other; }
  Currency& operator-=(Currency other) { return *this = *this - other; }

 private:
  explicit constexpr Currency(std::int64_t count) : count_(count) {}
  std::int64_t count_ = 0;
};

}  // namespace kt7
