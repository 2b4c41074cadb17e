// SPDX-License-Identifier: GPL-3.0-or-later
// The falls of wickets and the stands between them, made from the deliveries.
#include "model/stands.h"

#include <gtest/gtest.h>

#include <string>

#include "model/match_state.h"
#include "support/deliveries.h"

namespace velorin::testing {
namespace {

/// A side whose men are called H.Bat1 to H.Bat11, with stands of 37 runs by 1 and 2 and none by 2 and 3.
match_state two_down() {
  match_state match;
  for (int i = 1; i <= 11; ++i) match.batting_card[i].name = "H.Bat" + std::to_string(i);
  add_stand(match.deliveries, {37, 50, 2, 1});
  add_stand(match.deliveries, {0, 1, 2, 3});
  match.score_runs = 37;
  match.score_wickets = 2;
  match.innings_balls = 51;
  return match;
}

TEST(Stands, FallsOfWicketCountFromTheOneBefore) {
  const fall_of_wicket_table falls = falls_in_play(two_down());
  EXPECT_EQ(falls[1].score, 37);
  EXPECT_EQ(falls[1].partner_runs, 37);
  EXPECT_EQ(falls[1].balls, 50);
  EXPECT_EQ(falls[1].partner_balls, 50);
  EXPECT_EQ(falls[1].batsman_a, "H.Bat2");
  EXPECT_EQ(falls[1].batsman_b, "H.Bat1");
  EXPECT_EQ(falls[2].score, 37);
  EXPECT_EQ(falls[2].partner_runs, 0);
  EXPECT_EQ(falls[2].balls, 51);
  EXPECT_EQ(falls[2].partner_balls, 1);
  EXPECT_EQ(falls[2].batsman_a, "H.Bat2");
  EXPECT_EQ(falls[2].batsman_b, "H.Bat3");
  EXPECT_EQ(falls[0].balls, 0);
  EXPECT_EQ(falls[3].batsman_a + falls[3].batsman_b, "");
}

TEST(Stands, ExtrasCountAndNoBallsAndWidesDoNot) {
  match_state match = two_down();
  match.deliveries.insert(match.deliveries.begin(), {ball_of_leg_byes(4), wide_on(1), no_ball_on(1)});
  match.score_runs += 4;
  match.innings_balls += 1;
  const fall_of_wicket_rec fall = falls_in_play(match)[1];
  EXPECT_EQ(fall.score, 41);
  EXPECT_EQ(fall.balls, 51);
}

TEST(Stands, TheBallOfAWicketCountsBeforeItIsBooked) {
  match_state match = two_down();
  match.next_step = play_step::wicket_told;
  match.innings_balls = 50;
  const fall_of_wicket_table falls = falls_in_play(match);
  EXPECT_EQ(falls[1].balls, 50);
  EXPECT_EQ(falls[2].balls, 51);
}

TEST(Stands, TheUnbrokenOneStandsOnceTheMatchHasEnded) {
  match_state match = two_down();
  add_unbroken_stand(match.deliveries, {12, 8, 4, 2});
  match.deliveries.back().runs = 1;
  match.score_runs = 50;
  match.innings_balls = 59;
  EXPECT_EQ(falls_in_play(match)[3].batsman_a, "");
  match.last_stand_closed = true;
  const fall_of_wicket_rec stand = falls_in_play(match)[3];
  EXPECT_EQ(stand.batsman_a, "H.Bat2") << "the lower position";
  EXPECT_EQ(stand.batsman_b, "H.Bat4 * ") << "on strike after the single";
  EXPECT_EQ(stand.partner_runs, 13);
  EXPECT_EQ(stand.partner_balls, 8);
  EXPECT_EQ(stand.score, 0);
  EXPECT_EQ(stand.balls, 0);
  EXPECT_EQ(stand.overs_text, "");
}

TEST(Stands, AllOutLeavesNoUnbrokenOne) {
  match_state match = two_down();
  for (int i = 4; i <= 11; ++i) add_stand(match.deliveries, {0, 1, 2, i});
  match.score_wickets = 10;
  match.innings_balls = 59;
  const std::string last = falls_in_play(match)[10].batsman_b;
  match.last_stand_closed = true;
  EXPECT_EQ(falls_in_play(match)[10].batsman_b, last);
}

TEST(Stands, OversAreToldAsFarAsTheyHaveBeenShown) {
  match_state match = two_down();
  EXPECT_EQ(falls_in_play(match)[1].overs_text, "");
  match.falls_shown = 1;
  const fall_of_wicket_table falls = falls_in_play(match);
  EXPECT_EQ(falls[0].overs_text, "");
  EXPECT_EQ(falls[1].overs_text, "8.2");
  EXPECT_EQ(falls[2].overs_text, "0.0") << "it fell later";
  EXPECT_EQ(falls[10].overs_text, "0.0");
}

TEST(Stands, WhoIsAtTheCreaseAfterABall) {
  const auto expect = [](const delivery& ball, int striker, int non_striker) {
    const crease now = crease_after(ball);
    EXPECT_EQ(now.striker, striker);
    EXPECT_EQ(now.non_striker, non_striker);
  };
  const men_at_work men = {8, 3, 5};
  expect(ball_of_runs(0, men), 3, 5);
  expect(ball_of_runs(3, men), 5, 3);
  expect(ball_of_byes(1, men), 5, 3);
  expect(ball_of_leg_byes(2, men), 3, 5);
  expect(wide_on(1, men), 3, 5);
  expect(no_ball_on(1, men), 3, 5);
  expect(ball_of_wicket(dismissal::bowled, men, 6), 6, 5);
}

}  // namespace
}  // namespace velorin::testing
