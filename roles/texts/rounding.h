#pragma once

/// Decimal rounding as people do it on paper: on the shortest decimal text that reads back as the
/// same double, so that 1.005 to two places is 1.01 although its binary value lies below.
namespace kt7::roles {

enum class RoundingMode { HalfToEven = 0, HalfAway = 1, TowardsZero = 2, Away = 3 };

/// `value` to `digits` decimal places; a negative count rounds to tens, hundreds and so on. Never
/// answers -0; overflow where the value is not finite or the result leaves the range of a double.
double roundDecimal(double value, int digits, RoundingMode mode);

/// The everyday rule: a tie goes away from zero.
double roundHalfAway(double value, int digits);

/// The mode of that published number: 0 half to even, 1 half away from zero, 2 towards zero,
/// 3 away from zero; a failed collaborator call for any other.
RoundingMode roundingMode(int number);

}  // namespace kt7::roles
