// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <string>

#include "forecast/forecast.h"
#include "forecast/states_of_play.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

std::string told(const forecast_answer& answer) {
  const auto total = [](const total_forecast& of) {
    return std::to_string(of.mean) + " " + std::to_string(of.p10) + " " + std::to_string(of.p50) + " " +
           std::to_string(of.p90);
  };
  return answer.first + " " + std::to_string(answer.win_first) + " " + std::to_string(answer.tie) + " " +
         answer.second + " " + std::to_string(answer.win_second) + " of " + std::to_string(answer.runs) + " without " +
         std::to_string(answer.undecided) + ": " + total(answer.first_total) + ", " + total(answer.second_total);
}

forecast_options of_runs(long runs, std::uint64_t seed = 1, int threads = 1) {
  return {.runs = runs, .seed = seed, .threads = threads, .stop = {}};
}

match_state before_the_toss() {
  set_up_sample_match();
  match_state state = match;
  state.selected = {state.batting_xi, state.bowling_xi};
  state.step = match_step::toss;
  return state;
}

TEST(Forecast, SumsToOneAndHasItsQuantilesInOrder) {
  for (const match_state& state : states_of_a_match(8, 60)) {
    const forecast_answer answer = forecast_rest(state, of_runs(100));
    EXPECT_EQ(answer.runs, 100);
    EXPECT_NEAR(answer.win_first + answer.tie + answer.win_second, 1, 1e-12) << described(state);
    for (const total_forecast& total : {answer.first_total, answer.second_total}) {
      EXPECT_LE(total.p10, total.p50) << described(state);
      EXPECT_LE(total.p50, total.p90) << described(state);
      EXPECT_GE(total.mean, 0);
    }
    if (state.innings_number == 2) {
      EXPECT_EQ(answer.first_total.p10, state.first_total) << "what has been scored stands";
      EXPECT_EQ(answer.first_total.p90, state.first_total);
      EXPECT_GE(answer.second_total.p10, state.score_runs);
    }
  }
}

TEST(Forecast, HasItsQuantilesByCount) {
  result_tally tally;
  for (int total = 1; total <= 10; ++total) {
    tally.add(played_rest{.outcome = total <= 3 ? rest_outcome::first_wins : rest_outcome::second_wins,
                          .first_batted = true,
                          .first = {.runs = total, .wickets = 0, .balls = 0},
                          .second = {.runs = 300, .wickets = 0, .balls = 0},
                          .rate_gain = 0});
  }
  tally.add(played_rest{});
  const forecast_answer answer = tally.answer();
  EXPECT_EQ(answer.runs, 11);
  EXPECT_EQ(answer.undecided, 1);
  EXPECT_DOUBLE_EQ(answer.win_first, 0.3);
  EXPECT_DOUBLE_EQ(answer.win_second, 0.7);
  EXPECT_DOUBLE_EQ(answer.first_total.mean, 5.5);
  EXPECT_EQ(answer.first_total.p10, 1);
  EXPECT_EQ(answer.first_total.p50, 5);
  EXPECT_EQ(answer.first_total.p90, 9);
  EXPECT_EQ(answer.second_total.p50, 300);
}

TEST(Forecast, IsTheSameForAnyNumberOfThreads) {
  for (const match_state& state : states_of_a_match(9, 120)) {
    const std::string alone = told(forecast_rest(state, of_runs(301, 5)));
    EXPECT_EQ(told(forecast_rest(state, of_runs(301, 5, 2))), alone);
    EXPECT_EQ(told(forecast_rest(state, of_runs(301, 5, 7))), alone);
  }
}

TEST(Forecast, FollowsItsSeed) {
  const match_state state = before_the_toss();
  EXPECT_EQ(told(forecast_rest(state, of_runs(200, 1))), told(forecast_rest(state, of_runs(200, 1))));
  EXPECT_NE(told(forecast_rest(state, of_runs(200, 1))), told(forecast_rest(state, of_runs(200, 2))));
}

TEST(Forecast, TossesForTheFirstTeamEveryOtherTime) {
  const match_state state = before_the_toss();
  const match_start start = start_at(state);
  rest_player player;
  int first_batted = 0;
  for (long run = 0; run < 400; ++run) {
    random_source drawn;
    seed_run(drawn, 1, run);
    first_batted += player.play(start, drawn).first_batted ? 1 : 0;
  }
  EXPECT_NEAR(first_batted, 200, 50);
  EXPECT_TRUE(start.toss_open);
  EXPECT_EQ(start.first, "Home");
}

TEST(Forecast, KnowsAnElectionThatHasBeenTold) {
  match_state state = before_the_toss();
  state.computer_bowls = false;
  state.toss.coin_visible = false;
  state.toss.deciding_line = state.team2_name;
  state.toss.bat_enabled = false;
  EXPECT_FALSE(start_at(state).toss_open);
  EXPECT_EQ(start_at(state).batting_first, forecast_side::first) << "the second team can but bowl";
  state.toss.bat_enabled = true;
  EXPECT_TRUE(start_at(state).toss_open) << "a captain still decides";
  state.toss.bowl_enabled = false;
  EXPECT_EQ(start_at(state).batting_first, forecast_side::second);
}

TEST(Forecast, StopsWhereItIsAskedTo) {
  std::stop_source stop;
  stop.request_stop();
  const match_state state = before_the_toss();
  EXPECT_EQ(forecast_rest(state, {.runs = 1'000'000, .seed = 1, .threads = 2, .stop = stop.get_token()}).runs, 0);
}

TEST(Forecast, IsOfAMatchWhoseElevensAreKnown) {
  EXPECT_FALSE(can_be_forecast(match_state()));
  match_state state = before_the_toss();
  EXPECT_TRUE(can_be_forecast(state));
  state.step = match_step::second_selection;
  EXPECT_FALSE(can_be_forecast(state));
}

}  // namespace
}  // namespace velorin::testing
