#include "roles/texts/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <kt7/error.h>

namespace kt7::roles {
namespace {

struct RoundingCase {
  double value;
  int digits;
  double halfToEven, halfAway, towardsZero, away;
};

constexpr RoundingCase kCases[] = {
    // Binary values just below or above the tie that their shortest text shows.
    {1.005, 2, 1.00, 1.01, 1.00, 1.01},
    {2.675, 2, 2.68, 2.68, 2.67, 2.68},
    {1704.165, 2, 1704.16, 1704.17, 1704.16, 1704.17},
    {2.5, 0, 2, 3, 2, 3},
    {3.5, 0, 4, 4, 3, 4},
    {0.5, 0, 0, 1, 0, 1},
    {-0.5, 0, 0, -1, 0, -1},
    {-1.5, 0, -2, -2, -1, -2},
    {2.4999999999999996, 0, 2, 2, 2, 3},
    {2.5000000000000004, 0, 3, 3, 2, 3},
    {0.05, 1, 0, 0.1, 0, 0.1},
    {9.995, 2, 10.00, 10.00, 9.99, 10.00},
    {0.1 + 0.2, 2, 0.3, 0.3, 0.3, 0.31},
    {0.1, 1000, 0.1, 0.1, 0.1, 0.1},
    {0, 2, 0, 0, 0, 0},
    {15, -1, 20, 20, 10, 20},
    {25, -1, 20, 30, 20, 30},
    {149.99, -2, 100, 100, 100, 200},
    {4, -1, 0, 0, 0, 10},
    {1e22, -22, 1e22, 1e22, 1e22, 1e22},
    {1.5e300, -300, 2e300, 2e300, 1e300, 2e300},
    {9007199254740993.0, -1, 9007199254740990.0, 9007199254740990.0, 9007199254740990.0,
     9007199254741000.0},
    {123456789012345.675, 1, 123456789012345.7, 123456789012345.7, 123456789012345.6,
     123456789012345.7},
    {4.2e-30, 30, 4e-30, 4e-30, 4e-30, 5e-30},
    {1e-300, 2, 0, 0, 0, 0.01},
    {5e-324, 324, 5e-324, 5e-324, 5e-324, 5e-324},
    {5e-324, 323, 0, 1e-323, 0, 1e-323},
};

TEST(Rounding, EveryModeWorksOnTheShortestDecimalText) {
  for (const RoundingCase& c : kCases) {
    SCOPED_TRACE(::testing::Message() << c.value << " to " << c.digits);
    EXPECT_EQ(roundDecimal(c.value, c.digits, roundingMode(0)), c.halfToEven);
    EXPECT_EQ(roundDecimal(c.value, c.digits, roundingMode(1)), c.halfAway);
    EXPECT_EQ(roundHalfAway(c.value, c.digits), c.halfAway);
    EXPECT_EQ(roundDecimal(c.value, c.digits, roundingMode(2)), c.towardsZero);
    EXPECT_EQ(roundDecimal(c.value, c.digits, roundingMode(3)), c.away);
    EXPECT_EQ(roundHalfAway(-c.value, c.digits), -c.halfAway);
  }
}

TEST(Rounding, AmountsInSatangKeepTheirNearestDouble) {
  for (int satang = 0; satang < 2000000; satang += 7) {
    const double amount = satang / 100.0;
    ASSERT_EQ(roundHalfAway(amount, 2), amount);
    ASSERT_EQ(roundHalfAway(satang / 100.0 + 0.004, 2), amount);
    ASSERT_EQ(roundHalfAway((satang * 10 + 5) / 1000.0, 2), (satang + 1) / 100.0);
  }
}

TEST(Rounding, NeverAnswersANegativeZero) {
  for (const double value : {-0.0, -0.4, -1e-300}) {
    EXPECT_FALSE(std::signbit(roundHalfAway(value, 0))) << value;
  }
}

TEST(Rounding, WhatCannotBeRoundedIsAnError) {
  const auto kindOf = [](auto&& act) {
    try {
      act();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  constexpr double kLargest = std::numeric_limits<double>::max();
  EXPECT_EQ(kindOf([&] { roundDecimal(kLargest, -308, RoundingMode::Away); }), 6);
  EXPECT_EQ(kindOf([&] { roundDecimal(1, -400, RoundingMode::Away); }), 6);
  EXPECT_EQ(kindOf([&] { roundHalfAway(std::nan(""), 2); }), 6);
  EXPECT_EQ(kindOf([&] { roundHalfAway(-std::numeric_limits<double>::infinity(), 2); }), 6);
  EXPECT_EQ(kindOf([&] { roundingMode(4); }), 440);
  EXPECT_EQ(kindOf([&] { roundingMode(-1); }), 440);
}

}  // namespace
}  // namespace kt7::roles
