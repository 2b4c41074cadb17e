// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/console_view.h"

#include <gmock/gmock.h>

#include "console/console_figures.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class ConsoleView : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.striker = 5;
    match.non_striker = 2;
    match.bowler = 8;
    match.next_bowler = 11;
    match.innings_number = 1;
    for (int i = 1; i <= 11; ++i) {
      match.batting_card[i].name = match.batting_xi[i].name;
      match.bowling_card[i].name = match.bowling_xi[i].name;
    }
  }
  static void figures(int position, int balls, int maidens, int runs, int wickets) {
    bowling_card_rec& card = match.bowling_card[position];
    card.balls = balls;
    card.maidens = maidens;
    card.runs = runs;
    card.wickets = wickets;
  }
};

TEST_F(ConsoleView, ScoreBeforeTheFirstBall) {
  const score_view view = view_score(match);
  EXPECT_EQ(view.score, "0/0");
  EXPECT_EQ(view.overs, "0.0 Overs");
  EXPECT_EQ(view.run_rate, " - ");
  EXPECT_EQ(view.batting_team, "Home");
  EXPECT_EQ(view.bowling_team, "Away");
}

TEST_F(ConsoleView, ScoreInPlay) {
  match.score_runs = 236;
  match.score_wickets = 4;
  match.innings_balls = 249;
  const score_view view = view_score(match);
  EXPECT_EQ(view.score, "236/4");
  EXPECT_EQ(view.overs, "41.3 Overs");
  EXPECT_EQ(view.run_rate, "5.69");
}

TEST_F(ConsoleView, TheHeadTellsWhatAChaseNeeds) {
  EXPECT_EQ(view_score(match).target, "");
  EXPECT_EQ(view_score(match).needed, "");
  match.first_total = 250;
  match.score_runs = 240;
  match.innings_balls = 288;
  EXPECT_EQ(view_score(match).target, "Target 251");
  EXPECT_EQ(view_score(match).needed, "need 11 from 12 balls");
  match.score_runs = 250;
  match.innings_balls = 299;
  EXPECT_EQ(view_score(match).needed, "need 1 from 1 ball");
  for (const int made : {251, 256}) {
    match.score_runs = made;
    EXPECT_EQ(view_score(match).needed, "") << made;
    EXPECT_EQ(view_score(match).target, "Target 251") << made;
  }
}

TEST_F(ConsoleView, RatesHaveTwoPlacesAndNoFill) {
  struct row {
    int runs, balls;
    const char* rate;
  };
  for (const row& r : {row{0, 1, "0"}, row{1, 1, "6"}, row{3, 4, "4.5"}, row{1, 9, "0.67"}, row{6, 1, "36"},
                       row{1, 48, "0.12"},  // 0.125, a half goes to the even neighbour
                       row{3, 48, "0.38"}}) {
    match.score_runs = r.runs;
    match.innings_balls = r.balls;
    EXPECT_EQ(view_score(match).run_rate, r.rate) << r.runs << " off " << r.balls;
  }
}

TEST_F(ConsoleView, ShortNames) {
  struct row {
    const char* team;
    const char* shown;
  };
  for (const row& r : {row{"Home", "Hom"}, row{"Ho", "Ho"}, row{"", ""}, row{"New Home", "NH"},
                       row{"Old North Home", "ON"}, row{"A B", "AB"}, row{"Home ", "H"}, row{"Two  Blanks", "T "}}) {
    match.team1_name = r.team;
    EXPECT_EQ(view_score(match).batting_short_name, r.shown) << r.team;
  }
}

TEST_F(ConsoleView, TheClockHasTwoDigitsEach) {
  match.clock_minutes = 630;
  EXPECT_EQ(view_score(match).time_of_day, "10:30");
  match.clock_minutes = 545;
  EXPECT_EQ(view_score(match).time_of_day, "09:05");
  match.clock_minutes = 5610;  // a start of play of three digits: 93 and 30
  EXPECT_EQ(view_score(match).time_of_day, "93:30");
}

TEST_F(ConsoleView, BatsmenStandInTheirSlots) {
  batting_card_rec& card = match.batting_card[2];
  card.runs = 67;
  card.balls = 71;
  card.fours = 6;
  card.sixes = 1;
  match.batsman_aggression = {3, 5};
  refresh_batsmen(match);
  const batsman_view low = view_batsman(match, 0);
  EXPECT_EQ(low.position, 2);
  EXPECT_EQ(low.name, "H.Bat2");
  EXPECT_EQ(low.runs, 67);
  EXPECT_EQ(low.balls, 71);
  EXPECT_EQ(low.fours, 6);
  EXPECT_EQ(low.sixes, 1);
  EXPECT_EQ(low.settled_meter, 847.5);
  EXPECT_EQ(low.aggression, 3);
  const batsman_view high = view_batsman(match, 1);
  EXPECT_EQ(high.position, 5);
  EXPECT_EQ(high.name, "H.Bat5 *");
  EXPECT_EQ(high.runs, 0);
  EXPECT_EQ(high.settled_meter, 0);
  EXPECT_EQ(high.aggression, 5);
  std::swap(match.striker, match.non_striker);
  EXPECT_EQ(view_batsman(match, 0).name, "H.Bat2 *");
  EXPECT_EQ(view_batsman(match, 1).name, "H.Bat5");
}

TEST_F(ConsoleView, NobodyAtTheCreaseShowsNothing) {
  match.striker = 0;
  match.non_striker = 0;
  EXPECT_EQ(view_batsman(match, 0).name, "");
  EXPECT_EQ(view_batsman(match, 1).name, "");
  match.striker = 1;
  EXPECT_EQ(view_batsman(match, 0).name, "");
  EXPECT_EQ(view_batsman(match, 1).name, "H.Bat1 *");
}

TEST_F(ConsoleView, NobodyMovesTheSettingsOfAComputer) {
  for (const bool bats : {false, true}) {
    for (const bool bowls : {false, true}) {
      match.computer_bats = bats;
      match.computer_bowls = bowls;
      EXPECT_EQ(view_batsman(match, 0).aggression_enabled, !bats);
      EXPECT_EQ(view_batsman(match, 1).aggression_enabled, !bats);
      EXPECT_EQ(view_bowlers(match).change_enabled, !bowls);
    }
  }
}

TEST_F(ConsoleView, BowlersHaveTheirFigures) {
  figures(8, 51, 1, 41, 2);
  figures(11, 54, 0, 50, 1);
  match.bowling_aggression = {2, 3};
  const bowlers_view view = view_bowlers(match);
  EXPECT_EQ(view.bowler, "A.Bowl8");
  EXPECT_EQ(view.overs, "8.3");
  EXPECT_EQ(view.maidens, "1");
  EXPECT_EQ(view.runs, "41");
  EXPECT_EQ(view.wickets, "2");
  EXPECT_EQ(view.next_bowler, "A.Bowl11");
  EXPECT_EQ(view.next_figures, "9.0 - 0 - 50 - 1");
  EXPECT_EQ(view.aggression, (std::array<int, 2>{2, 3}));
}

TEST_F(ConsoleView, TheTableOfBowlersShortensNamesOfTwelveCharacters) {
  struct row {
    const char* name;
    const char* shown;
  };
  for (const row& r :
       {row{"A.Bowl8", "A.Bowl8"}, row{"ABCDEFGHIJK", "ABCDEFGHIJK"}, row{"ABCDEFGHIJKL", "ABCDEFGH'KL"},
        row{"ABCDEFGHIJKLMNOPQ", "ABCDEFGH'PQ"}, row{"A.B.Caf\xE9-Sm\xEFth", "A.B.Caf\xE9'th"}, row{"", ""}}) {
    match.bowling_card[8].name = r.name;
    match.bowler_list = {};
    figures(8, 60, 2, 30, 4);
    refresh_bowling_card(match);
    const auto table = view_bowler_list(match);
    ASSERT_EQ(table.size(), 1U);
    EXPECT_EQ(table[0].name, r.shown);
    EXPECT_THAT(table[0].figures, ElementsAre("10.0", "2", "30", "4"));
  }
}

TEST_F(ConsoleView, TwoMenOfOneShortenedNameHaveTwoRows) {
  match.bowling_card[8].name = "A.Longname-One-X";
  match.bowling_card[9].name = "A.Longname-Two-X";
  refresh_bowling_card(match);
  match.bowler = 9;
  refresh_bowling_card(match);
  const auto table = view_bowler_list(match);
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table[0].name, "A.Longna'-X");
  EXPECT_EQ(table[1].name, "A.Longna'-X");
}

// The last wicket.

TEST_F(ConsoleView, BeforeTheFirstWicketTheLabelIsEmpty) { EXPECT_EQ(view_last_wicket(match), ""); }

TEST_F(ConsoleView, TheLastWicketTellsTheManAndTheScore) {
  batting_card_rec& out = match.batting_card[2];
  out.runs = 67;
  out.balls = 71;
  out.fielder = " c A.Bowl3";
  out.how_out = " b A.Bowl8";
  match.last_wicket = {2, 1, 131};
  EXPECT_EQ(view_last_wicket(match), "H.Bat2  c A.Bowl3  b A.Bowl8 67(71) at 131.");
  out.fielder = "";
  out.how_out = " lbw A.Bowl8";
  EXPECT_EQ(view_last_wicket(match), "H.Bat2   lbw A.Bowl8 67(71) at 131.");
}

TEST_F(ConsoleView, TheLastWicketStaysThroughTheChangeOfInnings) {
  match.batting_card[2].how_out = " b A.Bowl8";
  match.last_wicket = {2, 1, 131};
  std::swap(match.batting_card, match.first_batting_card);
  match.innings_number = 2;
  EXPECT_EQ(view_last_wicket(match), "H.Bat2   b A.Bowl8 0(0) at 131.");
  match.batting_card[7].name = "A.Bowl7";
  match.batting_card[7].how_out = " b H.Bat9";
  match.last_wicket = {7, 2, 12};
  EXPECT_EQ(view_last_wicket(match), "A.Bowl7   b H.Bat9 0(0) at 12.");
}

}  // namespace
}  // namespace velorin::testing
