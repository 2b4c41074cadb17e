// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/computers_choice.h"

#include <gmock/gmock.h>

#include <optional>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

/// A match of two computer sides with its console open, played step by step.
class ComputersChoice : public ::testing::Test {
 protected:
  ComputersChoice() : in_use_(user_) {
    chance.use_seed(5);
    set_up_sample_match(true, true);
    match.attended = true;
  }
  static void step() {
    if (match.next_step == play_step::between_overs) match.next_step = play_step::over_begins;
    take_step(in_play());
  }
  static bool is_over() { return match.next_step == play_step::closed; }

 private:
  headless_user user_{match};
  front_end_scope in_use_;
};

TEST_F(ComputersChoice, AggressionsAndMenAreThoseThatPlayTakes) {
  begin_play(match);
  int balls = 0;
  int men = 0;
  while (!is_over() && match.first_total == 0) {
    std::optional<computers_choice> batting;
    std::optional<computers_choice> next;
    const std::size_t before = match.deliveries.size();
    // Before the first ball of an over the computer has looked at the bowler of the over before.
    if (match.next_step == play_step::ball_bowled && match.ball_no > 1) {
      batting = computers_batting_aggression(match, match.striker < match.non_striker ? 0 : 1);
      ASSERT_TRUE(batting);
    }
    std::string wanted;
    const bool comes = match.next_step == play_step::next_batsman && match.score_wickets < wickets_of_innings;
    if (comes && (next = computers_next_batsman(match, next_batsman_form::use::next))) {
      wanted = match.batting_xi[static_cast<std::size_t>(next->choice)].name;
      EXPECT_THAT(next->reason, HasSubstr(wanted));
    }
    step();
    if (batting && match.deliveries.size() > before) {
      ++balls;
      EXPECT_EQ(int(match.deliveries.back().batting_aggression), batting->choice);
      EXPECT_THAT(batting->reason, HasSubstr("Aggression " + std::to_string(batting->choice)));
    }
    if (!wanted.empty() && match.first_total == 0) {
      ++men;
      EXPECT_EQ(match.batting_xi[static_cast<std::size_t>(match.higher_batsman())].name, wanted);
    }
  }
  EXPECT_GT(balls, 100);
  EXPECT_GT(men, 2);
}

TEST_F(ComputersChoice, NothingOfTheMatchIsChangedOrDrawn) {
  open_console(in_play());
  match_state before = match;
  const auto draws = chance.draws_used();
  if (match.bowler == 0) return;
  EXPECT_TRUE(computers_bowler(match, bowler_choice_form::use::change));
  EXPECT_TRUE(computers_bowler(match, bowler_choice_form::use::first_opener));
  EXPECT_TRUE(computers_bowler(match, bowler_choice_form::use::second_opener));
  EXPECT_EQ(int(match.bowler), int(before.bowler));
  EXPECT_EQ(int(match.next_bowler), int(before.next_bowler));
  EXPECT_EQ(match.computer_bowls, before.computer_bowls);
  EXPECT_EQ(chance.draws_used(), draws);
}

TEST(ComputersBowler, ADearOneIsChangedAndAGoodOneStays) {
  set_up_sample_match(false, false);
  match.next_step = play_step::between_overs;
  match.striker = 1;
  match.non_striker = 2;
  match.bowler = 8;
  match.next_bowler = 9;
  match.innings_balls = 100;
  match.bowling_card[8].balls = 12;
  match.bowling_card[8].runs = 4;
  match.bowling_card[8].wickets = 2;
  const auto stays = computers_bowler(match, bowler_choice_form::use::change);
  ASSERT_TRUE(stays);
  EXPECT_EQ(stays->choice, 8);
  EXPECT_THAT(stays->reason, HasSubstr("A.Bowl8 stays: his 2.0"));
  match.bowling_card[8].runs = 40;
  match.bowling_card[8].wickets = 0;
  const auto goes = computers_bowler(match, bowler_choice_form::use::change);
  ASSERT_TRUE(goes);
  EXPECT_NE(goes->choice, 8);
  EXPECT_NE(goes->choice, 9);
  EXPECT_THAT(goes->reason, HasSubstr("bowls for A.Bowl8, whose 2.0"));
}

}  // namespace
}  // namespace velorin::testing
