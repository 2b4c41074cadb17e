// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/headless_user.h"

#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using slots = std::array<int, 2>;

constexpr double one = 0.0;
constexpr double two = 0.5;

class HeadlessUser : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }

  headless_user user_{match};
};

// The conditions.

TEST_F(HeadlessUser, TakesTheConditionsAsTheyCome) {
  match.ground.pitch_bounce = 1;
  match.ground.pitch_surface = 2;
  script_draws({0.9, 0.7, 0, 0});
  conditions_form form(in_play());
  form.open();
  user_.show(form);
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.weather, 4);
  EXPECT_EQ(match.outfield, 3);
  EXPECT_EQ(match.ground.pitch_surface, 1);
  EXPECT_EQ(match.ground.pitch_bounce, 2);
}

TEST_F(HeadlessUser, MovesTheSlidersWhereConditionsAreGiven) {
  script_draws({0.9, 0.7, 0, 0});
  conditions_form form(in_play());
  form.open();
  user_.conditions = {{1, 2, 3, 4}};
  user_.show(form);
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(chance.draws_used(), 4U) << "the draws of the screen happen all the same";
  EXPECT_EQ(match.weather, 1);
  EXPECT_EQ(match.ground.pitch_surface, 2);
  EXPECT_EQ(match.ground.pitch_bounce, 3);
  EXPECT_EQ(match.outfield, 4);
}

// The toss.

TEST_F(HeadlessUser, CallsAndBats) {
  for (const double coin : {one, two}) {
    set_up_sample_match(false, false);
    script_draws({coin});
    toss_form form(in_play());
    form.open();
    user_.show(form);
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(form.coin_visible);
    EXPECT_EQ(match.team1_name, coin == one ? "Home" : "Away") << "the winner bats";
  }
}

TEST_F(HeadlessUser, PressesTheButtonThatAComputerLeaves) {
  for (const double election : {one, two}) {
    set_up_sample_match(false, true);
    script_draws({two, election});
    toss_form form(in_play());
    form.open();
    user_.show(form);
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(match.team1_name, election == one ? "Home" : "Away");
  }
}

TEST_F(HeadlessUser, DoesNotCallWhereTheCoinHasFallen) {
  for (const double election : {one, two}) {
    set_up_sample_match(true, false);
    script_draws({one, election});
    toss_form form(in_play());
    form.open_decided();
    user_.show(form);
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(chance.draws_used(), 2U);
    EXPECT_EQ(match.team1_name, election == one ? "Away" : "Home");
  }
}

// The captain's dialogs.

TEST_F(HeadlessUser, SendsInTheFirstManWhoIsFree) {
  match.striker = 2;
  match.non_striker = 4;
  match.batsman_aggression = {1, 5};
  next_batsman_form form(match, next_batsman_form::use::next);
  user_.show(form);
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(form.chosen, 5);
  for (int i = 1; i <= 11; ++i) EXPECT_EQ(match.batting_xi[i].name, "H.Bat" + std::to_string(i));
  EXPECT_EQ(match.batsman_aggression, (slots{5, 3})) << "the slider is left at 3";
}

TEST_F(HeadlessUser, OpensWithTheFirstTwoBatsmen) {
  next_batsman_form first(match, next_batsman_form::use::first_opener);
  user_.show(first);
  EXPECT_EQ(first.chosen, 1);
  match.striker = 1;
  next_batsman_form second(match, next_batsman_form::use::second_opener);
  user_.show(second);
  EXPECT_EQ(second.chosen, 2);
  EXPECT_EQ(match.batsman_aggression, (slots{3, 3}));
}

TEST_F(HeadlessUser, OpensWithTheFirstTwoWhoMayBowl) {
  match.bowling_xi[1].is_keeper = flag_true;
  bowler_choice_form first(match, bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  user_.show(first);
  EXPECT_TRUE(first.closed);
  EXPECT_EQ(match.bowler, 2);
  bowler_choice_form second(match, bowler_choice_form::use::second_opener, "Select 2nd Opening Bowler");
  user_.show(second);
  EXPECT_EQ(match.next_bowler, 3);
  EXPECT_EQ(match.bowler, 2);
}

TEST_F(HeadlessUser, ChangesToTheFirstManWithBallsLeft) {
  match.bowler = 1;
  match.next_bowler = 3;
  match.bowling_card[1].balls = 60;
  match.bowling_card[2].balls = 61;
  match.bowling_card[4].balls = 60;
  match.bowling_card[5].balls = 59;
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  user_.show(form);
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.bowler, 5);
  EXPECT_EQ(match.next_bowler, 3);
}

TEST_F(HeadlessUser, MayKeepTheBowlerWhoIsFirst) {
  match.bowler = 1;
  match.next_bowler = 2;
  match.bowling_card[1].balls = 54;
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  user_.show(form);
  EXPECT_EQ(match.bowler, 1);
}

TEST_F(HeadlessUser, WithNobodyLeftToBowlTheSearchIsEndless) {
  match.bowler = 1;
  match.next_bowler = 2;
  for (int i = 1; i <= 11; ++i) match.bowling_card[i].balls = 60;
  match.bowling_card[2].balls = 0;
  match.bowling_card[7].balls = 0;  // the keeper
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  try {
    user_.show(form);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::endless);
    EXPECT_EQ(error.place().player, "Away");
  }
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(match.bowler, 1);
}

TEST_F(HeadlessUser, LeavesAnAggressionAsItIs) {
  match.batsman_aggression = {4, 2};
  aggression_form form = aggression_form::of_batsman(match, 0);
  user_.show(form);
  EXPECT_EQ(match.batsman_aggression, (slots{4, 2}));
}

TEST_F(HeadlessUser, PressesTheOverButtonUntilTheConsoleCloses) {
  front_end_scope shown(user_);
  chance.use_seed(3);
  open_console(in_play());
  ASSERT_TRUE(match.console_open);
  console_form console(in_play());
  user_.show(console);
  EXPECT_TRUE(console.closed());
  EXPECT_NE(match.result_margin, "");
  EXPECT_EQ(match.team1_name, "") << "the match is over and reset";
}

}  // namespace
}  // namespace velorin::testing
