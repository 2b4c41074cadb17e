// SPDX-License-Identifier: GPL-3.0-or-later
// The reset of the match: what it clears and what it leaves.
#include "engine/match_reset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "model/random.h"
#include "model/stands.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Reset : public match_test {
 protected:
  /// A match in its second innings, and something in every field that the reset clears.
  void fill() {
    open(false, true);
    skip_to_over(49);
    play(times(11, hit(6)) + std::vector{hit(4)});
    play({hit(4), out(), off_the_pad(byes, 1), off_the_pad(leg_byes, 2), hit(wide_ball), hit(no_ball)});
    match.innings_total = 1;
    match.innings_wickets = 1;
    match.innings_over_flag = true;
    match.maiden_flag = true;
    match.next_batsman_slot = 4;
    match.team_count = 10;
    match.team_list[1] = "Home";
    match.team_list[20] = "Away";
    match.squads[0][20].name = "H.Squad";
    match.squads[1][1].name = "A.Squad";
    match.selected[0][11].name = "H.Chosen";
    match.selected[1][1].name = "A.Chosen";
    match.first_team_done = true;
    match.elevens_exchanged = true;
    match.elevens_unsaved = true;
    match.exchange_tried = true;
    match.step = match_step::play;
    match.chosen = {{{"Home", 2}, {"Away", 21}}};
    match.conditions_drawn = {{4, 3, 2, 1}, 30, 80};
    match.toss_call = "Home have taken Heads";
    match.toss = {"Home have won the toss.", "Home", "Away", false, false, false};
    match.elevens_before = {{{{true, "bytes"}}, {{false, ""}}}};
    match.result_before = match_result();
    for (auto* list : {&match.fifty_list, &match.hundred_list, &match.five_wicket_list}) {
      (*list)[1] = "first";
      (*list)[22] = "last";
    }
    match.century_and_half_list[10] = "last";
    match.double_century_list[10] = "last";
    for (auto* list : {&match.stand50_list, &match.stand100_list, &match.stand150_list, &match.stand200_list,
                       &match.stand250_list, &match.stand300_list}) {
      (*list)[20] = "last";
    }
    match.last_stand_closed = true;
    match.falls_shown = 3;
    match.first_falls_shown = 10;
  }
};

TEST_F(Reset, SidesAndPosition) {
  fill();
  reset_match(match);
  EXPECT_EQ(match.team1_name, "");
  EXPECT_EQ(match.team2_name, "");
  EXPECT_TRUE(match.computer_bats);
  EXPECT_TRUE(match.computer_bowls);
  EXPECT_EQ(match.over_no, 0);
  EXPECT_EQ(match.bowler, 0);
  EXPECT_EQ(match.next_bowler, 0);
  EXPECT_EQ(match.striker, 0);
  EXPECT_EQ(match.non_striker, 0);
  EXPECT_EQ(match.next_batsman_slot, 0);
  EXPECT_EQ(match.ball_outcome, 0);
  EXPECT_FALSE(match.maiden_flag);
  EXPECT_FALSE(match.innings_over_flag);
  EXPECT_EQ(match.clock_minutes, 0);
}

TEST_F(Reset, Totals) {
  fill();
  reset_match(match);
  for (const integer& total :
       {match.innings_total, match.innings_balls, match.innings_wickets, match.innings_no_balls, match.innings_wides,
        match.innings_byes, match.innings_leg_byes, match.first_total, match.first_balls, match.first_wickets,
        match.first_no_balls, match.first_wides, match.first_byes, match.first_leg_byes}) {
    EXPECT_EQ(total, 0);
  }
}

TEST_F(Reset, ElevensCardsAndPool) {
  fill();
  ASSERT_NE(match.bowler_pool[11].name, "");
  reset_match(match);
  for (int i = 0; i <= 11; ++i) {
    for (const eleven* men : {&match.batting_xi, &match.bowling_xi, &match.selected[0], &match.selected[1]}) {
      EXPECT_EQ((*men)[i].name, "");
      EXPECT_EQ((*men)[i].bat_skill, 0);
      EXPECT_EQ((*men)[i].bowl_sr, 0);
      EXPECT_EQ((*men)[i].econ, 0);
      EXPECT_EQ((*men)[i].is_keeper, 0);
      EXPECT_EQ((*men)[i].bat_type, "");
      EXPECT_EQ((*men)[i].bowler_type, "");
    }
    for (const batting_card_table* card : {&match.batting_card, &match.first_batting_card}) {
      const batting_card_rec& man = (*card)[i];
      EXPECT_EQ(man.name + man.how_out + man.fielder, "");
      EXPECT_EQ(man.how, dismissal::none);
      EXPECT_EQ(man.fielder_position, 0);
      EXPECT_EQ(man.runs + man.balls + man.fours + man.sixes + man.twos + man.threes + man.singles + man.dots, 0);
    }
    for (const bowling_card_table* card : {&match.bowling_card, &match.first_bowling_card}) {
      EXPECT_EQ((*card)[i].name, "");
      EXPECT_EQ((*card)[i].balls + (*card)[i].maidens + (*card)[i].runs + (*card)[i].wickets, 0);
    }
    EXPECT_EQ(match.bowler_pool[i].name, "");
    EXPECT_EQ(match.bowler_pool[i].rating, 0);
    EXPECT_EQ(match.bowler_pool[i].position, 0);
  }
}

TEST_F(Reset, FallsLogsAndCommentary) {
  fill();
  ASSERT_FALSE(match.deliveries.empty());
  ASSERT_FALSE(match.first_deliveries.empty());
  ASSERT_FALSE(stored_commentary_lines(match).empty());
  reset_match(match);
  for (const fall_of_wicket_table& falls : {falls_in_play(match), falls_before(match)}) {
    for (const fall_of_wicket_rec& fall : falls) {
      EXPECT_EQ(fall.batsman_a + fall.batsman_b + fall.overs_text, "");
      EXPECT_EQ(fall.score + fall.balls + fall.partner_runs + fall.partner_balls, 0);
    }
  }
  EXPECT_FALSE(match.last_stand_closed);
  EXPECT_EQ(match.falls_shown, -1);
  EXPECT_EQ(match.first_falls_shown, -1);
  EXPECT_THAT(match.deliveries, IsEmpty());
  EXPECT_THAT(match.first_deliveries, IsEmpty());
  EXPECT_FALSE(match.commentary_stored);
  EXPECT_THAT(stored_commentary_lines(match), IsEmpty());
}

TEST_F(Reset, AchievementLists) {
  fill();
  reset_match(match);
  EXPECT_THAT(match.fifty_list, Each(""));
  EXPECT_THAT(match.hundred_list, Each(""));
  EXPECT_THAT(match.century_and_half_list, Each(""));
  EXPECT_THAT(match.double_century_list, Each(""));
  EXPECT_THAT(match.five_wicket_list, Each(""));
  EXPECT_THAT(match.stand50_list, Each(""));
  EXPECT_THAT(match.stand100_list, Each(""));
  EXPECT_THAT(match.stand150_list, Each(""));
  EXPECT_THAT(match.stand200_list, Each(""));
  EXPECT_THAT(match.stand250_list, Each(""));
  EXPECT_THAT(match.stand300_list, Each(""));
}

TEST_F(Reset, ConditionsAndSetUp) {
  fill();
  reset_match(match);
  EXPECT_EQ(match.venue_name(), "");
  EXPECT_EQ(match.ground.country, "");
  EXPECT_EQ(match.ground.pitch_bounce, 0);
  EXPECT_EQ(match.ground.pitch_surface, 0);
  EXPECT_EQ(match.ground.start_time, 0);
  EXPECT_EQ(match.weather, 0);
  EXPECT_EQ(match.outfield, 0);
  EXPECT_EQ(match.team_count, 0);
  EXPECT_THAT(match.team_list, Each(""));
  for (const squad& men : match.squads) {
    for (const player_rec& man : men) EXPECT_EQ(man.name, "");
  }
  EXPECT_FALSE(match.first_team_done);
  EXPECT_FALSE(match.elevens_exchanged);
  EXPECT_FALSE(match.elevens_unsaved);
  EXPECT_FALSE(match.exchange_tried);
  EXPECT_EQ(match.step, match_step::none);
  for (const chosen_team& team : match.chosen) {
    EXPECT_EQ(team.name, "");
    EXPECT_EQ(team.record, 0);
  }
  EXPECT_THAT(match.conditions_drawn.levels, Each(1));
  EXPECT_EQ(match.conditions_drawn.temperature + match.conditions_drawn.humidity, 0);
  EXPECT_EQ(match.toss_call + match.toss.headline + match.toss.deciding_line + match.toss.other_line, "");
  EXPECT_TRUE(match.toss.coin_visible && match.toss.bat_enabled && match.toss.bowl_enabled);
  EXPECT_FALSE(match.elevens_before[0] || match.elevens_before[1]);
  EXPECT_FALSE(match.result_before);
}

TEST_F(Reset, LeavesTheResultTheCaptionsAndTheSignal) {
  fill();
  match.result_ground = "The Oval";
  match.result_winner = "Home";
  match.result_loser = "Away";
  match.result_margin = "  won by  3  runs";
  match.rate_first = {"Home", 0.06};
  match.rate_second = {"Away", -0.06};
  match.batsman_aggression = {4, 5};
  match.bowling_aggression = {2, 5};
  script_draws({});
  reset_match(match);
  EXPECT_EQ(match.result_ground, "The Oval");
  EXPECT_EQ(match.result_winner, "Home");
  EXPECT_EQ(match.result_loser, "Away");
  EXPECT_EQ(match.result_margin, "  won by  3  runs");
  EXPECT_EQ(match.rate_first.team, "Home");
  EXPECT_EQ(match.rate_first.delta, 0.06);
  EXPECT_EQ(match.rate_second.delta, -0.06);
  EXPECT_THAT(match.batsman_aggression, ElementsAre(4, 5));
  EXPECT_THAT(match.bowling_aggression, ElementsAre(2, 5));
  EXPECT_EQ(chance.draws_used(), 0U);
}

}  // namespace
}  // namespace velorin::testing
