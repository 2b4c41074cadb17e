// SPDX-License-Identifier: GPL-3.0-or-later
// The check of the match's invariants: a match in play passes, and each figure put out of joint is named.
#include "model/check_match.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

class CheckMatch : public match_test {
 protected:
  /// Nineteen balls of a first innings with something of everything, 3 wickets down.
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
    play({hit(1), hit(2), hit(3), hit(4), hit(6), hit(0)});
    play({hit(0), out(), off_the_pad(byes, 2), hit(1), hit(wide_ball), out(31, 4), off_the_pad(leg_byes, 1)});
    play({hit(1), hit(no_ball), hit(0), out(50, 3), hit(4), hit(0), hit(0), hit(1)});
    ASSERT_EQ(check_match(match), "");
  }

  static void expect_named(const std::string& what) { EXPECT_THAT(check_match(match), HasSubstr(what)); }
};

TEST_F(CheckMatch, AnOverBegunBeyondTheQuota) {
  // One man bowls all 66 balls, so that the balls at the last end of an over were all his.
  for (int i = 1; i <= 11; ++i) match.bowling_card[i].balls = match.bowling_card[i].maidens = 0;
  match.bowling_card[match.bowler].balls = 66;
  match.innings_balls = 66;
  // What counts of the over in progress he has bowled in it; the rest was behind him when it began.
  const men_at_work men = {match.bowler, match.striker, match.non_striker};
  const delivery ball = ball_of_runs(0, men, match.over_no);
  std::erase_if(match.deliveries, [&](const delivery& other) { return other.over == ball.over; });
  match.deliveries.insert(match.deliveries.end(), 7, ball);
  match.deliveries.push_back(wide_on(6, men, match.over_no));
  EXPECT_EQ(check_match(match), "");
  match.deliveries.erase(match.deliveries.end() - 2);
  expect_named("began an over with 60 balls");
}

TEST_F(CheckMatch, RunsThatTheStrokesDoNotGive) {
  match.batting_card[1].runs += 1;
  expect_named("batting_card 1: ");
}

TEST_F(CheckMatch, AStrokeTooMany) {
  for (integer batting_card_rec::*stroke :
       {&batting_card_rec::fours, &batting_card_rec::sixes, &batting_card_rec::twos, &batting_card_rec::threes,
        &batting_card_rec::singles, &batting_card_rec::dots}) {
    match.batting_card[2].*stroke += 1;
    expect_named("batting_card 2: ");
    match.batting_card[2].*stroke -= 1;
  }
  EXPECT_EQ(check_match(match), "");
}

TEST_F(CheckMatch, BallsThatTheStrokesDoNotGive) {
  match.batting_card[2].balls += 1;
  expect_named("batting_card 2: ");
}

TEST_F(CheckMatch, AManWithoutAName) {
  match.batting_card[2].name.clear();
  expect_named("batting_card 2: balls without a name");
}

TEST_F(CheckMatch, BallsOfTheBowlers) {
  match.bowling_card[5].balls += 1;
  expect_named("bowling_card: ");
  expect_named("innings_balls");
}

TEST_F(CheckMatch, RunsOfTheBowlers) {
  match.bowling_card[1].runs += 1;
  expect_named("bowling_card: ");
}

TEST_F(CheckMatch, MaidensWithoutOvers) {
  match.bowling_card[1].maidens = 4;
  expect_named("bowling_card 1: more maidens than overs");
}

TEST_F(CheckMatch, WicketsOfTheBowlers) {
  match.bowling_card[1].wickets += 1;
  expect_named("score_wickets");
}

TEST_F(CheckMatch, WicketsOfTheSide) {
  match.score_wickets += 1;
  expect_named("score_wickets");
}

TEST_F(CheckMatch, TheScore) {
  match.score_runs += 1;
  expect_named("score_runs");
}

TEST_F(CheckMatch, ByesAndLegByes) {
  match.innings_byes += 1;
  expect_named("score_runs");
  match.innings_byes -= 1;
  match.innings_leg_byes += 1;
  expect_named("score_runs");
}

TEST_F(CheckMatch, DeliveriesOfMoreRunsThanTheScore) {
  match.deliveries[1].runs += 1;
  expect_named("deliveries: ");
  expect_named("score_runs");
}

TEST_F(CheckMatch, DeliveriesOfMoreBallsThanTheInnings) {
  const auto wide = std::find_if(match.deliveries.begin(), match.deliveries.end(),
                                 [](const delivery& ball) { return !ball.counted; });
  ASSERT_NE(wide, match.deliveries.end());
  wide->counted = true;
  expect_named("deliveries: ");
  expect_named("innings_balls");
}

TEST_F(CheckMatch, DeliveriesOfMoreWicketsThanHaveFallen) {
  match.deliveries[5].outcome = wicket;
  expect_named("deliveries: ");
  expect_named("score_wickets");
}

TEST_F(CheckMatch, PositionsOfTheBowlers) {
  for (const int position : {-1, 0, 12}) {
    match.bowler = position;
    expect_named("bowlers at");
    match.bowler = 1;
    match.next_bowler = position;
    expect_named("bowlers at");
    match.next_bowler = 2;
  }
}

TEST_F(CheckMatch, PositionsOfTheBatsmen) {
  const int striker = match.striker;
  for (const int position : {-1, 0, 12, static_cast<int>(match.non_striker)}) {
    match.striker = position;
    expect_named("batsmen at");
  }
  match.striker = striker;
  match.non_striker = 0;
  expect_named("batsmen at");
}

TEST_F(CheckMatch, TheOver) {
  for (const int over : {0, 51}) {
    match.over_no = over;
    expect_named("over_no");
  }
}

TEST_F(CheckMatch, TheBallsOfTheInnings) {
  for (const int balls : {-1, 301}) {
    match.innings_balls = balls;
    expect_named("innings_balls");
  }
}

TEST_F(CheckMatch, TheNumberOfWickets) {
  for (const int wickets : {-1, 11}) {
    match.score_wickets = wickets;
    expect_named("score_wickets");
  }
}

TEST_F(CheckMatch, TheOutcome) {
  for (const int outcome : {-1, 5, 12}) {
    match.ball_outcome = outcome;
    expect_named("ball_outcome");
  }
}

TEST_F(CheckMatch, TheAggressions) {
  for (const int aggression : {0, 6}) {
    for (const int slot : {0, 1}) {
      match.batsman_aggression[slot] = aggression;
      expect_named("aggressions");
      match.batsman_aggression[slot] = 3;
      match.bowling_aggression[slot] = aggression;
      expect_named("aggressions");
      match.bowling_aggression[slot] = 3;
    }
  }
}

TEST_F(CheckMatch, TheMeters) {
  for (const double meter : {-0.5, 915.5}) {
    for (const int slot : {0, 1}) {
      match.settled_meter[slot] = meter;
      expect_named("settled_meter");
      match.settled_meter[slot] = 0;
    }
  }
}

TEST_F(CheckMatch, TheStoreOfCommentary) {
  match.first_deliveries = delivery_list(1498, ball_of_runs(0));
  EXPECT_EQ(check_match(match), "");
  match.first_deliveries.push_back(ball_of_runs(0));
  expect_named("commentary_store");
}

TEST_F(CheckMatch, MoreBallsFacedThanBowled) {
  match.batting_card[1].balls += 9;
  match.batting_card[1].dots += 9;
  expect_named("batsmen faced");
}

TEST_F(CheckMatch, AThirdInningsIsNotJudged) {
  match.innings_number = 3;
  match.score_runs += 1;
  EXPECT_EQ(check_match(match), "");
}

TEST_F(CheckMatch, ASecondInningsIs) {
  match.innings_number = 2;
  match.score_runs += 1;
  expect_named("score_runs");
}

}  // namespace
}  // namespace velorin::testing
