// SPDX-License-Identifier: GPL-3.0-or-later
// A second opinion on forecasts: the shares of whole matches of the ordinary engine, on other draws.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "forecast/adviser.h"
#include "forecast/forecast.h"
#include "forecast/states_of_play.h"

namespace velorin::testing {
namespace {

#ifdef NDEBUG
constexpr int ordinary_matches = 2'000;
constexpr int states_of_shares = 200;
constexpr int advised_matches = 100'000;
#else
constexpr int ordinary_matches = 200;
constexpr int states_of_shares = 60;
constexpr int advised_matches = 2'000;
#endif

/// The share of matches that the side which bats first wins, played in full on draws of its own.
double share_in_full(const match_state& state, int matches, const std::function<void(match_state&)>& before_ball) {
  int won = 0;
  for (int i = 0; i < matches; ++i) {
    random_source chance;
    chance.use_seed(70'000 + static_cast<std::uint64_t>(i));
    won += played_ordinarily(state, chance, before_ball).rest.outcome == rest_outcome::first_wins ? 1 : 0;
  }
  return static_cast<double>(won) / matches;
}

double error_of(double share, int matches) { return std::sqrt(std::max(share * (1 - share), 1.0 / matches) / matches); }

TEST(ForecastShares, AreThoseOfTheOrdinaryEngine) {
  int states = 0;
  for (std::uint64_t seed = 1; states < states_of_shares; ++seed) {
    const auto kept = states_of_a_match(1000 + seed, 80);
    for (std::size_t i = 0; i < kept.size() && i < 25 && states < states_of_shares; ++i) {
      const forecast_answer told =
          forecast_rest(kept[i], {.runs = ordinary_matches, .seed = 3, .threads = 1, .stop = {}});
      if (told.undecided != 0) continue;
      const double wanted = share_in_full(kept[i], ordinary_matches, [](match_state&) {});
      const double allowed =
          4 * std::hypot(error_of(wanted, ordinary_matches), error_of(told.win_first, ordinary_matches));
      EXPECT_NEAR(told.win_first, wanted, allowed) << described(kept[i]);
      ++states;
    }
  }
}

TEST(ForecastShares, DifferByAChoiceAsFullMatchesDo) {
  const auto kept = states_of_a_match(1, 60);
  const auto wanted_state = std::find_if(kept.begin(), kept.end(), [](const match_state& state) {
    return state.next_step == play_step::ball_bowled || state.next_step == play_step::ball_told;
  });
  ASSERT_NE(wanted_state, kept.end());
  const match_state& state = *wanted_state;
  const int man = state.lower_batsman();
  const bool first_bats = state.innings_number % 2 == 1;
  const double computers = share_in_full(state, advised_matches, [](match_state&) {});
  const std::vector<captains_choice> choices = {{captains_choice::kind::batting_aggression, man, 1},
                                                {captains_choice::kind::batting_aggression, man, 5}};
  const auto told =
      advise(state, advised_side::batting, choices, {.runs = advised_matches, .seed = 3, .threads = 1, .stop = {}});
  ASSERT_EQ(told.size(), 3U);
  for (const std::size_t i : {1U, 2U}) {
    const double chosen = share_in_full(state, advised_matches, [&](match_state& played) {
      if (played.innings_number != state.innings_number) return;
      if (played.lower_batsman() == man) played.batsman_aggression[0] = choices[i - 1].level;
      if (played.higher_batsman() == man) played.batsman_aggression[1] = choices[i - 1].level;
    });
    const double difference = first_bats ? chosen - computers : computers - chosen;
    const double error =
        std::hypot(told[i].standard_error, error_of(chosen, advised_matches), error_of(computers, advised_matches));
    EXPECT_NEAR(told[i].difference, difference, 4 * error) << "aggression " << choices[i - 1].level;
  }
}

}  // namespace
}  // namespace velorin::testing
