#pragma once

#include <cstdint>

namespace kt7 {

/// The nearest 16-bit whole number, ties to even; overflow outside -32768..32767.
std::int16_t toInt16(double value);
/// The nearest 32-bit whole number, ties to even; overflow outside the 32-bit range.
std::int32_t toInt32(double value);

/// 16-bit arithmetic; a result outside -32768..32767 is an overflow error.
std::int16_t multiply16(std::int16_t a, std::int16_t b);
std::int16_t add16(std::int16_t a, std::int16_t b);
std::int16_t subtract16(std::int16_t a, std::int16_t b);
std::int16_t narrow16(std::int64_t value);

/// The value itself; an infinite or undefined result of an arithmetic step is an overflow error.
double finite(double value);
/// a / b in double arithmetic; division by zero for b = 0, also for 0 / 0.
double divide(double a, double b);
/// The nearest single-precision number; overflow beyond its range.
float toSingle(double value);

}  // namespace kt7
