// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <array>
#include <cstddef>
#include <numeric>
#include <optional>
#include <vector>

#include "engine/delivery_model.h"
#include "engine/play_steps.h"
#include "forecast/forecast.h"
#include "forecast/states_of_play.h"
#include "model/random.h"

namespace velorin::testing {
namespace {

std::array<double, 12> by_outcome(const next_ball& odds) {
  std::array<double, 12> chances{};
  for (std::size_t runs = 0; runs < odds.runs.size(); ++runs) chances[runs] = odds.runs[runs];
  chances[wicket] = odds.wicket;
  chances[no_ball] = odds.no_ball;
  chances[wide_ball] = odds.wide;
  chances[leg_byes] = odds.leg_byes;
  chances[byes] = odds.byes;
  return chances;
}

TEST(NextBall, HasTheChancesOfTheThousandDraws) {
  int balls = 0;
  for (const match_state& state : states_of_a_match(3, 3)) {
    const auto odds = odds_of_next_ball(state);
    if (!odds) continue;
    ++balls;
    const auto windows = delivery_windows(expect_delivery(state));
    std::array<double, 12> counted{};
    for (int draw = 1; draw <= draw_scale; ++draw) counted[static_cast<std::size_t>(classify(draw, windows))] += 1;
    for (double& times : counted) times /= draw_scale;
    const auto chances = by_outcome(*odds);
    EXPECT_EQ(chances, counted) << described(state);
    EXPECT_NEAR(std::accumulate(chances.begin(), chances.end(), 0.0), 1, 1e-12);
  }
  EXPECT_GT(balls, 10);
}

TEST(NextBall, IsNotToldWhereItsMenAreNotKnown) {
  int bowled_out = 0;
  for (const std::uint64_t seed : {4U, 5U, 6U}) {
    for (const match_state& state : states_of_a_match(seed, 1)) {
      const bool between = state.next_step == play_step::between_overs || state.next_step == play_step::over_begins ||
                           state.next_step == play_step::over_told;
      const bool quota_bowled = state.bowling_card[state.bowler].balls >= balls_of_quota;
      if (between && quota_bowled) ++bowled_out;
      const bool known = state.next_step == play_step::ball_bowled || (between && !quota_bowled);
      ASSERT_EQ(odds_of_next_ball(state).has_value(), known) << described(state);
    }
  }
  EXPECT_GT(bowled_out, 0);
  EXPECT_FALSE(odds_of_next_ball(match_state()));
}

TEST(NextBall, OfAStartIsThatOfTheBallThatTheOrdinaryEngineBowls) {
  int told = 0;
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    for (const match_state& state : states_of_a_match(seed, 6)) {
      std::optional<next_ball> wanted;
      random_source chance;
      chance.use_seed(seed);
      played_ordinarily(state, chance, [&](match_state& before) {
        if (!wanted) wanted = odds_of_next_ball(before);
      });
      const auto odds = odds_of_next_ball(start_at(state));
      ASSERT_EQ(odds.has_value(), wanted.has_value()) << described(state);
      if (!wanted) continue;
      ++told;
      EXPECT_EQ(by_outcome(*odds), by_outcome(*wanted)) << described(state);
    }
  }
  EXPECT_GT(told, 300);
}

TEST(NextBall, OfAStartThatIsOverIsNone) {
  int over = 0;
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    for (const match_state& state : states_of_a_match(seed, 1000)) {
      if (state.next_step != play_step::match_reported) continue;
      ++over;
      EXPECT_FALSE(odds_of_next_ball(start_at(state))) << described(state);
    }
  }
  EXPECT_GT(over, 0);
}

TEST(NextBall, BeforeTheTossIsTheMeanOfBothSides) {
  const match_state begun = states_of_a_match(7, 1).front();
  const match_start open = start_before_toss("A", "B", begun.batting_xi, begun.bowling_xi, begun);
  const auto mean = odds_of_next_ball(open);
  const auto first = odds_of_next_ball(with_toss_decided(open, forecast_side::first));
  const auto second = odds_of_next_ball(with_toss_decided(open, forecast_side::second));
  ASSERT_TRUE(mean && first && second);
  for (std::size_t i = 0; i < by_outcome(*mean).size(); ++i) {
    EXPECT_NEAR(by_outcome(*mean)[i], (by_outcome(*first)[i] + by_outcome(*second)[i]) / 2, 1e-12);
  }
}

}  // namespace
}  // namespace velorin::testing
