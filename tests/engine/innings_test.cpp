// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the first innings and the opening of the second.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "captain/aicomp.h"
#include "console/console_view.h"
#include "engine/algorithm.h"
#include "engine/end_of_inns_match.h"
#include "engine/match_test.h"
#include "model/check_match.h"
#include "model/run_time_error.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Innings : public match_test {
 protected:
  /// Opens the match and plays the last two overs of its first innings: 12 off the 49th, in the 50th 4, a wicket, 2 leg
  /// byes, 2, no ball, 2 and nothing. 22 for 1, the men at 1 and 3 not out, the latter on strike.
  void play_first_innings(bool computer_bats, bool computer_bowls) {
    open(computer_bats, computer_bowls);
    skip_to_over(49);
    play(times(6, hit(2)));
    user.requests.clear();
    play({hit(4), out(12), off_the_pad(leg_byes, 2), hit(2), hit(no_ball), hit(2), last_ball(computer_bats)});
  }

  /// A dot ball; the offset of the bowlers of a side that bowls next.
  static ball last_ball(bool computer_bowls_next) {
    ball last = hit(0);
    if (computer_bowls_next) last.after = {0.5};
    return last;
  }
};

TEST_F(Innings, WhatTheScorecardSees) {
  user.on_report = [](report which) {
    EXPECT_EQ(which, report::scorecard);
    EXPECT_EQ(match.team1_name, "Home");
    EXPECT_EQ(match.innings_total, 22);
    EXPECT_EQ(match.innings_wickets, 1);
    EXPECT_EQ(match.innings_balls, 300);
    EXPECT_EQ(match.first_total, 0);
    EXPECT_EQ(match.over_no, 50);
    EXPECT_EQ(match.batting_card[1].how_out, "");
  };
  play_first_innings(false, false);
}

TEST_F(Innings, TheSidesAndTotalsChangePlaces) {
  play_first_innings(false, false);
  EXPECT_EQ(match.team1_name, "Away");
  EXPECT_EQ(match.team2_name, "Home");
  EXPECT_EQ(match.batting_xi[11].name, "A.Bowl11");
  EXPECT_EQ(match.bowling_xi[11].name, "H.Bat11");
  EXPECT_EQ(match.first_total, 22);
  EXPECT_EQ(match.first_balls, 300);
  EXPECT_EQ(match.first_wickets, 1);
  EXPECT_EQ(match.first_leg_byes, 2);
  EXPECT_EQ(match.first_byes, 0);
  EXPECT_EQ(match.first_no_balls, 1);
  EXPECT_EQ(match.first_wides, 0);
  EXPECT_EQ(match.innings_total + match.innings_balls + match.innings_wickets, 0);
  EXPECT_EQ(match.innings_leg_byes + match.innings_byes + match.innings_no_balls + match.innings_wides, 0);
  EXPECT_EQ(match.score_runs, 0);
  EXPECT_EQ(match.score_wickets, 0);
  EXPECT_EQ(match.overs_text(), "0.0");
  EXPECT_EQ(match.innings_number, 2);
  EXPECT_FALSE(match.innings_changed);
  EXPECT_EQ(check_match(), "");
}

TEST_F(Innings, TheCardsChangePlaces) {
  play_first_innings(false, false);
  EXPECT_EQ(match.first_batting_card[1].how_out, "not out");
  EXPECT_EQ(match.first_batting_card[3].how_out, "not out");
  EXPECT_EQ(match.first_batting_card[2].how_out, " b A.Bowl2");
  EXPECT_EQ(match.first_batting_card[2].fielder, " c A.Bowl7");
  EXPECT_EQ(match.first_batting_card[4].how_out, "");
  EXPECT_EQ(match.first_batting_card[1].runs, 12);
  EXPECT_EQ(match.first_bowling_card[2].wickets, 1);
  EXPECT_EQ(match.first_bowling_card[2].runs, 8);
  for (int i = 1; i <= 11; ++i) {
    EXPECT_EQ(match.batting_card[i].name, i <= 2 ? "A.Bowl" + std::to_string(i) : "");
    EXPECT_EQ(match.batting_card[i].balls, 0);
    EXPECT_EQ(match.bowling_card[i].name, "H.Bat" + std::to_string(i));
    EXPECT_EQ(match.bowling_card[i].balls, 0);
  }
}

TEST_F(Innings, TheUnbrokenStandIsRecorded) {
  play_first_innings(false, false);
  const fall_of_wicket_rec& stand = match.first_fall_of_wicket[2];
  EXPECT_EQ(stand.batsman_a, "H.Bat1");
  EXPECT_EQ(stand.batsman_b, "H.Bat3 * ");
  EXPECT_EQ(stand.partner_runs, 6);
  EXPECT_EQ(stand.partner_balls, 4);
  EXPECT_EQ(stand.score, 0);
  EXPECT_EQ(stand.balls, 0);
  EXPECT_EQ(match.first_fall_of_wicket[1].partner_runs, 16);
  EXPECT_EQ(match.first_fall_of_wicket[1].balls, 296);
  EXPECT_EQ(match.first_fall_of_wicket[3].batsman_a, "");
  for (const fall_of_wicket_rec& fall : match.fall_of_wicket) EXPECT_EQ(fall.batsman_b, "");
}

TEST_F(Innings, AStrikerWhoIsTheLowerIsNamedTwice) {
  open(false, false);
  skip_to_over(50);
  play(times(5, hit(0)) + std::vector{hit(2)});
  EXPECT_EQ(match.first_fall_of_wicket[1].batsman_a, "H.Bat1");
  EXPECT_EQ(match.first_fall_of_wicket[1].batsman_b, "H.Bat1 * ");
  EXPECT_EQ(match.first_fall_of_wicket[1].partner_runs, 2);
  EXPECT_EQ(match.first_fall_of_wicket[1].partner_balls, 300);
}

TEST_F(Innings, TheLastOverIsNotClosed) {
  play_first_innings(false, false);
  EXPECT_EQ(match.first_ball_log[49][7], "A.Bowl1");
  EXPECT_EQ(match.first_ball_log[49][1], "2");
  const auto& last = match.first_ball_log[50];
  EXPECT_THAT(std::vector(last.begin() + 1, last.end()), ElementsAre("4", "W", "2", "3", "2", "0", ""));
  for (const auto& over : match.ball_log) EXPECT_THAT(over, ::testing::Each(""));
  EXPECT_EQ(match.clock_minutes, 634);
}

TEST_F(Innings, ALastOverWithoutRunsIsNoMaiden) {
  open(false, false);
  skip_to_over(50);
  play(std::vector{off_the_pad(byes, 1)} + times(5, hit(0)));
  EXPECT_EQ(match.first_bowling_card[1].balls, 6);
  EXPECT_EQ(match.first_bowling_card[1].maidens, 0);
}

TEST_F(Innings, AMilestoneOnTheLastBallIsNotAnnounced) {
  open(false, false);
  skip_to_over(49);
  play(times(3, hit(0)) + times(3, hit(6)) + times(5, hit(6)) + std::vector{hit(4)});  // a stand of 48, then 52
  EXPECT_EQ(match.first_total, 52);
  EXPECT_THAT(texts_of(" Partnership"), IsEmpty());
  EXPECT_EQ(match.stand50_list[1], "");
}

TEST_F(Innings, HumansOpenTheSecondInnings) {
  play_first_innings(false, false);
  EXPECT_THAT(
      user.requests,
      ElementsAre("batsmandetails H.Bat2  c A.Bowl7  b A.Bowl2  4 (2).", "batorder Select Next Batsman",
                  "message End of Innings | End of Innings", "report 0", "chgbowler Select 1st Opening Bowler",
                  "chgbowler Select 2nd Opening Bowler", "batorder Select 1st Opener", "batorder Select 2nd Opener"));
  EXPECT_EQ(match.over_no, 1);
  EXPECT_EQ(match.bowler, 1);
  EXPECT_EQ(match.next_bowler, 2);
  EXPECT_EQ(match.striker, 1);
  EXPECT_EQ(match.non_striker, 2);
}

TEST_F(Innings, AComputerThatBowlsIsNotAnnounced) {
  play_first_innings(true, false);
  EXPECT_TRUE(match.computer_bowls);
  EXPECT_FALSE(match.computer_bats);
  EXPECT_THAT(user.requests, ElementsAre("batsmandetails H.Bat2  c A.Bowl7  b A.Bowl2  4 (2).",
                                         "message End of Innings | End of Innings", "report 0",
                                         "batorder Select 1st Opener", "batorder Select 2nd Opener"));
  EXPECT_EQ(match.bowler, 8);
  EXPECT_EQ(match.next_bowler, 9);
  EXPECT_EQ(match.bowler_pool[1].name, "H.Bat6");
}

TEST_F(Innings, AComputerThatBatsSendsItsOpeners) {
  open(false, true);
  match.bowling_xi[5].bat_type = "RH Opener";
  match.bowling_xi[1].bat_type = "RH Lower Order";
  skip_to_over(50);
  // Between the change and the first ball nothing sets the bowling aggression.
  const auto captions = match.bowling_aggression;
  play(times(6, hit(2)));
  EXPECT_TRUE(match.computer_bats);
  EXPECT_EQ(match.batting_card[1].name, "A.Bowl2");
  EXPECT_EQ(match.batting_card[2].name, "A.Bowl5");
  EXPECT_EQ(match.batting_xi[3].name, "A.Bowl1");
  EXPECT_EQ(match.next_batsman_slot, 1);
  EXPECT_EQ(match.batsman_aggression[0], 3);  // 2 + 0.01 - 5/42 + 0.71
  EXPECT_EQ(match.bowling_aggression, captions);
}

TEST_F(Innings, TheCaptionsStayAsTheyWere) {
  play_first_innings(false, false);
  EXPECT_THAT(match.bowling_aggression, ElementsAre(1, 2));
  play(times(6, hit(0)));
  EXPECT_THAT(match.bowling_aggression, ElementsAre(2, 1));
}

TEST_F(Innings, TheMetersAreFresh) {
  play_first_innings(false, false);
  EXPECT_THAT(match.settled_meter, ElementsAre(0, 0));
}

TEST_F(Innings, TheCommentaryIsStored) {
  play_first_innings(false, false);
  const std::vector<std::string> stored = stored_commentary_lines();
  ASSERT_THAT(stored, SizeIs(6 + 12 + 11 + 1));
  EXPECT_EQ(stored[0], "A.Bowl1 to H.Bat1 : 2 runs.");
  EXPECT_EQ(stored[8], "Hom   12/0");
  EXPECT_EQ(stored[18], "A.Bowl2 to H.Bat2 : 4 runs.");
  EXPECT_EQ(stored[21], "H.Bat2   c A.Bowl7  b A.Bowl2 4 (2)");
  EXPECT_EQ(stored[26], "A.Bowl2 to H.Bat3 : no ball.");
  EXPECT_EQ(stored[28], "A.Bowl2 to H.Bat3 : no run.");
  EXPECT_EQ(stored[29], "");
  EXPECT_THAT(commentary_lines(), IsEmpty());
  play({hit(1)});
  EXPECT_THAT(commentary_lines(), ElementsAre("H.Bat1 to A.Bowl1 : 1 run."));
  EXPECT_EQ(stored_commentary_lines(), stored);
}

TEST_F(Innings, ACommentaryBeyondItsPlacesIsAnError) {
  open(false, false);
  match.innings_total = 4;
  for (int line = 1; line <= 1498; ++line) match.ball_commentary.add_ball({ball_text::runs, 0, 1, 1});
  change_innings();
  EXPECT_THAT(stored_commentary_lines(), SizeIs(1499));
  open(false, false);
  for (int line = 1; line <= 1499; ++line) match.ball_commentary.add_ball({ball_text::runs, 0, 1, 1});
  EXPECT_THROW(change_innings(), run_time_error);
}

TEST_F(Innings, TheProjectionIsFrozenAtTheLastEndOfOver) {
  play_first_innings(false, false);
  EXPECT_EQ(match.first_innings_projection.text(), "18");  // 12 after 49 overs and 6
  play(times(6, hit(1)));
  EXPECT_EQ(match.first_innings_projection.text(), "18");
}

TEST_F(Innings, TheProjectionOfASideAllOutLooksFarAhead) {
  open(false, false);
  play(times(6, hit(1)) + std::vector{hit(4)} + times(10, out()));
  EXPECT_EQ(match.first_total, 10);
  EXPECT_EQ(match.first_innings_projection.text(), "298");  // 10 after two overs, and 288
}

TEST_F(Innings, WithoutACompletedOverThereIsNoProjection) {
  open(false, true);
  play({hit(1)});
  match.innings_total = match.score_runs;
  change_innings();
  EXPECT_EQ(match.first_innings_projection.text(), "-");
  match.innings_changed = false;
  ASSERT_TRUE(match.computer_bats);
  try {
    play({hit(0)});
    FAIL() << "the captain reckons with a dash";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::type);
  }
}

TEST_F(Innings, TheTableOfBowlersStartsAnew) {
  play_first_innings(false, false);
  EXPECT_THAT(view_bowler_list(), IsEmpty());
  play({hit(1)});
  ASSERT_THAT(view_bowler_list(), SizeIs(1));
  EXPECT_EQ(view_bowler_list()[0].label25, "H.Bat1");
}

}  // namespace
}  // namespace velorin::testing
