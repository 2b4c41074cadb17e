// SPDX-License-Identifier: GPL-3.0-or-later
// No balls and wides, which stand on the log entry of the ball before.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "model/check_match.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Extras : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
  }
  static std::vector<std::string> log_of(int over) { return log_of_over(innings_in_play(match), over); }
};

TEST_F(Extras, AFirstBallWideIsALegalBallThatLeavesNoTrace) {
  play({hit(wide_ball)});
  EXPECT_EQ(match.innings_balls, 1);
  EXPECT_EQ(match.bowling_card[1].balls, 1);
  EXPECT_EQ(match.innings_wides, 0);
  EXPECT_EQ(match.score_runs, 0);
  EXPECT_EQ(match.batting_card[1].balls, 0);
  EXPECT_THAT(log_of(1), ElementsAre("", "", "", "", "", "", ""));
  EXPECT_THAT(commentary_lines(match), IsEmpty());
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Extras, TheOverAfterAFirstBallWideHasFiveMoreBalls) {
  play({hit(no_ball), hit(0), hit(0), hit(0), hit(0), hit(0)});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.innings_balls, 6);
  EXPECT_EQ(match.innings_no_balls, 0);
  EXPECT_THAT(log_of(1), ElementsAre("", "0", "0", "0", "0", "0", "A.Bowl1"));
  EXPECT_EQ(match.bowling_card[1].maidens, 1);
}

TEST_F(Extras, ASecondExtraBehindAFirstBallWideCountsAsWell) {
  // The second wide goes back to the empty first slot, counts, and the second slot is bowled again.
  play({hit(wide_ball), hit(wide_ball), hit(1), hit(0), hit(0), hit(0), hit(0)});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.innings_balls, 7);
  EXPECT_EQ(match.innings_wides, 0);
  EXPECT_THAT(log_of(1), ElementsAre("", "1", "0", "0", "0", "0", "A.Bowl1"));
}

TEST_F(Extras, AWideRaisesTheEntryBeforeAndIsNotCounted) {
  play({hit(1), hit(wide_ball)});
  EXPECT_THAT(log_of(1), ElementsAre("2", "", "", "", "", "", ""));
  EXPECT_THAT(over_symbols(match), ElementsAre("1", "", "", "", "", ""));
  EXPECT_EQ(match.innings_wides, 1);
  EXPECT_EQ(match.innings_balls, 1);
  EXPECT_EQ(match.overs_text(), "0.1");
  EXPECT_EQ(match.bowling_card[1].balls, 1);
  EXPECT_EQ(match.bowling_card[1].runs, 1);
  EXPECT_EQ(match.score_runs, 1);
  EXPECT_EQ(match.batting_card[2].balls, 0);
  EXPECT_EQ(match.striker, 2);
}

TEST_F(Extras, TwoWidesRunningAfterASingleMakeThree) {
  play({hit(1), hit(wide_ball), hit(wide_ball), hit(4)});
  EXPECT_THAT(log_of(1), ElementsAre("3", "4", "", "", "", "", ""));
  EXPECT_EQ(match.innings_wides, 2);
  EXPECT_EQ(match.innings_balls, 2);
  EXPECT_EQ(match.score_runs, 5);
}

TEST_F(Extras, ANoBallIsCountedApart) {
  play({hit(4), hit(no_ball), hit(wide_ball), hit(no_ball), hit(0)});
  EXPECT_THAT(log_of(1), ElementsAre("7", "0", "", "", "", "", ""));
  EXPECT_EQ(match.innings_no_balls, 2);
  EXPECT_EQ(match.innings_wides, 1);
  EXPECT_EQ(match.score_runs, 4);
  EXPECT_EQ(match.bowling_card[1].runs, 4);
}

TEST_F(Extras, AWideAfterLegByesRaisesTheBareCount) {
  play({off_the_pad(leg_byes, 2), hit(wide_ball)});
  EXPECT_THAT(log_of(1), ElementsAre("3", "", "", "", "", "", ""));
  EXPECT_THAT(over_symbols(match), ElementsAre("2lb", "", "", "", "", ""));
  EXPECT_EQ(match.innings_leg_byes, 2);
  EXPECT_EQ(match.innings_wides, 1);
}

TEST_F(Extras, AWideOnTheSixthBallIsBowledAgain) {
  play({hit(0), hit(0), hit(0), hit(0), hit(2), hit(wide_ball), hit(0)});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.innings_balls, 6);
  EXPECT_THAT(log_of(1), ElementsAre("0", "0", "0", "0", "3", "0", "A.Bowl1"));
}

TEST_F(Extras, ANoBallBehindAWicketGivesASeventhCountedBall) {
  play({hit(0), out(), hit(no_ball), hit(0), hit(0), hit(0), hit(0)});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.innings_balls, 7);
  EXPECT_EQ(match.overs_text(), "1.1");
  EXPECT_EQ(match.bowling_card[1].balls, 7);
  EXPECT_EQ(match.innings_no_balls, 0);
  EXPECT_THAT(log_of(1), ElementsAre("0", "W", "0", "0", "0", "0", "A.Bowl1"));
  // The man in faced the four balls that had a result.
  EXPECT_EQ(match.batting_card[3].balls, 4);
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Extras, EachExtraBehindAWicketCountsOnceMore) {
  play({out(), hit(wide_ball), hit(wide_ball), hit(no_ball), hit(1)});
  EXPECT_EQ(match.innings_balls, 5);
  EXPECT_EQ(match.innings_wides, 0);
  EXPECT_THAT(log_of(1), ElementsAre("W", "1", "", "", "", "", ""));
}

TEST_F(Extras, AWideBehindTheBallAfterAWicketIsAnOrdinaryOne) {
  play({out(), hit(2), hit(wide_ball), hit(0)});
  EXPECT_THAT(log_of(1), ElementsAre("W", "3", "0", "", "", "", ""));
  EXPECT_EQ(match.innings_balls, 3);
  EXPECT_EQ(match.innings_wides, 1);
}

TEST_F(Extras, ManyExtrasMakeALongNumber) {
  play(std::vector{hit(6)} + times(9, hit(wide_ball)) + std::vector{hit(0)});
  EXPECT_THAT(log_of(1), ElementsAre("15", "0", "", "", "", "", ""));
  EXPECT_EQ(match.innings_wides, 9);
}

TEST_F(Extras, ExtrasDoNotSpoilAMaiden) {
  play({hit(0), hit(wide_ball), hit(0), hit(no_ball), hit(0), hit(0), hit(0), hit(0)});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.bowling_card[1].maidens, 1);
  EXPECT_EQ(match.bowling_card[1].runs, 0);
}

TEST_F(Extras, TheEntryBeforeIsOneOfThisOver) {
  play(times(6, hit(4)) + std::vector{hit(wide_ball)});
  EXPECT_THAT(log_of(1), ElementsAre("4", "4", "4", "4", "4", "4", "A.Bowl1"));
  EXPECT_EQ(match.innings_wides, 0);
  EXPECT_EQ(match.innings_balls, 7);
}

}  // namespace
}  // namespace velorin::testing
