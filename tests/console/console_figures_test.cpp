// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/console_figures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_view.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

using slots = std::array<int, 2>;
using meters = std::array<double, 2>;

class Refresh : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.striker = 4;
    match.non_striker = 2;
    match.bowler = 8;
    match.next_bowler = 9;
    match.over_no = 1;
    for (int i = 1; i <= 11; ++i) match.bowling_card[i].name = match.bowling_xi[i].name;
  }
  static void batsman(int position, int runs, int balls) {
    match.batting_card[position].runs = runs;
    match.batting_card[position].balls = balls;
  }
  static void bowls(int position, int balls, int runs) {
    match.bowler = position;
    match.bowling_card[position].balls = balls;
    match.bowling_card[position].runs = runs;
    refresh_bowling_card(match);
  }
  /// The running table as a text.
  static std::string table() {
    std::string rows;
    for (const bowler_line& row : view_bowler_list(match)) {
      const auto& [overs, maidens, runs, wickets] = row.figures;
      rows += std::to_string(row.position) + ":" + overs + "-" + maidens + "-" + runs + "-" + wickets + " ";
    }
    return rows;
  }
};

TEST_F(Refresh, BatsmenMetersFollowThePositions) {
  batsman(2, 10, 7);
  batsman(4, 1, 30);
  refresh_batsmen(match);
  EXPECT_EQ(match.settled_meter, (meters{117.5, 85}));
  std::swap(match.striker, match.non_striker);
  refresh_batsmen(match);
  EXPECT_EQ(match.settled_meter, (meters{117.5, 85}));
  match.striker = 7;
  refresh_batsmen(match);
  EXPECT_EQ(match.settled_meter, (meters{85, 0}));
}

TEST_F(Refresh, BatsmenMetersEndAt915) {
  batsman(2, 90, 6);
  batsman(4, 91, 1);
  refresh_batsmen(match);
  EXPECT_EQ(match.settled_meter, (meters{915, 912.5}));
  batsman(2, 150, 90);
  batsman(4, 0, 366);
  refresh_batsmen(match);
  EXPECT_EQ(match.settled_meter, (meters{915, 915}));
}

TEST_F(Refresh, TheTableOfBowlersIsInTheOrderOfTheirFirstOvers) {
  EXPECT_EQ(table(), "");
  bowls(8, 1, 4);
  bowls(8, 6, 4);
  bowls(11, 1, 0);
  bowls(8, 7, 5);
  bowls(2, 1, 6);
  EXPECT_EQ(table(), "8:1.1-0-5-0 11:0.1-0-0-0 2:0.1-0-6-0 ");
}

TEST_F(Refresh, OnlyTheRowOfTheCurrentBowlerIsRewritten) {
  bowls(8, 6, 4);
  match.bowling_card[8].maidens = 1;
  match.bowling_card[8].wickets = 3;
  bowls(9, 1, 1);
  EXPECT_EQ(table(), "8:1.0-0-4-0 9:0.1-0-1-0 ");
  match.bowler = 8;
  refresh_bowling_card(match);
  EXPECT_EQ(table(), "8:1.0-1-4-3 9:0.1-0-1-0 ");
}

TEST_F(Refresh, TheEleventhBowlerHasNoRow) {
  for (int position = 11; position >= 1; --position) bowls(position, 1, position);
  EXPECT_EQ(view_bowler_list(match).size(), 10U);
  EXPECT_EQ(view_bowler_list(match).back().position, 2);
  bowls(1, 2, 9);
  EXPECT_EQ(view_bowler_list(match).size(), 10U);
  bowls(2, 2, 9);
  EXPECT_THAT(view_bowler_list(match).back().figures, ElementsAre("0.2", "0", "9", "0"));
}

TEST_F(Refresh, RatesExchangeTheBowlingAggressions) {
  match.bowling_aggression = {4, 1};
  match.batsman_aggression = {2, 3};
  refresh_rates(match);
  EXPECT_EQ(match.bowling_aggression, (slots{1, 4}));
  EXPECT_EQ(match.batsman_aggression, (slots{2, 3}));
  refresh_rates(match);
  EXPECT_EQ(match.bowling_aggression, (slots{4, 1}));
}

TEST_F(Refresh, TheClockGainsFourMinutes) {
  match.clock_minutes = 630;
  advance_clock(match);
  EXPECT_EQ(match.clock_minutes, 634);
  EXPECT_EQ(view_score(match).time_of_day, "10:34");
}

// The change of innings.

TEST_F(Refresh, TheProjectionIsFrozenAsLastRefreshed) {
  match.score_runs = 240;
  match.innings_balls = 294;
  refresh_rates(match);
  match.score_runs = 255;
  match.innings_balls = 300;
  prepare_chase_display(match);
  EXPECT_EQ(match.first_innings_projection.text(), "246");
  EXPECT_EQ(match.score_runs, 0);
  EXPECT_EQ(match.score_wickets, 0);
}

TEST_F(Refresh, AnInningsAllOutEarlyFreezesMoreThanItsTotal) {
  match.score_runs = 40;
  match.innings_balls = 60;
  refresh_rates(match);
  match.score_runs = 41;
  match.innings_balls = 63;
  prepare_chase_display(match);
  EXPECT_EQ(match.first_innings_projection.text(), "280");
}

TEST_F(Refresh, WithoutACompletedOverTheProjectionIsADash) {
  refresh_rates(match);
  match.score_runs = 3;
  match.innings_balls = 5;
  prepare_chase_display(match);
  EXPECT_EQ(match.first_innings_projection.text(), "-");
}

TEST_F(Refresh, FrozenTwiceWithoutARefreshItIsEmpty) {
  refresh_rates(match);
  prepare_chase_display(match);
  prepare_chase_display(match);
  EXPECT_EQ(match.first_innings_projection.text(), "");
}

TEST_F(Refresh, TheChangeOfInningsEmptiesTheTable) {
  bowls(8, 6, 4);
  match.score_wickets = 10;
  prepare_chase_display(match);
  EXPECT_TRUE(view_bowler_list(match).empty());
  EXPECT_EQ(match.score_wickets, 0);
}

}  // namespace
}  // namespace velorin::testing
