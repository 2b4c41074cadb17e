// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_figures.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class OverLog : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.team1_name = "New Home";
    match.over_no = 12;
    match.striker = 5;
    match.non_striker = 3;
    match.bowler = 9;
    match.next_bowler = 8;
    for (int i = 1; i <= 11; ++i) {
      match.batting_card[i].name = match.batting_xi[i].name;
      match.bowling_card[i].name = match.bowling_xi[i].name;
    }
    match.batting_card[3].runs = 30;
    match.batting_card[3].balls = 41;
    match.batting_card[5].runs = 2;
    match.batting_card[5].balls = 9;
    match.bowling_card[9].balls = 36;
    match.bowling_card[9].maidens = 1;
    match.bowling_card[9].runs = 22;
    match.bowling_card[9].wickets = 2;
    match.score_runs = 58;
    match.score_wickets = 3;
    match.innings_balls = 72;
  }
  static void over(std::array<const char*, 6> symbols) {
    for (int slot = 1; slot <= 6; ++slot) {
      match.ball_log[match.over_no][slot] = symbols[static_cast<std::size_t>(slot) - 1];
    }
    match.ball_log[match.over_no][7] = "7";
  }
};

TEST_F(OverLog, HasTwelveLines) {
  over({"1", "W", "4", "0", "", "3"});
  log_over(match);
  EXPECT_THAT(commentary_lines(match),
              ElementsAre("-----------------", "End of Over No.12     (8 runs)", "NH   58/3", "-----------------",
                          " Run Rate : 4.83", "-----------------", "H.Bat3     30 (41)", "H.Bat5     2 (9)",
                          "-----------------", "A.Bowl9     6.0-1-22-2", "=================", ""));
}

TEST_F(OverLog, TheLowerPositionComesFirstWhicheverEndHeIsAt) {
  std::swap(match.striker, match.non_striker);
  log_over(match);
  EXPECT_EQ(commentary_lines(match)[6], "H.Bat3     30 (41)");
  EXPECT_EQ(commentary_lines(match)[7], "H.Bat5     2 (9)");
}

TEST_F(OverLog, OnlyNumbersOfTheSixBallsAreAdded) {
  over({"", "W", "W", "", "W", ""});
  log_over(match);
  EXPECT_EQ(commentary_lines(match)[1], "End of Over No.12     (0 runs)");
  over({"6", "12", "W", "4", "0", "1"});
  log_over(match);
  EXPECT_EQ(commentary_lines(match)[13], "End of Over No.12     (23 runs)");
}

TEST_F(OverLog, KeepsTheFiguresOfItsMoment) {
  log_over(match);
  match.batting_card[3].runs = 99;
  match.bowling_card[9].runs = 50;
  match.score_runs = 200;
  std::swap(match.bowler, match.next_bowler);
  log_over(match);
  const auto lines = commentary_lines(match);
  ASSERT_EQ(lines.size(), 24U);
  EXPECT_EQ(lines[2], "NH   58/3");
  EXPECT_EQ(lines[6], "H.Bat3     30 (41)");
  EXPECT_EQ(lines[9], "A.Bowl9     6.0-1-22-2");
  EXPECT_EQ(lines[14], "NH   200/3");
  EXPECT_EQ(lines[18], "H.Bat3     99 (41)");
  EXPECT_EQ(lines[21], "A.Bowl8     0.0-0-0-0");
}

TEST_F(OverLog, RatesAreWrittenAsTheyCome) {
  match.team1_name = "Home";
  match.score_runs = 72;
  log_over(match);
  EXPECT_EQ(commentary_lines(match)[2], "Hom   72/3");
  EXPECT_EQ(commentary_lines(match)[4], " Run Rate : 6");
  match.score_runs = 54;
  log_over(match);
  EXPECT_EQ(commentary_lines(match)[16], " Run Rate : 4.5");
}

}  // namespace
}  // namespace velorin::testing
