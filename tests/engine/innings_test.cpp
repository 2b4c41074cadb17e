// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the first innings and the opening of the second.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "model/check_match.h"
#include "model/stands.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Innings : public match_test {};

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
  EXPECT_EQ(match.next_step, play_step::between_overs);
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Innings, TheCardsChangePlaces) {
  play_first_innings(false, false);
  EXPECT_EQ(match.first_batting_card[1].how_out, "not out");
  EXPECT_EQ(match.first_batting_card[3].how_out, "not out");
  EXPECT_EQ(match.first_batting_card[2].how_out, " b A.Bowl2");
  EXPECT_EQ(match.first_batting_card[2].fielder, " c A.Bowl7");
  EXPECT_EQ(match.first_batting_card[4].how_out, "");
  EXPECT_EQ(match.first_batting_card[1].how, dismissal::not_out);
  EXPECT_EQ(match.first_batting_card[3].how, dismissal::not_out);
  EXPECT_EQ(match.first_batting_card[2].how, dismissal::caught);
  EXPECT_EQ(match.first_batting_card[2].fielder_position, 7);
  EXPECT_EQ(match.first_batting_card[4].how, dismissal::none);
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
  const fall_of_wicket_rec stand = falls_before(match)[2];
  EXPECT_EQ(stand.batsman_a, "H.Bat1");
  EXPECT_EQ(stand.batsman_b, "H.Bat3 * ");
  EXPECT_EQ(stand.partner_runs, 6);
  EXPECT_EQ(stand.partner_balls, 4);
  EXPECT_EQ(stand.score, 0);
  EXPECT_EQ(stand.balls, 0);
  EXPECT_EQ(falls_before(match)[1].partner_runs, 16);
  EXPECT_EQ(falls_before(match)[1].balls, 296);
  EXPECT_EQ(falls_before(match)[3].batsman_a, "");
  for (const fall_of_wicket_rec& fall : falls_in_play(match)) EXPECT_EQ(fall.batsman_b, "");
}

TEST_F(Innings, AStrikerWhoIsTheLowerIsNamedTwice) {
  open(false, false);
  skip_to_over(50);
  play(times(5, hit(0)) + std::vector{hit(2)});
  EXPECT_EQ(falls_before(match)[1].batsman_a, "H.Bat1");
  EXPECT_EQ(falls_before(match)[1].batsman_b, "H.Bat1 * ");
  EXPECT_EQ(falls_before(match)[1].partner_runs, 2);
  EXPECT_EQ(falls_before(match)[1].partner_balls, 300);
}

TEST_F(Innings, NineDownTheLastPairHasAStand) {
  open(false, false);
  skip_to_over(48);
  play(times(9, out()) + std::vector{hit(1)} + times(8, hit(0)));
  EXPECT_EQ(match.first_wickets, 9);
  EXPECT_EQ(falls_before(match)[10].batsman_a, "H.Bat8");
  EXPECT_EQ(falls_before(match)[10].partner_runs, 1);
  EXPECT_EQ(falls_before(match)[10].partner_balls, 9);
  EXPECT_EQ(match.first_batting_card[8].how_out, "not out");
  EXPECT_EQ(match.first_batting_card[11].how_out, "not out");
}

TEST_F(Innings, AllOutNobodyIsNotOut) {
  open(false, false);
  play(std::vector{hit(1)} + times(10, out()));
  EXPECT_EQ(match.first_wickets, 10);
  for (int i = 1; i <= 11; ++i) {
    EXPECT_NE(match.first_batting_card[i].how_out, "not out") << i;
    EXPECT_NE(match.first_batting_card[i].how, dismissal::not_out) << i;
  }
  EXPECT_EQ(match.first_batting_card[11].how_out, " b A.Bowl2");
  EXPECT_EQ(falls_before(match)[10].batsman_b, "H.Bat11");
}

TEST_F(Innings, TheSecondInningsHasItsOwnMilestones) {
  open(false, false);
  skip_to_over(49);
  play(times(12, hit(6)));
  EXPECT_EQ(match.stand50_list[1], "H.Bat1H.Bat2");
  user.messages.clear();
  skip_to_over(49);
  play(times(11, hit(6)));
  ASSERT_THAT(texts_of(" Partnership"), ElementsAre("A.Bowl1 & A.Bowl2 have put on a Fifty run partnership! "));
  EXPECT_EQ(match.stand50_list[2], "A.Bowl1A.Bowl2");
}

TEST_F(Innings, TheSameBowlerAndBatsmanReachTheirsInTurn) {
  open(false, false);
  play(times(5, out()) + std::vector{hit(0)} + times(6, hit(0)));  // five wickets for the man at 1
  play(times(6, hit(6)) + times(6, hit(0)) + times(6, hit(6)));    // a fifty for the man at 7
  play(times(5, out()));
  ASSERT_EQ(match.innings_number, 2);
  EXPECT_EQ(match.fifty_list[1], "H.Bat7");
  user.messages.clear();
  play(times(5, out()) + std::vector{hit(0)} + times(6, hit(0)));
  play(times(6, hit(6)) + times(6, hit(0)) + times(5, hit(6)));
  EXPECT_THAT(texts_of("H.Bat1 - Bowling achievement"), SizeIs(1));
  EXPECT_THAT(texts_of("A.Bowl7 - Batting achievement"), SizeIs(1));
}

TEST_F(Innings, TheLastOverIsNotClosed) {
  play_first_innings(false, false);
  const told_innings before = innings_before(match);
  EXPECT_THAT(log_of_over(before, 49), ElementsAre("2", "2", "2", "2", "2", "2", "A.Bowl1"));
  EXPECT_THAT(log_of_over(before, 50), ElementsAre("4", "W", "2", "3", "2", "0", ""));
  EXPECT_TRUE(match.deliveries.empty());
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

}  // namespace
}  // namespace velorin::testing
