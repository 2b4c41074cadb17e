// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <vector>

#include "forecast/adviser.h"
#include "forecast/computers_choice.h"
#include "forecast/rest_player.h"
#include "forecast/states_of_play.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using kind = captains_choice::kind;

const forecast_options few = {.runs = 60, .seed = 1, .threads = 1, .stop = {}};

TEST(Adviser, BeginsWithTheComputersOwnChoice) {
  for (const match_state& state : states_of_a_match(1, 100)) {
    for (const advised_side side : {advised_side::batting, advised_side::bowling}) {
      const auto choices = choices_at_hand(state, side);
      const auto told = advise(state, side, choices, few);
      ASSERT_EQ(told.size(), choices.size() + 1) << described(state) << ": all that is at hand can be made";
      EXPECT_EQ(told[0].choice.what, kind::computers);
      EXPECT_EQ(told[0].difference, 0);
      EXPECT_EQ(told[0].standard_error, 0);
      const forecast_answer answer = forecast_rest(state, few);
      const bool first = (side == advised_side::batting) == (state.innings_number % 2 == 1);
      // Where another bowler is wanted, a forecast takes the first, and the adviser whom the computer would name.
      const bool names = state.next_step == play_step::opening_bowlers || state.next_step == play_step::quota_told ||
                         state.next_step == play_step::quota_choice;
      if (answer.undecided == 0 && !names) {
        EXPECT_DOUBLE_EQ(told[0].win, first ? answer.win_first : answer.win_second) << described(state);
      }
      for (const advice& each : told) EXPECT_NEAR(each.win, told[0].win + each.difference, 1e-12);
    }
  }
}

TEST(Adviser, LeavesOutWhatCannotBeChosen) {
  set_up_sample_match();
  match.selected = {match.batting_xi, match.bowling_xi};
  match.step = match_step::toss;
  EXPECT_EQ(advise(match, advised_side::batting, {{kind::bowler, 3}, {kind::batting_aggression, 1, 3}}, few).size(),
            1U);
  EXPECT_EQ(choices_at_hand(match, advised_side::team_chosen_first).size(), 2U);
  const auto told = advise(match, advised_side::team_chosen_first, {{kind::bat_first}, {kind::bowl_first}}, few);
  ASSERT_EQ(told.size(), 3U);
  EXPECT_GE(std::max(told[1].win, told[2].win), told[0].win) << "the coin takes the worse of the two now and then";
}

TEST(Adviser, TakesTheMenWhoCanCome) {
  int asked = 0;
  for (const match_state& state : states_of_a_match(2, 3)) {
    if (state.next_step != play_step::next_batsman) continue;
    const auto choices = choices_at_hand(state, advised_side::batting);
    if (choices.empty()) continue;
    ++asked;
    for (const captains_choice& choice : choices) {
      const match_state chosen = with_choice(state, choice);
      EXPECT_EQ(chosen.batting_xi[static_cast<std::size_t>(chosen.striker)].name,
                state.batting_xi[static_cast<std::size_t>(choice.position)].name);
    }
    EXPECT_EQ(advise(state, advised_side::batting, choices, few).size(), choices.size() + 1);
  }
  EXPECT_GT(asked, 1);
}

TEST(Adviser, TakesTheMenWhereACaptainMustChoose) {
  std::map<play_step, int> asked;
  for (std::uint64_t seed = 1; seed < 12; ++seed) {
    for (const match_state& state : states_of_a_match(seed, 1)) {
      const play_step step = state.next_step;
      const bool bowls = step == play_step::opening_bowlers || step == play_step::second_opening_bowler ||
                         step == play_step::quota_choice;
      const bool bats = step == play_step::openers || step == play_step::second_opener;
      if ((!bowls && !bats) || (bats ? state.computer_bats : state.computer_bowls)) continue;
      auto choices = choices_at_hand(state, bowls ? advised_side::bowling : advised_side::batting);
      std::erase_if(choices, [&](const captains_choice& choice) {
        return choice.what != (bowls ? kind::bowler : kind::next_batsman);
      });
      ASSERT_FALSE(choices.empty()) << described(state);
      ++asked[step];
      const captains_choice last = choices.back();
      // The ball that comes next is the chosen man's own.
      rest_player player;
      random_source chance;
      seed_run(chance, 1, 1);
      const match_state* played = player.play_to_ball(start_at(with_choice(state, last)), chance);
      ASSERT_NE(played, nullptr) << described(state);
      if (bats) {
        EXPECT_EQ(played->batting_xi[step == play_step::openers ? 1 : 2].bat_skill,
                  state.batting_xi[last.position].bat_skill);
      } else {
        EXPECT_EQ(step == play_step::second_opening_bowler ? played->next_bowler : played->bowler, last.position);
      }
      if (asked[step] > 1) continue;
      const auto told = advise(state, bowls ? advised_side::bowling : advised_side::batting, choices, few);
      ASSERT_EQ(told.size(), choices.size() + 1);
      // The man whom the computer would name is worth what leaving it to the computer is.
      const auto own =
          bowls ? computers_bowler(state, step == play_step::opening_bowlers ? bowler_choice_form::use::first_opener
                                          : step == play_step::quota_choice  ? bowler_choice_form::use::quota
                                                                             : bowler_choice_form::use::second_opener)
                : computers_next_batsman(state, step == play_step::openers ? next_batsman_form::use::first_opener
                                                                           : next_batsman_form::use::second_opener);
      ASSERT_TRUE(own);
      const auto same = std::find_if(told.begin(), told.end(),
                                     [&](const advice& each) { return each.choice.position == own->choice; });
      ASSERT_NE(same, told.end()) << described(state);
      EXPECT_EQ(same->difference, 0) << described(state);
    }
  }
  EXPECT_EQ(asked.size(), 5U);
}

TEST(Adviser, TellsTheSameForAnyNumberOfThreads) {
  for (const match_state& state : states_of_a_match(5, 200)) {
    const auto choices = choices_at_hand(state, advised_side::bowling);
    const auto alone = advise(state, advised_side::bowling, choices, {.runs = 25, .seed = 2, .threads = 1, .stop = {}});
    const auto several =
        advise(state, advised_side::bowling, choices, {.runs = 25, .seed = 2, .threads = 3, .stop = {}});
    ASSERT_EQ(alone.size(), several.size());
    for (std::size_t i = 0; i < alone.size(); ++i) {
      EXPECT_EQ(alone[i].win, several[i].win);
      EXPECT_EQ(alone[i].standard_error, several[i].standard_error);
    }
  }
}

}  // namespace
}  // namespace velorin::testing
