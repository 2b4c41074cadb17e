// SPDX-License-Identifier: GPL-3.0-or-later
// The opening of the console: who is asked what, and what the match then holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "console/console_view.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Opening : public match_test {};

TEST_F(Opening, TwoHumansChooseBowlersThenBatsmen) {
  open(false, false);
  EXPECT_THAT(user.requests, ElementsAre("chgbowler Select 1st Opening Bowler", "chgbowler Select 2nd Opening Bowler",
                                         "batorder Select 1st Opener", "batorder Select 2nd Opener"));
}

TEST_F(Opening, AComputerThatBatsIsNotAsked) {
  open(true, false);
  EXPECT_THAT(user.requests, ElementsAre("chgbowler Select 1st Opening Bowler", "chgbowler Select 2nd Opening Bowler"));
}

TEST_F(Opening, TheComputersBowlersAreAnnouncedToAHuman) {
  open(false, true);
  EXPECT_THAT(user.requests,
              ElementsAre("message Opening Bowlers | A.Bowl8 and A.Bowl9 are the opening bowlers for Away",
                          "batorder Select 1st Opener", "batorder Select 2nd Opener"));
}

TEST_F(Opening, SetsThePosition) {
  open(false, false);
  EXPECT_EQ(match.over_no, 1);
  EXPECT_EQ(match.bowler, 1);
  EXPECT_EQ(match.next_bowler, 2);
  EXPECT_EQ(match.striker, 1);
  EXPECT_EQ(match.non_striker, 2);
  EXPECT_EQ(match.clock_minutes, 630);
  EXPECT_EQ(match.first_total, 0);
  EXPECT_EQ(match.innings_balls, 0);
  EXPECT_EQ(match.overs_text(), "0.0");
  EXPECT_TRUE(match.console_open);
}

TEST_F(Opening, NamesTwoBatsmenAndAllBowlers) {
  open(false, false);
  for (int i = 1; i <= 11; ++i) {
    EXPECT_EQ(match.batting_card[i].name, i <= 2 ? "H.Bat" + std::to_string(i) : "") << i;
    EXPECT_EQ(match.bowling_card[i].name, "A.Bowl" + std::to_string(i)) << i;
  }
}

TEST_F(Opening, ChosenOpenersAreNamed) {
  user.on_next_batsman = {[](next_batsman_form& form) {
                            form.choose(6);
                            form.aggression = 4;
                            form.accept();
                          },
                          [](next_batsman_form& form) {
                            form.choose(4);
                            form.aggression = 2;
                            form.accept();
                          }};
  open(false, false);
  EXPECT_EQ(match.batting_card[1].name, "H.Bat6");
  EXPECT_EQ(match.batting_card[2].name, "H.Bat3");
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat1");
  EXPECT_EQ(match.batting_xi[4].name, "H.Bat2");
  EXPECT_THAT(match.batsman_aggression, ElementsAre(4, 2));
}

TEST_F(Opening, TheFirstBowlerCannotBeTheSecond) {
  user.on_bowler_choice = {[](bowler_choice_form& form) {
                             form.choose(9);
                             form.accept();
                           },
                           [](bowler_choice_form& form) {
                             EXPECT_EQ(form.chosen, 9);
                             EXPECT_FALSE(form.enabled[9]);
                             EXPECT_FALSE(form.enabled[7]);
                             EXPECT_TRUE(form.enabled[1]);
                             form.choose(11);
                             form.accept();
                           }};
  open(false, false);
  EXPECT_EQ(match.bowler, 9);
  EXPECT_EQ(match.next_bowler, 11);
}

TEST_F(Opening, ABowlerNotChosenIsAnError) {
  user.on_bowler_choice = {[](bowler_choice_form& form) { form.accept(); }};
  try {
    open_console(in_play());
    FAIL() << "a match without a bowler";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
    EXPECT_EQ(error.place().field, "bowler");
  }
}

TEST_F(Opening, ComputerOpenersAreSentByRole) {
  set_up_sample_match(true, false);
  match.batting_xi[1].bat_type = "RH Lower Order";
  match.batting_xi[2].bat_type = "RH Middle Order";
  match.batting_xi[5].bat_type = "RH Opener";
  open_console(in_play());
  EXPECT_EQ(match.batting_card[1].name, "H.Bat5");
  EXPECT_EQ(match.batting_card[2].name, "H.Bat2");  // 42, the best of the middle order
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat1");
  EXPECT_EQ(match.next_batsman_slot, 1);
  // 2 + 1/100 - 5/bat_skill + 71/100 rounds to 3.
  EXPECT_THAT(match.batsman_aggression, ElementsAre(3, 3));
}

TEST_F(Opening, TheCaptionsAreExchangedOnce) {
  open(false, false);
  EXPECT_THAT(match.bowling_aggression, ElementsAre(2, 1));
  EXPECT_THAT(match.batsman_aggression, ElementsAre(3, 3));
  EXPECT_THAT(match.settled_meter, ElementsAre(0, 0));
}

TEST_F(Opening, TheClockComesFromTheGround) {
  for (const auto& [time, minutes] : {std::pair{1030, 630}, std::pair{1400, 840}, std::pair{2359, 1439}}) {
    set_up_sample_match(false, false);
    match.ground.start_time = time;
    open_console(in_play());
    EXPECT_EQ(match.clock_minutes, minutes) << time;
  }
  EXPECT_EQ(view_score(match).time_of_day, "23:59");
}

TEST_F(Opening, ShowsTheSides) {
  set_up_sample_match(false, false);
  match.team1_name = "North West Isles";
  open_console(in_play());
  const score_view view = view_score(match);
  EXPECT_EQ(view.batting_short_name, "NW");
  EXPECT_EQ(view.score, "0/0");
  EXPECT_EQ(view.overs, "0.0 Overs");
  EXPECT_EQ(view.run_rate, " - ");
  EXPECT_EQ(view.batting_team, "North West Isles");
  EXPECT_EQ(view.bowling_team, "Away");
  EXPECT_EQ(view_batsman(match, 0).name, "H.Bat1 *");
  EXPECT_EQ(view_batsman(match, 1).name, "H.Bat2");
  EXPECT_EQ(view_bowlers(match).next_figures, "0.0 - 0 - 0 - 0");
  for (const rate_cell& cell : view_rates(match).cells) EXPECT_EQ(cell.text, "-") << cell.heading;
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
}

TEST_F(Opening, TheConsoleIsAFreshOne) {
  match.score_runs = 77;
  match.score_wickets = 3;
  match.deliveries = {ball_of_wicket(dismissal::bowled)};
  match.first_deliveries = {ball_of_runs(1)};
  match.over_on_show = {1, true, false};
  ASSERT_EQ(over_symbols(match)[0], "W");
  match.batsman_aggression = {5, 5};
  match.bowling_aggression = {4, 4};
  match.settled_meter = {100, 200};
  match.bowler_list[1].position = 4;
  match.first_innings_projection = {projection_text::kind::number, 300};
  match.opening_bowlers = {4, 5};
  match.bowler_change_pending = true;
  match.bowler_change_out = 4;
  match.bowler_change_in = 5;
  match.last_wicket.position = 3;
  match.browser_maximum = 9;
  open_console(in_play());
  EXPECT_EQ(match.score_runs, 0);
  EXPECT_EQ(match.score_wickets, 0);
  EXPECT_THAT(over_symbols(match), ElementsAre("", "", "", "", "", ""));
  EXPECT_THAT(match.bowling_aggression, ElementsAre(2, 1));
  EXPECT_THAT(match.settled_meter, ElementsAre(0, 0));
  EXPECT_THAT(commentary_lines(match), IsEmpty());
  EXPECT_THAT(match.first_deliveries, IsEmpty());
  EXPECT_THAT(view_bowler_list(match), IsEmpty());
  EXPECT_EQ(match.first_innings_projection.text(), "");
  EXPECT_THAT(match.opening_bowlers, ElementsAre(0, 0));
  EXPECT_FALSE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 0);
  EXPECT_EQ(match.bowler_change_in, 0);
  EXPECT_EQ(view_last_wicket(match), "");
  EXPECT_EQ(match.browser_maximum, 0);
}

}  // namespace
}  // namespace velorin::testing
