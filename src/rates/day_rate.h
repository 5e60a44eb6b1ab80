#pragma once

#include <cstdint>

namespace kt7::rates {

/// Pay for one working day in baht, unrounded, from a salary amount and the salary type that says
/// what it pays for: 0 a month of 30 days, 1 a week of 7, 2 a day, 3 an hour (8 a day), 4 half a
/// month of 15 days, 5 as a third; 0 for any other type.
double dayRate(std::int16_t salaryType, double salary);

inline constexpr double kHoursPerDay = 8;

}  // namespace kt7::rates
