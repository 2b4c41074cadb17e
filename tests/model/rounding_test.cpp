// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/rounding.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// The same rule written out: the nearer whole number, of two equally near ones the even one.
double nearest_whole(double value) {
  const double below = std::floor(value);
  const double past = value - below;
  if (past < 0.5) return below;
  if (past > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

TEST(RoundHalfEven, AnExactHalfGoesToTheEvenNeighbour) {
  EXPECT_EQ(round_half_even(0.5), 0);
  EXPECT_EQ(round_half_even(1.5), 2);
  EXPECT_EQ(round_half_even(2.5), 2);
  EXPECT_EQ(round_half_even(3.5), 4);
  EXPECT_EQ(round_half_even(-0.5), 0);
  EXPECT_EQ(round_half_even(-1.5), -2);
  EXPECT_EQ(round_half_even(-2.5), -2);
}

TEST(RoundHalfEven, AnythingElseGoesToTheNearer) {
  EXPECT_EQ(round_half_even(0), 0);
  EXPECT_EQ(round_half_even(24.69), 25);
  EXPECT_EQ(round_half_even(45.4545), 45);
  EXPECT_EQ(round_half_even(std::nextafter(0.5, 1.0)), 1);
  EXPECT_EQ(round_half_even(std::nextafter(0.5, 0.0)), 0);
  EXPECT_EQ(round_half_even(std::nextafter(2.5, 3.0)), 3);
  EXPECT_EQ(round_half_even(std::nextafter(3.5, 3.0)), 3);
  EXPECT_EQ(round_half_even(-24.51), -25);
}

TEST(RoundHalfEven, EveryHalfOfTheScale) {
  for (int whole = -40000; whole < 40000; ++whole) {
    const int even = whole % 2 == 0 ? whole : whole + 1;
    ASSERT_EQ(round_half_even(whole + 0.5), even) << whole << " and a half";
  }
}

TEST(RoundHalfEven, AgreesWithTheRuleOverAllSizes) {
  std::mt19937_64 draw(7);
  for (int exponent = -30; exponent <= 60; ++exponent) {
    std::uniform_real_distribution<double> sizes(-std::ldexp(1.0, exponent), std::ldexp(1.0, exponent));
    for (int i = 0; i < 4000; ++i) {
      const double value = sizes(draw);
      ASSERT_EQ(round_half_even(value), nearest_whole(value)) << value;
    }
  }
}

TEST(RoundHalfEven, NumbersTooLargeForAFractionStayAsTheyAre) {
  for (const double value : {2251799813685248.0, 2251799813685248.5, 4503599627370495.5, 4503599627370497.0,
                             9007199254740993.0, 1e300, -2251799813685248.5, -4503599627370495.5, -1e300}) {
    EXPECT_EQ(round_half_even(value), nearest_whole(value)) << value;
  }
  EXPECT_EQ(round_half_even(std::numeric_limits<double>::max()), std::numeric_limits<double>::max());
}

TEST(RoundHalfEven, TheQuickWayIsTheSameForSmallNumbers) {
  for (int quarter = -40'000; quarter <= 40'000; ++quarter) {
    for (const double value : {quarter / 4.0, quarter / 4.0 + 1e-9, quarter * 24'999.75}) {
      ASSERT_EQ(small_round_half_even(value), round_half_even(value)) << value;
    }
  }
}

TEST(RoundTo, RoundsTheScaledValue) {
  EXPECT_EQ(round_to(5.688888, 2), 5.69);
  EXPECT_EQ(round_to(1.0 / 3, 3), 0.333);
  EXPECT_EQ(round_to(2.0 / 3, 3), 0.667);
  EXPECT_EQ(round_to(83.33333, 2), 83.33);
  EXPECT_EQ(round_to(-1.005, 1), -1.0);
  EXPECT_EQ(round_to(7.0, 9), 7.0);
}

TEST(RoundTo, AHalfThatIsExactAfterScalingGoesToTheEvenNeighbour) {
  EXPECT_EQ(round_to(0.125, 2), 0.12);
  EXPECT_EQ(round_to(0.375, 2), 0.38);
  EXPECT_EQ(round_to(2.5, 0), 2);
  EXPECT_EQ(round_to(0.25, 1), 0.2);
  EXPECT_EQ(round_to(0.35, 1), 0.4) << "0.35 x 10 is 3.5 in double precision";
  EXPECT_EQ(round_to(2.675, 2), 2.68) << "2.675 x 100 is 267.5 in double precision";
}

TEST(RoundTo, AValueWithThatManyPlacesStaysAsItIs) {
  for (int hundredths = -100000; hundredths <= 100000; ++hundredths) {
    const double value = hundredths / 100.0;
    ASSERT_EQ(round_to(value, 2), value);
  }
}

}  // namespace
}  // namespace velorin
