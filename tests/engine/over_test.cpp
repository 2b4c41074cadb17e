// SPDX-License-Identifier: GPL-3.0-or-later
// The over: what each ball does to score, cards, log and strike, and what the end of the over does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/check_match.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class Over : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
    user.requests.clear();
  }

  static std::vector<std::string> log_of(int over) { return log_of_over(innings_in_play(match), over); }
};

TEST_F(Over, RunsOffTheBat) {
  play({hit(0), hit(1), hit(2), hit(3), hit(4), hit(6)});
  EXPECT_EQ(match.score_runs, 16);
  EXPECT_EQ(match.score_wickets, 0);
  EXPECT_EQ(match.innings_balls, 6);
  EXPECT_EQ(match.overs_text(), "1.0");
  EXPECT_THAT(log_of(1), ElementsAre("0", "1", "2", "3", "4", "6", "A.Bowl1"));
  EXPECT_THAT(over_symbols(match), ElementsAre("0", "1", "2", "3", "4", "6"));
  const batting_card_rec& first = match.batting_card[1];  // dot, single; then 4 and 6 after the three
  EXPECT_EQ(first.runs, 11);
  EXPECT_EQ(first.balls, 4);
  EXPECT_EQ(first.dots, 1);
  EXPECT_EQ(first.singles, 1);
  EXPECT_EQ(first.fours, 1);
  EXPECT_EQ(first.sixes, 1);
  const batting_card_rec& second = match.batting_card[2];
  EXPECT_EQ(second.runs, 5);
  EXPECT_EQ(second.balls, 2);
  EXPECT_EQ(second.twos, 1);
  EXPECT_EQ(second.threes, 1);
  const bowling_card_rec& bowler = match.bowling_card[1];
  EXPECT_EQ(bowler.balls, 6);
  EXPECT_EQ(bowler.runs, 16);
  EXPECT_EQ(bowler.maidens, 0);
  EXPECT_EQ(bowler.wickets, 0);
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Over, TheEndOfTheOver) {
  play(times(6, hit(0)));
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.bowler, 2);
  EXPECT_EQ(match.next_bowler, 1);
  EXPECT_EQ(match.striker, 2);
  EXPECT_EQ(match.non_striker, 1);
  EXPECT_EQ(match.clock_minutes, 634);
  EXPECT_EQ(match.bowling_card[1].maidens, 1);
  EXPECT_EQ(match.browser_maximum, 1);
  EXPECT_EQ(match.browsed_over, 1);
  EXPECT_THAT(match.bowling_aggression, ElementsAre(1, 2));
  EXPECT_TRUE(user.requests.empty());
  EXPECT_EQ(user.balls_bowled, 6);
}

TEST_F(Over, SymbolsStayUntilTheNextPress) {
  play({hit(4), hit(4), hit(4), hit(4), hit(4), hit(4), hit(1)});
  EXPECT_THAT(over_symbols(match), ElementsAre("1", "", "", "", "", ""));
  EXPECT_THAT(log_of(2), ElementsAre("1", "", "", "", "", "", ""));
  EXPECT_EQ(match.overs_text(), "1.1");
}

TEST_F(Over, ASingleOffTheSixthBallKeepsTheStrike) {
  play(times(5, hit(0)) + std::vector{hit(1)});
  EXPECT_EQ(match.striker, 1);
  EXPECT_EQ(match.non_striker, 2);
  EXPECT_EQ(match.batting_card[1].runs, 1);
}

TEST_F(Over, AThreeOffTheSixthBallKeepsTheStrike) {
  play(times(5, hit(0)) + std::vector{hit(3)});
  EXPECT_EQ(match.striker, 1);
}

TEST_F(Over, LegByes) {
  play({off_the_pad(leg_byes, 1), off_the_pad(leg_byes, 2), off_the_pad(leg_byes, 3), off_the_pad(leg_byes, 4)});
  EXPECT_EQ(match.score_runs, 10);
  EXPECT_EQ(match.innings_leg_byes, 10);
  EXPECT_EQ(match.innings_byes, 0);
  EXPECT_THAT(over_symbols(match), ElementsAre("1lb", "2lb", "3lb", "4lb", "", ""));
  EXPECT_THAT(log_of(1), ElementsAre("1", "2", "3", "4", "", "", ""));
  EXPECT_EQ(match.striker, 1);
  // The first and the fourth hit him, the second and third his partner.
  EXPECT_EQ(match.batting_card[1].balls, 2);
  EXPECT_EQ(match.batting_card[1].dots, 2);
  EXPECT_EQ(match.batting_card[2].balls, 2);
  EXPECT_EQ(match.batting_card[1].runs + match.batting_card[2].runs, 0);
  EXPECT_EQ(match.bowling_card[1].runs, 0);
  EXPECT_EQ(match.bowling_card[1].balls, 4);
  EXPECT_TRUE(match.maiden_flag);
}

TEST_F(Over, Byes) {
  play({off_the_pad(byes, 3), off_the_pad(byes, 4)});
  EXPECT_EQ(match.score_runs, 7);
  EXPECT_EQ(match.innings_byes, 7);
  EXPECT_EQ(match.innings_leg_byes, 0);
  EXPECT_THAT(over_symbols(match), ElementsAre("3b", "4b", "", "", "", ""));
  EXPECT_THAT(log_of(1), ElementsAre("3", "4", "", "", "", "", ""));
  EXPECT_EQ(match.striker, 2);
  EXPECT_EQ(match.batting_card[1].dots, 1);
  EXPECT_EQ(match.batting_card[2].dots, 1);
}

TEST_F(Over, AnOverOfLegByesIsAMaiden) {
  play(times(6, off_the_pad(leg_byes, 2)));
  EXPECT_EQ(match.bowling_card[1].maidens, 1);
  EXPECT_EQ(match.score_runs, 12);
}

TEST_F(Over, OneRunOffTheBatSpoilsAMaiden) {
  play(times(5, hit(0)) + std::vector{hit(1)});
  EXPECT_EQ(match.bowling_card[1].maidens, 0);
}

TEST_F(Over, TheBrowserShowsPastOvers) {
  play({hit(1), hit(2), hit(0), off_the_pad(byes, 2), hit(0), hit(0)});
  // The finished over is shown from the log, in which byes are bare numbers.
  EXPECT_THAT(over_symbols(match), ElementsAre("1", "2", "0", "2", "0", "0"));
  play(times(6, hit(4)));
  EXPECT_EQ(match.browser_maximum, 2);
  EXPECT_EQ(match.browsed_over, 2);
  EXPECT_THAT(over_symbols(match), ElementsAre("4", "4", "4", "4", "4", "4"));
  console_form console(in_play());
  console.browse_over(1);
  EXPECT_EQ(match.browsed_over, 1);
  EXPECT_THAT(over_symbols(match), ElementsAre("1", "2", "0", "2", "0", "0"));
  EXPECT_EQ(bowler_of_over(match, match.browsed_over), "A.Bowl1");
  for (const int over : {-1, 0, 3, 51}) console.browse_over(over);
  EXPECT_EQ(match.browsed_over, 1);
}

TEST_F(Over, TheMetersFollowTheCards) {
  play({hit(0), hit(4), hit(1), hit(6)});
  EXPECT_THAT(match.settled_meter, ElementsAre(5 * (2 * 5 + 3 / 2.0), 5 * (2 * 6 + 1 / 2.0)));
  EXPECT_EQ(match.settled_meter[0], 57.5);
}

TEST_F(Over, AMeterEndsAt915) {
  match.batting_card[1].runs = 60;
  match.batting_card[1].sixes = 10;
  match.batting_card[1].dots = 51;
  match.batting_card[1].balls = 61;
  match.bowling_card[3].runs = 60;
  match.bowling_card[3].balls = 61;
  match.score_runs = 60;
  match.innings_balls = 61;
  play({hit(0)});
  EXPECT_EQ(match.settled_meter[0], 5 * (120 + 31));
  play({hit(2)});
  EXPECT_EQ(match.settled_meter[0], 5 * (124 + 31.5));
  match.batting_card[1].dots += 60;
  match.batting_card[1].balls += 60;
  match.bowling_card[4].balls = 60;
  match.innings_balls += 60;
  play({hit(0)});
  EXPECT_EQ(match.settled_meter[0], 915);
}

TEST_F(Over, TheButtonsOfTheConsoleOpenTheirForms) {
  console_form console(in_play());
  console.show_scorecard();
  console.change_bowler();
  console.change_batsman_aggression(0);
  console.change_batsman_aggression(1);
  console.change_bowler_aggression(0);
  console.change_bowler_aggression(1);
  console.show_worm();
  console.show_overs_graph();
  EXPECT_THAT(user.requests, ElementsAre("report 0", "chgbowler Change Bowler", "aggr H.Bat1 ", "aggr H.Bat2 ",
                                         "aggr A.Bowl1 ", "aggr A.Bowl2 ", "report 7", "report 6"));
  EXPECT_FALSE(console.closed());
}

TEST_F(Over, AComputersSideCannotBeCommanded) {
  open(true, false);
  user.requests.clear();
  console_form console(in_play());
  console.change_batsman_aggression(0);
  console.change_batsman_aggression(1);
  EXPECT_TRUE(user.requests.empty());
  console.change_bowler();
  console.change_bowler_aggression(1);
  EXPECT_EQ(user.requests.size(), 2U);
  open(false, true);
  user.requests.clear();
  console.change_bowler();
  console.change_bowler_aggression(0);
  console.change_bowler_aggression(1);
  EXPECT_TRUE(user.requests.empty());
  console.change_batsman_aggression(0);
  EXPECT_EQ(user.requests.size(), 1U);
}

}  // namespace
}  // namespace velorin::testing
