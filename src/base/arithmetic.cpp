#include "base/arithmetic.h"

#include <cmath>
#include <limits>

#include <kt7/error.h>

namespace kt7 {

namespace {

template <typename Whole>
Whole nearestWhole(double value) {
  const double nearest = std::nearbyint(value);
  if (!(nearest >= std::numeric_limits<Whole>::min() &&
        nearest <= std::numeric_limits<Whole>::max())) {
    raiseOverflow();
  }
  return static_cast<Whole>(nearest);
}

}  // namespace

std::int16_t toInt16(double value) { return nearestWhole<std::int16_t>(value); }
std::int32_t toInt32(double value) { return nearestWhole<std::int32_t>(value); }

std::int16_t narrow16(std::int64_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    raiseOverflow();
  }
  return static_cast<std::int16_t>(value);
}

std::int16_t multiply16(std::int16_t a, std::int16_t b) {
  return narrow16(std::int64_t{a} * std::int64_t{b});
}
std::int16_t add16(std::int16_t a, std::int16_t b) {
  return narrow16(std::int64_t{a} + std::int64_t{b});
}
std::int16_t subtract16(std::int16_t a, std::int16_t b) {
  return narrow16(std::int64_t{a} - std::int64_t{b});
}

double finite(double value) {
  if (!std::isfinite(value)) raiseOverflow();
  return value;
}

double divide(double a, double b) {
  if (b == 0.0) raiseDivisionByZero();
  return finite(a / b);
}

float toSingle(double value) {
  const float single = static_cast<float>(value);
  if (!std::isfinite(single)) raiseOverflow();
  return single;
}

}  // namespace kt7
