// SPDX-License-Identifier: GPL-3.0-or-later
// The delivery model beyond ordinary ratings: full scales, empty and negative windows, divisions by zero.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "engine/delivery_model.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class DeliveryLimits : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    match.striker = 1;
    match.non_striker = 2;
    match.bowler = 8;
    match.batting_xi[1].bat_skill = 40;
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

  static int outcome_of(int draw) {
    script_draws({draw_for(draw)});
    deliver_ball(match, chance);
    return match.ball_outcome;
  }

  /// Lengths of the runs of equal outcomes along the scale, as pairs of outcome and length.
  static std::vector<std::pair<int, int>> stretches() {
    std::vector<std::pair<int, int>> found;
    for (int draw = 1; draw <= 1000; ++draw) {
      const int outcome = outcome_of(draw);
      if (found.empty() || found.back().first != outcome) found.emplace_back(outcome, 0);
      ++found.back().second;
    }
    return found;
  }

  /// Expects that a delivery fails for want of this rating, and leaves the last outcome alone.
  static void expect_division(const std::string& field, const std::string& player) {
    match.ball_outcome = 4;
    script_draws({0.5});
    try {
      deliver_ball(match, chance);
      FAIL() << "no failure on " << field;
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::division);
      EXPECT_EQ(error.what(), "Division by zero in the delivery model (field " + field + ", at \"" + player + "\")");
      EXPECT_EQ(error.place().field, field);
      EXPECT_EQ(error.place().player, player);
    }
    EXPECT_EQ(match.ball_outcome, 4);
  }
};

using stretch = std::pair<int, int>;

TEST_F(DeliveryLimits, WindowsPastTheScaleLeaveNoDotBall) {
  rate_bowler(36.0F, 14.0F);
  // 9.6667 an over: windows 25, 612, 148, 37, 122, 14, 16, 18, 10, 6 add up to 1008; the last are cut off at 1000.
  EXPECT_THAT(delivery_windows(expect_delivery(match)), ElementsAre(25, 612, 148, 37, 122, 14, 16, 18, 10, 6));
  EXPECT_THAT(stretches(),
              ElementsAre(stretch{7, 25}, stretch{1, 612}, stretch{2, 148}, stretch{3, 37}, stretch{4, 122},
                          stretch{6, 14}, stretch{8, 16}, stretch{9, 18}, stretch{10, 8}));
}

TEST_F(DeliveryLimits, WindowsFarPastTheScaleLeaveTheLaterOnesOut) {
  rate_bowler(36.0F, 40.0F);
  // 22.6667 an over: 25 for the wicket, 1435 for one run.
  EXPECT_THAT(stretches(), ElementsAre(stretch{7, 25}, stretch{1, 975}));
}

TEST_F(DeliveryLimits, ANegativeRateMakesEveryWindowButTheWicketsEmpty) {
  rate_bowler(36.0F, 0.5F);
  match.bowling_aggression = {1, 3};  // 2.9167 less 6
  ASSERT_LT(expect_delivery(match).runs_per_over, -3);
  EXPECT_THAT(stretches(), ElementsAre(stretch{7, 20}, stretch{0, 980}));
}

TEST_F(DeliveryLimits, ANegativeWicketWindowPullsTheOthersDown) {
  rate_bowler(-20.0F, 4.5F);
  match.batsman_aggression = {5, 3};  // 12.5 less 18: a window of -182; 5.9167 an over
  ASSERT_EQ(expect_delivery(match).balls_per_wicket, -5.5);
  EXPECT_THAT(delivery_windows(expect_delivery(match)), ElementsAre(-182, 375, 91, 23, 75, 9, 10, 11, 6, 4));
  EXPECT_THAT(stretches(),
              ElementsAre(stretch{1, 375 - 182}, stretch{2, 91}, stretch{3, 23}, stretch{4, 75}, stretch{6, 9},
                          stretch{8, 10}, stretch{9, 11}, stretch{10, 6}, stretch{11, 4}, stretch{0, 1000 - 422}));
}

TEST_F(DeliveryLimits, ANegativeWindowInTheMiddlePullsTheLaterOnesDown) {
  const std::array<double, 10> windows = {20, 100, -30, 50, 0, 10, 0, 0, 0, 5};
  std::array<int, 12> found{};
  for (int draw = 1; draw <= 1000; ++draw) ++found[static_cast<std::size_t>(classify(draw, windows))];
  // The three-run window covers 91 to 140, of which 91 to 120 are the one-run window's already.
  EXPECT_THAT(found, ElementsAre(845, 100, 0, 20, 0, 0, 10, 20, 0, 0, 0, 5));
  EXPECT_EQ(classify(120, windows), 1);
  EXPECT_EQ(classify(121, windows), 3);
  EXPECT_EQ(classify(140, windows), 3);
  EXPECT_EQ(classify(141, windows), 6);
}

TEST_F(DeliveryLimits, AWicketWindowOfZeroStartsTheOneRunWindowAtOne) {
  rate_bowler(5000.0F, 4.5F);
  EXPECT_EQ(delivery_windows(expect_delivery(match))[0], 0);
  EXPECT_EQ(outcome_of(1), 1);
  EXPECT_EQ(outcome_of(311), 1);
  EXPECT_EQ(outcome_of(312), 2);
  rate_bowler(3955.0F, 4.5F);  // 2000 balls a wicket: half a place, which goes to 0
  ASSERT_EQ(expect_delivery(match).balls_per_wicket, 2000);
  EXPECT_EQ(delivery_windows(expect_delivery(match))[0], 0);
  rate_bowler(3953.0F, 4.5F);
  EXPECT_EQ(delivery_windows(expect_delivery(match))[0], 1);
  EXPECT_EQ(outcome_of(1), 7);
  EXPECT_EQ(outcome_of(2), 1);
}

TEST_F(DeliveryLimits, EveryDrawOfEveryOrdinarySituationHasAnOutcome) {
  for (const int skill : {1, 5, 20, 60}) {
    for (int aggressions = 0; aggressions < 25; ++aggressions) {
      match.batting_xi[1].bat_skill = skill;
      match.batsman_aggression = {aggressions / 5 + 1, 3};
      match.bowling_aggression = {aggressions % 5 + 1, 3};
      const auto windows = delivery_windows(expect_delivery(match));
      for (int draw = 1; draw <= 1000; ++draw) {
        const int outcome = classify(draw, windows);
        ASSERT_TRUE(outcome >= 0 && outcome <= 11 && outcome != 5) << "draw " << draw;
      }
    }
  }
}

TEST_F(DeliveryLimits, ABattingSkillOfZeroFails) {
  match.batting_xi[1].bat_skill = 0;
  expect_division("bat_skill", "H.Bat1");
}

TEST_F(DeliveryLimits, AnEconomyRateOfZeroFailsUnlessTheAggressionIsThree) {
  rate_bowler(36.0F, 0.0F);
  for (const int aggression : {1, 2, 4, 5}) {
    match.bowling_aggression = {aggression, 3};
    expect_division("econ", "A.Bowl8");
  }
  match.bowling_aggression = {3, 1};
  EXPECT_EQ(outcome_of(1), 7);
}

TEST_F(DeliveryLimits, NoBallsAWicketFail) {
  rate_bowler(-45.0F, 4.5F);
  expect_division("balls_per_wicket", "H.Bat1");
}

TEST_F(DeliveryLimits, AFailureTakesItsDrawAllTheSame) {
  match.batting_xi[1].bat_skill = 0;
  script_draws({0.5, 0.5});
  EXPECT_THROW(deliver_ball(match, chance), run_time_error);
  EXPECT_EQ(chance.draws_used(), 1U);
}

TEST_F(DeliveryLimits, ExpectationsAndWindowsDrawNothing) {
  script_draws({});
  delivery_windows(expect_delivery(match));
  EXPECT_EQ(chance.draws_used(), 0U);
}

}  // namespace
}  // namespace velorin::testing
