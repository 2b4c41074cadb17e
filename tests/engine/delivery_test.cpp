// SPDX-License-Identifier: GPL-3.0-or-later
// The delivery model: its expectations, its windows and what a draw makes of them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "engine/delivery_model.h"
#include "model/random.h"
#include "model/rounding.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// Rounded to single precision, whatever the optimiser does with neighbouring values.
double single(double value) {
  const volatile float rounded = static_cast<float>(value);
  return static_cast<double>(rounded);
}

/// The batsman of 40, the bowler of 36 and 4.5, all conditions 3, no meter, both aggressions 3.
class Delivery : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    match.striker = 1;
    match.non_striker = 2;
    match.bowler = 8;
    for (int i = 1; i <= 11; ++i) match.batting_xi[i].bat_skill = 40;
    rate_bowler(36.0F, 4.5F);
    match.batsman_aggression = {3, 3};
    match.bowling_aggression = {3, 3};
  }
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  static void rate_bowler(float bowl_sr, float econ) {
    match.bowling_xi[8].bowl_sr = bowl_sr;
    match.bowling_xi[8].econ = econ;
  }

  static void set_conditions(int surface, int bounce, int weather, int outfield) {
    match.ground.pitch_surface = surface;
    match.ground.pitch_bounce = bounce;
    match.weather = weather;
    match.outfield = outfield;
  }

  /// What a delivery with this number of the generator brings.
  static int outcome_of(double drawn) {
    script_draws({drawn});
    deliver_ball(match, chance);
    EXPECT_EQ(chance.draws_used(), 1U);
    return match.ball_outcome;
  }

  /// What the draws 1 to 1000 bring, each taken near both ends of its share of the unit: expects that the two agree.
  static std::vector<int> outcomes() {
    std::vector<int> found;
    for (int draw = 1; draw <= 1000; ++draw) {
      const int low = outcome_of((draw - 1 + 1e-6) / 1000);
      EXPECT_EQ(outcome_of((draw - 1e-6) / 1000), low) << "draw " << draw;
      found.push_back(low);
    }
    return found;
  }

  /// The windows laid end to end: `sizes` of wicket, 1, 2, 3, 4, 6, no ball, wide, leg byes, byes; then dots.
  static std::vector<int> scale(const std::array<int, 10>& sizes) {
    constexpr std::array<int, 10> order = {7, 1, 2, 3, 4, 6, 8, 9, 10, 11};
    std::vector<int> laid;
    for (std::size_t i = 0; i < order.size(); ++i)
      laid.insert(laid.end(), static_cast<std::size_t>(sizes[i]), order[i]);
    laid.resize(1000, 0);
    return laid;
  }
};

TEST_F(Delivery, FirstWorkedFigure) {
  const expectations expected = expect_delivery(match);
  EXPECT_EQ(expected.balls_per_wicket, 40.5);
  EXPECT_EQ(expected.runs_per_over, (4.5 + (40.0 / 45.0) * 6) / 2);
  EXPECT_EQ(round_to(expected.runs_per_over, 4), 4.9167);
  EXPECT_THAT(delivery_windows(expected), ElementsAre(25, 311, 75, 19, 62, 7, 8, 9, 5, 3));
  const std::vector<int> found = outcomes();
  EXPECT_THAT(found, ElementsAreArray(scale({25, 311, 75, 19, 62, 7, 8, 9, 5, 3})));
  EXPECT_EQ(std::count(found.begin(), found.end(), 0), 476);
}

TEST_F(Delivery, SecondWorkedFigure) {
  match.batsman_aggression = {5, 1};
  match.settled_meter = {400, 0};
  const expectations expected = expect_delivery(match);
  EXPECT_EQ(expected.balls_per_wicket, 40.5 - 0.4 * 45 + single(400 / 150.0));
  EXPECT_EQ(round_to(expected.balls_per_wicket, 4), 25.1667);
  EXPECT_EQ(round_to(expected.runs_per_over, 4), 6.3167);
  EXPECT_THAT(delivery_windows(expected), ElementsAre(40, 400, 97, 24, 80, 9, 11, 12, 6, 4));
  const std::vector<int> found = outcomes();
  EXPECT_THAT(found, ElementsAreArray(scale({40, 400, 97, 24, 80, 9, 11, 12, 6, 4})));
  EXPECT_EQ(std::count(found.begin(), found.end(), 0), 317);
}

TEST_F(Delivery, ThirdWorkedFigure) {
  match.striker = 2;
  match.non_striker = 1;
  match.batsman_aggression = {5, 1};
  match.settled_meter = {0, 400};
  const expectations expected = expect_delivery(match);
  EXPECT_EQ(expected.balls_per_wicket, 67);
  EXPECT_EQ(round_to(expected.runs_per_over, 4), 3.5667);
  EXPECT_THAT(delivery_windows(expected), ElementsAre(15, 226, 55, 14, 45, 5, 6, 7, 4, 2));
  const std::vector<int> found = outcomes();
  EXPECT_THAT(found, ElementsAreArray(scale({15, 226, 55, 14, 45, 5, 6, 7, 4, 2})));
  EXPECT_EQ(std::count(found.begin(), found.end(), 0), 621);
}

TEST_F(Delivery, TheEndsOfTheUnitAreTheEndsOfTheScale) {
  EXPECT_EQ(outcome_of(0), 7);
  EXPECT_EQ(outcome_of(std::nextafter(1.0, 0.0)), 0);
}

TEST_F(Delivery, OnlyTheSumOfTheConditionsCounts) {
  for (int sum = 4; sum <= 16; ++sum) {
    const int surface = sum >= 13 ? 4 : 1;
    const int bounce = (sum - surface - 1) / 3;
    const int weather = (sum - surface - bounce) / 2;
    const int outfield = sum - surface - bounce - weather;
    const double factor = (7.0 * sum + 180) / 300;
    const double skill = std::nearbyint(40 / factor);
    for (const auto& order : {std::array<int, 4>{0, 1, 2, 3}, std::array<int, 4>{3, 2, 1, 0}}) {
      const std::array<int, 4> four = {surface, bounce, weather, outfield};
      set_conditions(four[order[0]], four[order[1]], four[order[2]], four[order[3]]);
      const expectations expected = expect_delivery(match);
      EXPECT_DOUBLE_EQ(expected.balls_per_wicket, (skill + 36) / 2) << "sum " << sum;
      EXPECT_DOUBLE_EQ(expected.runs_per_over, (4.5 + 40 / skill * 6) / 2) << "sum " << sum;
    }
  }
}

TEST_F(Delivery, TheSkillInTheConditionsIsRoundedHalfToEven) {
  match.batting_xi[1].bat_skill = 11;  // 11 / 0.88 = 12.5
  EXPECT_EQ(expect_delivery(match).balls_per_wicket, (12 + 36) / 2.0);
  EXPECT_EQ(expect_delivery(match).runs_per_over, (4.5 + 11.0 / 12 * 6) / 2);
  match.batting_xi[1].bat_skill = 33;  // 37.5
  EXPECT_EQ(expect_delivery(match).balls_per_wicket, (38 + 36) / 2.0);
}

TEST_F(Delivery, EachBattingAggressionInBothSlots) {
  struct row {
    int aggression;
    double wicket_share;
    double divisor[2];
    double runs;
  };
  const row rows[] = {{1, 0.5, {150, 100}, -1.75},
                      {2, 0.25, {150, 150}, -1},
                      {3, 0, {150, 150}, 0},
                      {4, -0.15, {150, 150}, 0.75},
                      {5, -0.4, {150, 150}, 1}};
  for (const double meter : {0.0, 2.5, 400.0, 915.0}) {
    for (const row& r : rows) {
      for (const int slot : {0, 1}) {
        match.striker = slot == 0 ? 4 : 9;
        match.non_striker = slot == 0 ? 9 : 4;
        match.batsman_aggression[slot] = r.aggression;
        match.batsman_aggression[1 - slot] = 6 - r.aggression;
        match.settled_meter[slot] = meter;
        match.settled_meter[1 - slot] = 77;
        const expectations expected = expect_delivery(match);
        EXPECT_EQ(expected.balls_per_wicket, 40.5 + r.wicket_share * 45 + single(meter / r.divisor[slot]))
            << "aggression " << r.aggression << " slot " << slot << " meter " << meter;
        EXPECT_EQ(expected.runs_per_over, (4.5 + 40.0 / 45 * 6) / 2 + r.runs + single(meter / 1000))
            << "aggression " << r.aggression << " slot " << slot << " meter " << meter;
      }
    }
  }
}

TEST_F(Delivery, TheMeterIsRoundedToSinglePrecision) {
  match.settled_meter = {915, 0};
  const double plain = 40.5 + 915 / 150.0;
  const double rounded = 40.5 + static_cast<double>(6.1F);
  ASSERT_NE(plain, rounded);
  EXPECT_EQ(expect_delivery(match).balls_per_wicket, rounded);
  EXPECT_EQ(expect_delivery(match).runs_per_over, (4.5 + 40.0 / 45 * 6) / 2 + static_cast<double>(0.915F));
}

TEST_F(Delivery, ABattingAggressionOutsideTheRangeAddsNothing) {
  match.settled_meter = {400, 400};
  for (const int aggression : {-1, 0, 6, 7}) {
    match.batsman_aggression = {aggression, 3};
    EXPECT_EQ(expect_delivery(match).balls_per_wicket, 40.5) << aggression;
    EXPECT_EQ(expect_delivery(match).runs_per_over, (4.5 + 40.0 / 45 * 6) / 2) << aggression;
  }
}

TEST_F(Delivery, EachBowlingAggression) {
  struct row {
    int aggression;
    double wicket_share;
    double runs;
  };
  const double base = (4.5 + 40.0 / 45 * 6) / 2;
  for (const row& r :
       {row{1, 0.25, -0.667}, row{2, 0.15, -0.222}, row{3, 0, 0}, row{4, -0.15, 0.222}, row{5, -0.25, 0.667}}) {
    match.bowling_aggression = {r.aggression, 6 - r.aggression};
    EXPECT_EQ(expect_delivery(match).balls_per_wicket, 40.5 + r.wicket_share * 36) << r.aggression;
    EXPECT_EQ(expect_delivery(match).runs_per_over, base + r.runs) << r.aggression;
  }
  for (const int aggression : {-1, 0, 6}) {
    match.bowling_aggression = {aggression, 5};
    EXPECT_EQ(expect_delivery(match).balls_per_wicket, 40.5) << aggression;
    EXPECT_EQ(expect_delivery(match).runs_per_over, base) << aggression;
  }
}

TEST_F(Delivery, TheShareOfTheEconomyRateIsRoundedHalfToEven) {
  rate_bowler(36.0F, 16.0F);
  const double base = (16 + 40.0 / 45 * 6) / 2;
  match.bowling_aggression = {4, 3};
  EXPECT_EQ(expect_delivery(match).runs_per_over, base + 0.062);  // 0.0625
  match.bowling_aggression = {2, 3};
  EXPECT_EQ(expect_delivery(match).runs_per_over, base - 0.062);
  match.bowling_aggression = {5, 3};
  EXPECT_EQ(expect_delivery(match).runs_per_over, base + 0.188);  // 0.1875
  match.bowling_aggression = {1, 3};
  EXPECT_EQ(expect_delivery(match).runs_per_over, base - 0.188);
}

TEST_F(Delivery, TheSlotFollowsThePositionAndNotTheEnd) {
  match.batsman_aggression = {5, 1};
  match.striker = 3;
  match.non_striker = 7;
  EXPECT_EQ(expect_delivery(match).balls_per_wicket, 40.5 - 0.4 * 45);
  match.striker = 7;
  match.non_striker = 3;
  EXPECT_EQ(expect_delivery(match).balls_per_wicket, 40.5 + 0.5 * 45);
}

TEST_F(Delivery, WindowsAreRoundedHalfToEven) {
  expectations expected;
  expected.balls_per_wicket = 80;  // 12.5
  expected.runs_per_over = 2.5;    // leg byes 2.5
  auto windows = delivery_windows(expected);
  EXPECT_EQ(windows[0], 12);
  EXPECT_EQ(windows[8], 2);
  expected.balls_per_wicket = 400;  // 2.5
  expected.runs_per_over = 3.5;
  windows = delivery_windows(expected);
  EXPECT_EQ(windows[0], 2);
  EXPECT_EQ(windows[8], 4);
}

TEST_F(Delivery, TheQuickWayToAnOutcomeIsTheSame) {
  random_source dice;
  dice.use_seed(1);
  for (int i = 0; i < 3000; ++i) {
    // Most of them usual, the others out of all bounds.
    const bool usual = i % 4 != 0;
    const expectations expected{usual ? 1 + 100 * dice.rnd() : 4 * dice.rnd() - 2,
                                usual ? 12 * dice.rnd() : 1000 * dice.rnd() - 500};
    const auto windows = delivery_windows(expected);
    for (int draw = 1; draw <= draw_scale; draw += 1 + i % 7) {
      ASSERT_EQ(classify(draw, expected), classify(draw, windows))
          << expected.balls_per_wicket << " " << expected.runs_per_over << " " << draw;
    }
  }
}

TEST_F(Delivery, EachDeliveryStartsTheGeneratorAnew) {
  chance.use_clock();
  random_source without_reseeding = chance;
  deliver_ball(match, chance);
  without_reseeding.rnd();
  EXPECT_NE(chance.rnd(), without_reseeding.rnd());
}

TEST_F(Delivery, ChangesTheOutcomeAlone) {
  match.settled_meter = {100, 200};
  match.batsman_aggression = {4, 2};
  match.bowling_aggression = {2, 5};
  const auto* const bytes = reinterpret_cast<const unsigned char*>(&match);
  const std::vector<unsigned char> before(bytes, bytes + sizeof match);
  const auto* const field = reinterpret_cast<const unsigned char*>(&match.ball_outcome);
  for (const double drawn : {0.001, 0.3, 0.5, 0.52, 0.999}) {
    outcome_of(drawn);
    for (std::size_t i = 0; i < sizeof match; ++i) {
      if (bytes + i >= field && bytes + i < field + sizeof match.ball_outcome) continue;
      ASSERT_EQ(bytes[i], before[i]) << "byte " << i;
    }
  }
}

}  // namespace
}  // namespace velorin::testing
