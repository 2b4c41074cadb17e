// SPDX-License-Identifier: GPL-3.0-or-later
// The rest of a match played quickly is, draw for draw, the one that the engine plays.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <string>

#include "engine/over_play.h"
#include "forecast/match_start.h"
#include "forecast/rest_player.h"
#include "forecast/states_of_play.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

/// All of a rest in one line.
std::string told(const played_rest& rest) {
  if (rest.outcome == rest_outcome::undecided) return "undecided";
  const auto score = [](const innings_score& innings) {
    return std::to_string(innings.runs) + "/" + std::to_string(innings.wickets) + " in " +
           std::to_string(innings.balls);
  };
  return std::to_string(static_cast<int>(rest.outcome)) + ": " + score(rest.first) + ", " + score(rest.second) +
         (rest.first_batted ? ", " : " reversed, ") + std::to_string(rest.rate_gain);
}

random_source seeded(std::uint64_t seed) {
  random_source chance;
  chance.use_seed(seed);
  return chance;
}

// The woven-in checks of a sanitizer take their time.
#ifdef VELORIN_SANITIZED
constexpr std::uint64_t seeds = 6;
#else
constexpr std::uint64_t seeds = 60;
#endif

class RestPlayer : public ::testing::Test {
 protected:
  rest_player player_;
};

TEST_F(RestPlayer, EndsEveryMatchAsTheEngineDoes) {
  std::map<rest_outcome, int> outcomes;
  int states = 0;
  int nine_down = 0;
  int one_to_win = 0;
  int last_balls = 0;
  for (std::uint64_t seed = 1; seed <= seeds; ++seed) {
    for (const match_state& state : states_of_a_match(100 * seed, 40)) {
      const ordinary_end wanted = played_ordinarily(state, seeded(seed + 7));
      random_source chance = seeded(seed + 7);
      const played_rest rest = player_.play(start_at(state), chance);
      ASSERT_EQ(told(rest), told(wanted.rest)) << described(state) << ", seed " << seed;
      if (wanted.rest.outcome != rest_outcome::undecided) {
        ASSERT_EQ(chance.draws_used(), wanted.draws) << described(state) << ", seed " << seed;
      }
      ++outcomes[rest.outcome];
      ++states;
      nine_down += state.score_wickets == 9 ? 1 : 0;
      one_to_win += state.first_total != 0 && state.first_total == state.score_runs ? 1 : 0;
      last_balls += state.innings_balls >= balls_of_innings - 1 ? 1 : 0;
    }
  }
  EXPECT_GT(states, 30 * static_cast<int>(seeds));
  if (seeds < 60) return;
  EXPECT_GT(nine_down, 50);
  EXPECT_GT(one_to_win, 5);
  EXPECT_GT(last_balls, 20);
  EXPECT_GT(outcomes[rest_outcome::tie], 3);
  EXPECT_GT(outcomes[rest_outcome::undecided], 0) << "an innings of 0 ends an unattended match";
}

TEST_F(RestPlayer, BeginsAMatchAsTheConsoleDoes) {
  for (std::uint64_t seed = 1; seed <= std::min<std::uint64_t>(50, seeds); ++seed) {
    set_up_sample_match(seed % 2 == 0, seed % 3 == 0);
    match.step = match_step::play;
    random_source chance = seeded(seed);
    const played_rest rest = player_.play(start_at(match), chance);
    match_state opened = match;
    begin_play(opened);
    const ordinary_end wanted = played_ordinarily(opened, seeded(seed));
    ASSERT_EQ(told(rest), told(wanted.rest)) << "seed " << seed;
    EXPECT_EQ(chance.draws_used(), wanted.draws);
  }
}

TEST_F(RestPlayer, FollowsTheOrdersOfAnAggression) {
  int differing = 0;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    for (const match_state& state : states_of_a_match(100 * seed + 50, 60)) {
      standing_orders orders;
      orders.innings = state.innings_number;
      orders.last_over = state.over_no + 10;
      orders.batting[static_cast<std::size_t>(std::max(state.lower_batsman(), 1))] = 1 + static_cast<int>(seed % 5);
      orders.bowling[static_cast<std::size_t>(std::max(int(state.bowler), 1))] = 5 - static_cast<int>(seed % 5);
      const ordinary_end wanted = played_ordinarily(state, seeded(seed), [&](match_state& played) {
        if (played.innings_number != orders.innings || played.over_no > orders.last_over) return;
        const int bowls = orders.bowling[static_cast<std::size_t>(played.bowler)];
        if (bowls != 0) played.bowling_aggression[0] = bowls;
        const int lower = orders.batting[static_cast<std::size_t>(played.lower_batsman())];
        if (lower != 0) played.batsman_aggression[0] = lower;
        const int higher = orders.batting[static_cast<std::size_t>(played.higher_batsman())];
        if (higher != 0) played.batsman_aggression[1] = higher;
      });
      random_source chance = seeded(seed);
      const played_rest rest = player_.play(start_at(state), chance, &orders);
      ASSERT_EQ(told(rest), told(wanted.rest)) << described(state) << ", seed " << seed;
      random_source again = seeded(seed);
      differing += told(player_.play(start_at(state), again)) != told(rest) ? 1 : 0;
    }
  }
  EXPECT_GT(differing, 100);
}

TEST_F(RestPlayer, PlaysTheSameAfterAnyOtherMatch) {
  const std::vector<match_state> states = states_of_a_match(1, 100);
  const auto played = [](rest_player& player, const match_state& state) {
    random_source chance = seeded(5);
    return told(player.play(start_at(state), chance));
  };
  for (const match_state& state : states) {
    rest_player fresh;
    EXPECT_EQ(played(player_, state), played(fresh, state)) << described(state);
  }
}

TEST_F(RestPlayer, LosesNothingButTheMatchWhereItBreaksOff) {
  set_up_sample_match();
  match.step = match_step::play;
  match.batting_xi[1].bat_skill = 0;
  random_source chance = seeded(1);
  EXPECT_EQ(player_.play(start_at(match), chance).outcome, rest_outcome::undecided);
  match.batting_xi[1].bat_skill = 40;
  EXPECT_NE(player_.play(start_at(match), chance).outcome, rest_outcome::undecided);
}

}  // namespace
}  // namespace velorin::testing
