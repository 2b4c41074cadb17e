// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/random.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

class Random : public testing::Test {
 protected:
  void SetUp() override { chance.use_clock(); }
  void TearDown() override { chance.use_clock(); }
};

std::vector<double> draws(int count) {
  std::vector<double> drawn;
  for (int i = 0; i < count; ++i) drawn.push_back(chance.rnd());
  return drawn;
}

const double just_under_one = std::nextafter(1.0, 0.0);

TEST_F(Random, ASeedRepeatsItsDraws) {
  chance.use_seed(42);
  const auto first = draws(1000);
  chance.use_seed(42);
  EXPECT_EQ(draws(1000), first);
  chance.use_seed(43);
  EXPECT_NE(draws(1000), first);
}

TEST_F(Random, ASeedGivesTheSameDrawsOnEveryMachine) {
  chance.use_seed(1);
  EXPECT_EQ(chance.rnd(), 3220144176 * 0x1p-32);
  EXPECT_EQ(chance.rnd(), 1599417572 * 0x1p-32);
  EXPECT_EQ(chance.rnd(), 1882415043 * 0x1p-32);
  chance.use_seed(0);
  EXPECT_EQ(chance.rnd(), 3793791033 * 0x1p-32);
}

TEST_F(Random, ASeedGoesBackToAPlace) {
  chance.use_seed(42);
  draws(10);
  const random_source::place place = chance.here();
  const auto wanted = draws(100);
  chance.return_to(place, luck::same);
  EXPECT_EQ(chance.draws_used(), 10U);
  EXPECT_EQ(draws(100), wanted);
}

TEST_F(Random, TheClockGoesBackToAPlaceWithTheReadingsKept) {
  chance.keep_readings();
  const auto reseeded = [](int count) {
    std::vector<double> drawn;
    for (int i = 0; i < count; ++i) {
      chance.reseed();
      drawn.push_back(chance.rnd());
    }
    return drawn;
  };
  reseeded(5);
  const random_source::place place = chance.here();
  const auto wanted = reseeded(50);
  chance.return_to(place, luck::same);
  EXPECT_EQ(reseeded(50), wanted);
  const auto after = reseeded(3);
  EXPECT_NE(after, std::vector<double>(wanted.begin(), wanted.begin() + 3)) << "the clock is read again";
  chance.return_to(place, luck::fresh);
  EXPECT_NE(reseeded(50), wanted);
}

TEST_F(Random, ForgottenReadingsComeNoMore) {
  chance.keep_readings();
  const random_source::place place = chance.here();
  chance.reseed();
  const double wanted = chance.rnd();
  chance.return_to(place, luck::same);
  chance.forget_readings();
  EXPECT_FALSE(chance.keeps_readings());
  chance.reseed();
  EXPECT_NE(chance.rnd(), wanted);
}

TEST_F(Random, FreshLuckBringsOtherDrawsAlsoOfASeed) {
  chance.use_seed(42);
  const random_source::place place = chance.here();
  const auto before = draws(100);
  chance.return_to(place, luck::fresh);
  EXPECT_EQ(chance.draws_used(), 0U);
  EXPECT_NE(draws(100), before);
}

TEST_F(Random, AScriptGoesOnWithDrawsThatNobodyHasHadForFreshLuck) {
  chance.use_script({0.1, 0.2, 0.3, 0.4, 0.5}, "draws");
  draws(1);
  const random_source::place place = chance.here();
  draws(2);
  chance.return_to(place, luck::same);
  EXPECT_EQ(chance.rnd(), 0.2);
  chance.return_to(place, luck::fresh);
  EXPECT_EQ(chance.rnd(), 0.4);
}

TEST_F(Random, ReseedingChangesNothingUnderASeed) {
  chance.use_seed(42);
  const auto plain = draws(100);
  chance.use_seed(42);
  std::vector<double> reseeded;
  for (int i = 0; i < 100; ++i) {
    chance.reseed();
    reseeded.push_back(chance.rnd());
  }
  EXPECT_EQ(reseeded, plain);
}

TEST_F(Random, DrawsLieFromZeroToBelowOne) {
  chance.use_seed(3);
  for (int i = 0; i < 1000000; ++i) {
    const double r = chance.rnd();
    ASSERT_GE(r, 0);
    ASSERT_LT(r, 1);
  }
}

TEST_F(Random, CountsTheDraws) {
  chance.use_seed(3);
  EXPECT_EQ(chance.draws_used(), 0U);
  chance.rnd();
  die(chance, 6);
  coin(chance);
  chance.reseed();
  EXPECT_EQ(chance.draws_used(), 3U);
  chance.use_script({0.5}, "draws.txt");
  EXPECT_EQ(chance.draws_used(), 0U);
}

TEST_F(Random, AScriptGivesItsNumbersInTurn) {
  chance.use_script({0.25, 0, just_under_one, 0.5}, "draws.txt");
  EXPECT_EQ(chance.rnd(), 0.25);
  chance.reseed();
  EXPECT_EQ(chance.rnd(), 0);
  EXPECT_EQ(chance.rnd(), just_under_one);
  chance.reseed();
  EXPECT_EQ(chance.rnd(), 0.5);
}

TEST_F(Random, AScriptThatHasRunOutIsAFailureThatNamesItsLength) {
  chance.use_script({0.1, 0.2, 0.3}, "draws.txt");
  draws(3);
  for (int again = 0; again < 2; ++again) {
    try {
      chance.rnd();
      ADD_FAILURE() << "a fourth number came";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::subscript);
      EXPECT_STREQ(error.what(), "The scripted draws ran out: all 3 are used (file draws.txt)");
      EXPECT_EQ(error.place().file, "draws.txt");
    }
  }
}

TEST_F(Random, ADieShowsItsFirstFaceAtZeroAndItsLastJustUnderOne) {
  for (int n = 1; n <= 32767; ++n) {
    chance.use_script({0, just_under_one, 1 - 0x1p-32}, "ends");
    ASSERT_EQ(die(chance, n), 1) << n << " faces";
    ASSERT_EQ(die(chance, n), n) << n << " faces";
    ASSERT_EQ(die(chance, n), n) << n << " faces, the highest number that the generators give";
  }
}

TEST_F(Random, EachFaceBeginsAtItsFraction) {
  for (const int n : {2, 4, 8, 1024}) {
    for (int face = 2; face <= n; ++face) {
      const double start = (face - 1.0) / n;
      chance.use_script({start, start - 0x1p-40}, "faces");
      ASSERT_EQ(die(chance, n), face);
      ASSERT_EQ(die(chance, n), face - 1);
    }
  }
}

TEST_F(Random, ACoinHasTwoSides) {
  chance.use_script({0, 0.49, 0.5, just_under_one}, "coins");
  EXPECT_EQ(coin(chance), 1);
  EXPECT_EQ(coin(chance), 1);
  EXPECT_EQ(coin(chance), 2);
  EXPECT_EQ(coin(chance), 2);
}

TEST_F(Random, MixTurnsOverHalfTheBitsForEachBit) {
  // Over many values, a flip of one bit going in flips each bit coming out in half of the cases.
  constexpr int values = 4000;
  std::array<std::array<int, 64>, 64> flips{};
  for (std::uint64_t value = 0; value < values; ++value) {
    const std::uint64_t start = 1'700'000'000'000'000'000U + 37 * value;
    const std::uint64_t mixed = random_source::mix(start);
    for (int in = 0; in < 64; ++in) {
      const std::uint64_t changed = mixed ^ random_source::mix(start ^ (std::uint64_t{1} << in));
      for (int out = 0; out < 64; ++out) flips[in][out] += static_cast<int>(changed >> out & 1);
    }
  }
  const double standard_error = std::sqrt(values * 0.25);
  for (int in = 0; in < 64; ++in) {
    for (int out = 0; out < 64; ++out) {
      ASSERT_NEAR(flips[in][out], values / 2.0, 6 * standard_error) << "bit " << in << " to bit " << out;
    }
  }
}

/// What a million draws look like on the scale of 1 to 1000, and in pairs.
class draw_statistics {
 public:
  void add(double r) {
    ++windows_[static_cast<std::size_t>(r * windows)];
    if (count_ > 0) products_ += (last_ - 0.5) * (r - 0.5);
    last_ = r;
    ++count_;
  }

  /// The chi-square of the 1000 windows, in standard errors from its mean.
  double windows_off() const {
    const double expected = static_cast<double>(count_) / windows;
    double chi_square = 0;
    for (const int seen : windows_) chi_square += (seen - expected) * (seen - expected) / expected;
    return (chi_square - (windows - 1)) / std::sqrt(2.0 * (windows - 1));
  }

  /// The draws in the places `from` to `to` of the scale, in standard errors from their mean.
  double group_off(int from, int to) const {
    double seen = 0;
    for (int place = from; place <= to; ++place) seen += windows_[static_cast<std::size_t>(place - 1)];
    const double share = (to - from + 1.0) / windows;
    return (seen - count_ * share) / std::sqrt(count_ * share * (1 - share));
  }

  /// The correlation of a draw with the next one, in standard errors from none.
  double correlation_off() const {
    constexpr double variance = 1.0 / 12;
    return products_ / (count_ - 1.0) / variance * std::sqrt(count_ - 1.0);
  }

 private:
  static constexpr int windows = 1000;
  std::array<int, windows> windows_{};
  double last_ = 0;
  double products_ = 0;
  int count_ = 0;
};

void expect_even(const draw_statistics& drawn) {
  EXPECT_LT(std::fabs(drawn.windows_off()), 4) << "the thousand windows";
  EXPECT_LT(std::fabs(drawn.correlation_off()), 4) << "consecutive draws";
  // Windows of the sizes of an ordinary ball: wicket, one, two, three, four, six, the extras, none.
  constexpr int ends[] = {25, 336, 411, 430, 492, 499, 524, 1000};
  int from = 1;
  for (const int to : ends) {
    EXPECT_LT(std::fabs(drawn.group_off(from, to)), 4) << "places " << from << " to " << to;
    from = to + 1;
  }
}

constexpr int million = 1000000;

TEST_F(Random, TheClockAtFullSpeedGivesEvenAndIndependentDraws) {
  draw_statistics drawn;
  for (int i = 0; i < million; ++i) {
    chance.reseed();
    drawn.add(chance.rnd());
  }
  expect_even(drawn);
}

TEST_F(Random, TheSecondDrawAfterTheClockIsEvenAndIndependentToo) {
  draw_statistics seconds;
  draw_statistics both;
  for (int i = 0; i < million / 2; ++i) {
    chance.reseed();
    both.add(chance.rnd());
    const double second = chance.rnd();
    both.add(second);
    seconds.add(second);
  }
  expect_even(seconds);
  expect_even(both);
}

class RandomReadings : public testing::TestWithParam<int> {};

TEST_P(RandomReadings, NeighbouringReadingsGiveEvenAndIndependentDraws) {
  // The draw that follows a reading is the same function of it as in the game: the state after reseeding is a seed's.
  draw_statistics drawn;
  for (int i = 0; i < million; ++i) {
    const std::uint64_t reading = 1'700'000'000'000'000'000U + static_cast<std::uint64_t>(i) * GetParam();
    const std::uint64_t state = random_source::seed_from_reading(reading);
    drawn.add(static_cast<double>(random_source::mix(state + 0x9E3779B97F4A7C15U) >> 32) * 0x1p-32);
  }
  expect_even(drawn);
}

INSTANTIATE_TEST_SUITE_P(Nanoseconds, RandomReadings, testing::Values(1, 2, 40, 100, 1000, 1000000));

TEST_F(Random, TheStateAfterAReadingIsAPureFunctionOfIt) {
  static_assert(random_source::seed_from_reading(1'700'000'000'000'000'000U) == 673942876139735264U);
  EXPECT_NE(random_source::seed_from_reading(1'700'000'000'000'000'000U),
            random_source::seed_from_reading(1'700'000'000'000'000'001U));
}

TEST_F(Random, OneSeedGivesEvenAndIndependentDraws) {
  chance.use_seed(20240229);
  draw_statistics drawn;
  for (int i = 0; i < million; ++i) drawn.add(chance.rnd());
  expect_even(drawn);
}

TEST_F(Random, ADieFallsOnAllFacesAlike) {
  chance.use_seed(11);
  constexpr int faces = 110;
  constexpr int throws = 550000;
  std::array<int, faces + 1> seen{};
  for (int i = 0; i < throws; ++i) ++seen[static_cast<std::size_t>(die(chance, faces))];
  EXPECT_EQ(seen[0], 0);
  double chi_square = 0;
  const double expected = static_cast<double>(throws) / faces;
  for (int face = 1; face <= faces; ++face) chi_square += (seen[face] - expected) * (seen[face] - expected) / expected;
  EXPECT_LT(std::fabs(chi_square - (faces - 1)) / std::sqrt(2.0 * (faces - 1)), 4);
}

}  // namespace
}  // namespace velorin
