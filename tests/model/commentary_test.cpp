// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/commentary.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/match_state.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Commentary : public testing::Test {
 protected:
  void SetUp() override {
    batting_[1].name = "T.Marrow";
    batting_[2].name = "B.Hale";
    bowling_[4].name = "K.Voss";
    bowling_[9].name = "L.Ardent";
  }

  std::vector<std::string> lines() const { return log_.lines(batting_, bowling_, "East Marrow"); }

  batting_card_table batting_;
  bowling_card_table bowling_;
  commentary_log log_;
};

TEST_F(Commentary, StartsEmpty) {
  EXPECT_EQ(log_.size(), 0);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(Commentary, RunsOffTheBat) {
  for (const int runs : {0, 1, 2, 3, 4, 6}) log_.add_ball({ball_text::runs, runs, 4, 1});
  EXPECT_THAT(lines(), ElementsAre("K.Voss to T.Marrow : no run.", "K.Voss to T.Marrow : 1 run.",
                                   "K.Voss to T.Marrow : 2 runs.", "K.Voss to T.Marrow : 3 runs.",
                                   "K.Voss to T.Marrow : 4 runs.", "K.Voss to T.Marrow : 6 runs."));
  EXPECT_EQ(log_.size(), 6);
}

TEST_F(Commentary, Extras) {
  log_.add_ball({ball_text::leg_byes, 1, 4, 2});
  log_.add_ball({ball_text::leg_byes, 4, 4, 2});
  log_.add_ball({ball_text::byes, 2, 9, 1});
  log_.add_ball({ball_text::no_ball, 0, 9, 1});
  log_.add_ball({ball_text::wide, 0, 4, 2});
  EXPECT_THAT(lines(), ElementsAre("K.Voss to B.Hale : 1Leg Bye(s).", "K.Voss to B.Hale : 4Leg Bye(s).",
                                   "L.Ardent to T.Marrow : 2Bye(s).", "L.Ardent to T.Marrow : no ball.",
                                   "K.Voss to B.Hale : Wide."));
}

TEST_F(Commentary, AWicketHasFiveLines) {
  batting_[1].fielder = " c R.Ashe";
  batting_[1].how_out = " b K.Voss";
  batting_[1].runs = 67;
  batting_[1].balls = 71;
  batting_[1].fours = 6;
  batting_[1].sixes = 1;
  log_.add_wicket(4, 1);
  EXPECT_EQ(log_.size(), 5);
  EXPECT_THAT(lines(),
              ElementsAre("K.Voss to T.Marrow : Wicket!", "--------------------",
                          "T.Marrow   c R.Ashe  b K.Voss 67 (71)", "Fours : 6   Sixes : 1", "--------------------"));
}

TEST_F(Commentary, AWicketWithoutAFielderKeepsBothBlanks) {
  batting_[2].how_out = " c && b K.Voss";
  batting_[2].balls = 1;
  log_.add_wicket(4, 2);
  EXPECT_EQ(lines()[2], "B.Hale    c && b K.Voss 0 (1)");
  EXPECT_EQ(lines()[3], "Fours : 0   Sixes : 0");
}

over_note over_of_figures() {
  over_note note;
  note.over_no = 7;
  note.over_runs = 9;
  note.score_runs = 41;
  note.score_wickets = 2;
  note.innings_balls = 42;
  note.first_batsman = 1;
  note.first_runs = 20;
  note.first_balls = 25;
  note.second_batsman = 2;
  note.second_runs = 4;
  note.second_balls = 8;
  note.bowler = 9;
  note.bowler_balls = 18;
  note.bowler_maidens = 1;
  note.bowler_runs = 12;
  note.bowler_wickets = 1;
  return note;
}

TEST_F(Commentary, TheEndOfAnOverHasTwelveLines) {
  log_.add_over(over_of_figures());
  EXPECT_EQ(log_.size(), 12);
  EXPECT_THAT(lines(),
              ElementsAre("-----------------", "End of Over No.7     (9 runs)", "EM   41/2", "-----------------",
                          " Run Rate : 5.86", "-----------------", "T.Marrow     20 (25)", "B.Hale     4 (8)",
                          "-----------------", "L.Ardent     3.0-1-12-1", "=================", ""));
}

TEST_F(Commentary, TheRunRateHasNoTrailingZeros) {
  over_note note = over_of_figures();
  note.score_runs = 42;
  log_.add_over(note);
  note.score_runs = 45;
  note.innings_balls = 36;
  log_.add_over(note);
  EXPECT_EQ(lines()[4], " Run Rate : 6");
  EXPECT_EQ(lines()[16], " Run Rate : 7.5");
}

TEST_F(Commentary, TheRunRateOfNoBallsIsADash) {
  over_note note = over_of_figures();
  note.innings_balls = 0;
  log_.add_over(note);
  EXPECT_EQ(lines()[4], " Run Rate :  - ");
}

TEST_F(Commentary, EachOverKeepsItsOwnFigures) {
  over_note note = over_of_figures();
  log_.add_over(note);
  note.over_no = 8;
  note.first_runs = 31;
  note.bowler = 4;
  note.bowler_balls = 19;
  log_.add_over(note);
  const auto all = lines();
  EXPECT_EQ(all[1], "End of Over No.7     (9 runs)");
  EXPECT_EQ(all[6], "T.Marrow     20 (25)");
  EXPECT_EQ(all[9], "L.Ardent     3.0-1-12-1");
  EXPECT_EQ(all[13], "End of Over No.8     (9 runs)");
  EXPECT_EQ(all[18], "T.Marrow     31 (25)");
  EXPECT_EQ(all[21], "K.Voss     3.1-1-12-1");
}

TEST_F(Commentary, LinesStandInTheOrderOfTheNotes) {
  log_.add_ball({ball_text::runs, 4, 4, 1});
  log_.add_wicket(4, 1);
  log_.add_over(over_of_figures());
  log_.add_ball({ball_text::wide, 0, 9, 2});
  const auto all = lines();
  ASSERT_EQ(all.size(), 19U);
  EXPECT_EQ(log_.size(), 19);
  EXPECT_EQ(all[0], "K.Voss to T.Marrow : 4 runs.");
  EXPECT_EQ(all[1], "K.Voss to T.Marrow : Wicket!");
  EXPECT_EQ(all[6], "-----------------");
  EXPECT_EQ(all[17], "");
  EXPECT_EQ(all[18], "L.Ardent to B.Hale : Wide.");
}

TEST_F(Commentary, ClearForgetsEverything) {
  log_.add_ball({ball_text::runs, 4, 4, 1});
  log_.add_over(over_of_figures());
  log_.clear();
  EXPECT_EQ(log_.size(), 0);
  EXPECT_THAT(lines(), IsEmpty());
  over_note other = over_of_figures();
  other.over_no = 1;
  log_.add_over(other);
  EXPECT_EQ(lines()[1], "End of Over No.1     (9 runs)");
}

class CommentaryOfTheMatch : public testing::Test {
 protected:
  void SetUp() override {
    match = match_state();
    match.team1_name = "Norvale";
    match.team2_name = "East Marrow";
    match.batting_card[1].name = "T.Marrow";
    match.bowling_card[4].name = "K.Voss";
    match.first_batting_card[2].name = "P.Lind";
    match.first_bowling_card[5].name = "S.Orr";
    match.first_bowling_card[9].name = "D.Pell";
  }
  void TearDown() override { match = match_state(); }
};

TEST_F(CommentaryOfTheMatch, ReadsTheCardsOfTheInningsInPlay) {
  match.ball_commentary.add_ball({ball_text::runs, 2, 4, 1});
  match.ball_commentary.add_over(over_of_figures());
  const auto lines = commentary_lines(match);
  ASSERT_EQ(lines.size(), 13U);
  EXPECT_EQ(lines[0], "K.Voss to T.Marrow : 2 runs.");
  EXPECT_EQ(lines[3], "Nor   41/2");
}

TEST_F(CommentaryOfTheMatch, TheStoreReadsTheCardsOfTheOtherInningsAndEndsWithAnEmptyLine) {
  match.commentary_store.add_ball({ball_text::runs, 6, 5, 2});
  match.commentary_store.add_over(over_of_figures());
  match.commentary_stored = true;
  const auto lines = stored_commentary_lines(match);
  ASSERT_EQ(lines.size(), 14U);
  EXPECT_EQ(lines[0], "S.Orr to P.Lind : 6 runs.");
  EXPECT_EQ(lines[3], "EM   41/2");
  EXPECT_EQ(lines[8], "P.Lind     4 (8)");
  EXPECT_EQ(lines[10], "D.Pell     3.0-1-12-1");
  EXPECT_EQ(lines[13], "");
}

TEST_F(CommentaryOfTheMatch, TheStoreIsEmptyBeforeTheChangeOfInnings) {
  EXPECT_THAT(stored_commentary_lines(match), IsEmpty());
}

TEST_F(CommentaryOfTheMatch, AnInningsWithoutALineLeavesTheEmptyLineAlone) {
  match.commentary_stored = true;
  EXPECT_THAT(stored_commentary_lines(match), ElementsAre(""));
}

}  // namespace
}  // namespace velorin
