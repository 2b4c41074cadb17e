// SPDX-License-Identifier: GPL-3.0-or-later
// What the console writes of an over: commentary, the block at its end, the table of bowlers, clock, rates.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/console_view.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class OverLines : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
  }
};

TEST_F(OverLines, EveryKindOfBallAndTheBlock) {
  play({hit(1), hit(wide_ball), off_the_pad(leg_byes, 3), hit(4), out(46, 3), hit(no_ball), hit(0), hit(no_ball),
        hit(2)});
  // The no ball behind the wicket has no line; it made a seventh ball of the over.
  EXPECT_THAT(commentary_lines(match), ElementsAreArray({"A.Bowl1 to H.Bat1 : 1 run.",
                                                         "A.Bowl1 to H.Bat2 : Wide.",
                                                         "A.Bowl1 to H.Bat1 : 3Leg Bye(s).",
                                                         "A.Bowl1 to H.Bat1 : 4 runs.",
                                                         "A.Bowl1 to H.Bat1 : Wicket!",
                                                         "--------------------",
                                                         "H.Bat1   c A.Bowl3  b A.Bowl1 5 (3)",
                                                         "Fours : 1   Sixes : 0",
                                                         "--------------------",
                                                         "A.Bowl1 to H.Bat3 : no run.",
                                                         "A.Bowl1 to H.Bat3 : no ball.",
                                                         "A.Bowl1 to H.Bat3 : 2 runs.",
                                                         "-----------------",
                                                         "End of Over No.1     (12 runs)",
                                                         "Hom   10/1",
                                                         "-----------------",
                                                         " Run Rate : 8.57",
                                                         "-----------------",
                                                         "H.Bat2     0 (1)",
                                                         "H.Bat3     2 (2)",
                                                         "-----------------",
                                                         "A.Bowl1     1.1-0-7-1",
                                                         "=================",
                                                         ""}));
}

TEST_F(OverLines, ThreesNameTheManWhoHitThem) {
  play({hit(3), hit(6), off_the_pad(byes, 1), off_the_pad(leg_byes, 4)});
  EXPECT_THAT(commentary_lines(match), ElementsAre("A.Bowl1 to H.Bat1 : 3 runs.", "A.Bowl1 to H.Bat2 : 6 runs.",
                                                   "A.Bowl1 to H.Bat1 : 1Bye(s).", "A.Bowl1 to H.Bat1 : 4Leg Bye(s)."));
}

TEST_F(OverLines, TheBlockKeepsTheFiguresOfItsOver) {
  play(times(6, hit(0)) + times(6, hit(1)) + std::vector{hit(4)});
  const std::vector<std::string> lines = commentary_lines(match);
  ASSERT_EQ(lines.size(), 37U);
  EXPECT_THAT(std::vector(lines.begin() + 6, lines.begin() + 18),
              ElementsAre("-----------------", "End of Over No.1     (0 runs)", "Hom   0/0", "-----------------",
                          " Run Rate : 0", "-----------------", "H.Bat1     0 (6)", "H.Bat2     0 (0)",
                          "-----------------", "A.Bowl1     1.0-1-0-0", "=================", ""));
  EXPECT_THAT(std::vector(lines.begin() + 24, lines.begin() + 36),
              ElementsAre("-----------------", "End of Over No.2     (6 runs)", "Hom   6/0", "-----------------",
                          " Run Rate : 3", "-----------------", "H.Bat1     3 (9)", "H.Bat2     3 (3)",
                          "-----------------", "A.Bowl2     1.0-0-6-0", "=================", ""));
  EXPECT_EQ(lines[36], "A.Bowl1 to H.Bat1 : 4 runs.");
}

TEST_F(OverLines, TheTableOfBowlersGoesByTheirComingOn) {
  match.bowling_card[2].name = "B.Longfellowes";
  play(times(6, hit(0)) + times(6, hit(1)));
  match.bowler = 9;
  play({hit(2)});
  const std::vector<bowler_line> rows = view_bowler_list(match);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].name, "A.Bowl1");
  // The maiden is credited behind the last refresh of his row.
  EXPECT_THAT(rows[0].figures, ElementsAre("1.0", "0", "0", "0"));
  EXPECT_EQ(rows[1].name, "B.Longfe'es");
  EXPECT_THAT(rows[1].figures, ElementsAre("1.0", "0", "6", "0"));
  EXPECT_EQ(rows[2].name, "A.Bowl9");
  EXPECT_THAT(rows[2].figures, ElementsAre("0.1", "0", "2", "0"));
}

TEST_F(OverLines, ARowIsRewrittenWhenItsManBowlsAgain) {
  play(times(12, hit(0)) + std::vector{hit(0)});
  ASSERT_EQ(view_bowler_list(match).size(), 2U);
  EXPECT_THAT(view_bowler_list(match)[0].figures, ElementsAre("1.1", "1", "0", "0"));
}

TEST_F(OverLines, TheEleventhBowlerHasNoRow) {
  for (int bowler = 1; bowler <= 11; ++bowler) {
    match.bowler = bowler;
    match.next_bowler = bowler % 11 + 1;
    play(times(6, hit(0)));
  }
  const std::vector<bowler_line> rows = view_bowler_list(match);
  ASSERT_EQ(rows.size(), 10U);
  for (int row = 1; row <= 10; ++row) EXPECT_EQ(rows[row - 1].position, row);
}

TEST_F(OverLines, TheClockGainsFourMinutesAnOver) {
  play(times(12, hit(0)) + times(3, hit(0)));
  EXPECT_EQ(match.clock_minutes, 638);
  EXPECT_EQ(view_score(match).time_of_day, "10:38");
}

TEST_F(OverLines, TheHeadOfTheScore) {
  play({hit(4), hit(1), out()});
  const score_view view = view_score(match);
  EXPECT_EQ(view.score, "5/1");
  EXPECT_EQ(view.overs, "0.3 Overs");
  EXPECT_EQ(view.run_rate, "10");
  EXPECT_EQ(view_batsman(match, 0).name, "H.Bat1");
  EXPECT_EQ(view_batsman(match, 0).runs, 5);
  EXPECT_EQ(view_batsman(match, 0).fours, 1);
  EXPECT_EQ(view_batsman(match, 1).name, "H.Bat3 *");
}

TEST_F(OverLines, TheProjectionsAreThoseOfTheLastEndOfOver) {
  play({hit(6), hit(1), hit(0), hit(4), hit(0), hit(0), hit(6)});
  std::vector<std::string> shown;
  for (const rate_cell& cell : view_rates(match).cells) shown.push_back(cell.heading + ": " + cell.text);
  // 11 off 6, 294 balls left.
  EXPECT_THAT(shown, ElementsAre("Current RR: 550", "4 per over: 207", "6 per over: 305", "8 per over: 403",
                                 "10 per over: 501"));
}

TEST_F(OverLines, TheLastFiveOversAreShownFromTheFifthOn) {
  for (int over = 1; over <= 4; ++over) {
    play({hit(over), hit(0), hit(0), hit(0), hit(0), hit(0)});
    EXPECT_EQ(view_rates(match).last_five_overs, " - ") << over;
  }
  play({hit(4), hit(wide_ball), hit(6), hit(6), hit(0), hit(0), off_the_pad(byes, 3)});
  EXPECT_EQ(view_rates(match).last_five_overs, "6");  // 1 + 2 + 3 + 4 + 20, the wide among them
  play({hit(6), out(), hit(0), hit(0), hit(0), hit(0)});
  EXPECT_EQ(view_rates(match).last_five_overs, "7");
  play({hit(1), hit(1)});
  EXPECT_EQ(view_rates(match).last_five_overs, "7");
}

TEST_F(OverLines, TheLastFiveOversEndWithTheLastCompletedOne) {
  // No balls behind a wicket count: twelve balls in the first over, so that five overs have the balls of six.
  play(std::vector{out()} + times(6, hit(no_ball)) + times(5, hit(2)));
  for (int over = 2; over <= 5; ++over) play({hit(1), hit(0), hit(0), hit(0), hit(0), hit(0)});
  ASSERT_EQ(match.innings_balls, 36);
  EXPECT_EQ(view_rates(match).last_five_overs, "0.8");  // overs 2 to 5, the first being six overs back
  play({hit(6), hit(6)});
  EXPECT_EQ(view_rates(match).last_five_overs, "0.8");
}

TEST_F(OverLines, NothingIsWrittenBeforeTheFirstBall) {
  EXPECT_THAT(commentary_lines(match), IsEmpty());
  EXPECT_THAT(stored_commentary_lines(match), IsEmpty());
  EXPECT_THAT(view_bowler_list(match), IsEmpty());
}

}  // namespace
}  // namespace velorin::testing
