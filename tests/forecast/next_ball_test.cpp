// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <array>
#include <numeric>

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
  for (const match_state& state : states_of_a_match(4, 1)) {
    const bool known = state.next_step == play_step::ball_bowled || state.next_step == play_step::between_overs ||
                       state.next_step == play_step::over_begins || state.next_step == play_step::over_told;
    ASSERT_EQ(odds_of_next_ball(state).has_value(), known) << described(state);
  }
  EXPECT_FALSE(odds_of_next_ball(match_state()));
}

}  // namespace
}  // namespace velorin::testing
