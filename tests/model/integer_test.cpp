// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/integer.h"

#include <cstdint>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "model/run_time_error.h"

namespace velorin {
namespace {

template <class Act>
void expect_overflow(Act act, const std::string& message) {
  try {
    act();
    ADD_FAILURE() << "no overflow, expected: " << message;
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::overflow);
    EXPECT_EQ(error.what(), message);
  }
}

static_assert(!std::is_constructible_v<integer, double>, "a fraction is never cut off in silence");
static_assert(!std::is_constructible_v<integer, float>, "a fraction is never cut off in silence");
static_assert(sizeof(integer) == 2);

TEST(Integer, StartsAtZero) { EXPECT_EQ(integer(), 0); }

TEST(Integer, HoldsEveryValueOfItsRange) {
  for (int value = -32768; value <= 32767; ++value) {
    ASSERT_EQ(integer(value), value);
  }
}

TEST(Integer, TakesOtherWholeNumberTypes) {
  EXPECT_EQ(integer(std::int8_t{-128}), -128);
  EXPECT_EQ(integer(std::uint16_t{32767}), 32767);
  EXPECT_EQ(integer(32767LL), 32767);
  EXPECT_EQ(integer(std::size_t{300}), 300);
}

TEST(Integer, RefusesTheFirstValuesOutsideItsRange) {
  expect_overflow([] { return integer(32768); }, "Overflow: 32768 does not fit a 16-bit figure");
  expect_overflow([] { return integer(-32769); }, "Overflow: -32769 does not fit a 16-bit figure");
}

TEST(Integer, RefusesWideValuesThatWouldFitIfCutTo16Bits) {
  expect_overflow([] { return integer(65536); }, "Overflow: 65536 does not fit a 16-bit figure");
  expect_overflow([] { return integer(4294967297LL); }, "Overflow: 4294967297 does not fit a 16-bit figure");
  expect_overflow([] { return integer(std::uint16_t{65535}); }, "Overflow: 65535 does not fit a 16-bit figure");
}

TEST(Integer, RefusesValuesThatNoSignedTypeHolds) {
  expect_overflow([] { return integer(std::uint64_t{18446744073709551615U}); },
                  "Overflow: 18446744073709551615 does not fit a 16-bit figure");
  expect_overflow([] { return integer(std::uint64_t{9223372036854775808U}); },
                  "Overflow: 9223372036854775808 does not fit a 16-bit figure");
  expect_overflow([] { return integer(std::size_t{18446744073709518848U}); },
                  "Overflow: 18446744073709518848 does not fit a 16-bit figure");
}

TEST(Integer, AnOverflowNamesNoPlace) {
  try {
    integer(40000);
    FAIL() << "no overflow";
  } catch (const run_time_error& error) {
    EXPECT_TRUE(error.place().file.empty());
    EXPECT_EQ(error.place().record, 0);
    EXPECT_TRUE(error.place().field.empty());
    EXPECT_TRUE(error.place().player.empty());
  }
}

TEST(Integer, SumsAndDifferences) {
  integer runs = 10;
  runs += 6;
  EXPECT_EQ(runs, 16);
  runs -= 20;
  EXPECT_EQ(runs, -4);
  ++runs;
  EXPECT_EQ(runs, -3);
}

TEST(Integer, AStepBeyondAnEndRaisesAndChangesNothing) {
  integer highest = 32767;
  expect_overflow([&] { ++highest; }, "Overflow: 32768 does not fit a 16-bit figure");
  EXPECT_EQ(highest, 32767);
  expect_overflow([&] { highest += 1000; }, "Overflow: 33767 does not fit a 16-bit figure");
  EXPECT_EQ(highest, 32767);

  integer lowest = -32768;
  expect_overflow([&] { lowest -= 1; }, "Overflow: -32769 does not fit a 16-bit figure");
  EXPECT_EQ(lowest, -32768);
}

TEST(Integer, AnAssignmentThatOverflowsLeavesTheOldValue) {
  integer figure = 7;
  const int too_much = 100000;
  expect_overflow([&] { figure = too_much; }, "Overflow: 100000 does not fit a 16-bit figure");
  EXPECT_EQ(figure, 7);
}

TEST(Integer, TakesPartInPlainArithmetic) {
  const integer runs = 30000;
  EXPECT_EQ(runs + runs, 60000) << "a sum is a plain number until it is stored";
  EXPECT_DOUBLE_EQ(integer(1) / 2.0, 0.5);
  EXPECT_EQ(integer(7) / 2, 3);
}

}  // namespace
}  // namespace velorin
