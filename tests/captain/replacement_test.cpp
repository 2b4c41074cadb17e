// SPDX-License-Identifier: GPL-3.0-or-later
#include "captain/review_scene.h"

#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// The list, best first: 3 spinner, 8 medium, 5 and 9 fast, 1 spinner, 2 of no kind, 4 medium, 6, 7, 10 and 11 spinner.
using PickReplacement = ReviewScene;

replacement_search pace() {
  replacement_search wanted;
  wanted.type_a = "Fast Bowler";
  wanted.type_b = "Medium Pacer";
  wanted.max_balls = 60;
  return wanted;
}

TEST_F(PickReplacement, TakesTheFirstOfEitherKind) {
  EXPECT_EQ(pick_replacement(match, pace()), 8);
  replacement_search wanted = pace();
  wanted.type_b = "";
  EXPECT_EQ(pick_replacement(match, wanted), 5);
  wanted.type_a = "";
  EXPECT_EQ(pick_replacement(match, wanted), 2);
  wanted.type_a = "Slow Bowler";
  wanted.type_b = "spinner";
  EXPECT_EQ(pick_replacement(match, wanted), 3);
}

TEST_F(PickReplacement, LeavesOutUpToFourMen) {
  replacement_search wanted = pace();
  wanted.exclude_a = 8;
  EXPECT_EQ(pick_replacement(match, wanted), 5);
  wanted.exclude_b = 5;
  EXPECT_EQ(pick_replacement(match, wanted), 9);
  wanted.exclude_c = 9;
  EXPECT_EQ(pick_replacement(match, wanted), 4);
  wanted.exclude_d = 4;
  EXPECT_EQ(pick_replacement(match, wanted), 3) << "of any kind then, from the top of the list";
}

TEST_F(PickReplacement, BothLimitsOfBallsAreInside) {
  replacement_search wanted = pace();
  wanted.min_balls = 12;
  wanted.max_balls = 24;
  figures(8, 11, 0, 0);
  figures(5, 25, 0, 0);
  figures(9, 12, 0, 0);
  EXPECT_EQ(pick_replacement(match, wanted), 9);
  figures(9, 13, 0, 0);
  EXPECT_EQ(pick_replacement(match, wanted), 9);
  figures(8, 24, 0, 0);
  EXPECT_EQ(pick_replacement(match, wanted), 8);
}

TEST_F(PickReplacement, TheSecondPassKeepsExclusionsAndLimits) {
  replacement_search wanted = pace();
  wanted.max_balls = 30;
  wanted.exclude_a = 3;
  for (const int i : {8, 5, 9, 4, 1}) figures(i, 31, 0, 0);
  EXPECT_EQ(pick_replacement(match, wanted), 2);
  figures(2, 31, 0, 0);
  EXPECT_EQ(pick_replacement(match, wanted), 6);
}

TEST_F(PickReplacement, RecordsTheChange) {
  replacement_search wanted = pace();
  wanted.exclude_b = 9;
  EXPECT_EQ(pick_replacement(match, wanted), 8);
  EXPECT_TRUE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 9);
  EXPECT_EQ(match.bowler_change_in, 8);
  EXPECT_EQ(match.next_bowler, 9) << "the caller changes the bowler";
}

TEST_F(PickReplacement, TheSecondChangeOfAReviewIsTheOneAnnounced) {
  replacement_search wanted = pace();
  wanted.exclude_b = 9;
  match.next_bowler = pick_replacement(match, wanted);
  wanted.exclude_b = match.next_bowler;
  match.next_bowler = pick_replacement(match, wanted);
  EXPECT_EQ(match.next_bowler, 5);
  match.innings_balls = 6;
  const message_box message = bowler_change_message(match);
  EXPECT_EQ(message.title, "Bowler Change");
  EXPECT_EQ(message.text, "A.Bowl8 has been replaced by A.Bowl5 .");
  review_bowler(match);
  EXPECT_FALSE(match.bowler_change_pending);
}

TEST_F(PickReplacement, WithoutAnyManTheSearchIsEndlessAndChangesNothing) {
  replacement_search wanted = pace();
  wanted.max_balls = -1;
  try {
    pick_replacement(match, wanted);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::endless);
  }
  EXPECT_FALSE(match.bowler_change_pending);
}

}  // namespace
}  // namespace velorin::testing
