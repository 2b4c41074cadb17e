// SPDX-License-Identifier: GPL-3.0-or-later
#include "captain/review_scene.h"

#include <vector>

#include <gmock/gmock.h>

#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the review makes of the scene after so many balls: each row on a fresh scene.
struct stage_row {
  int innings_balls;
  int replacement;  ///< 9 where nothing changes
};

class Review : public ReviewScene {
 protected:
  /// The scene afresh, with 9's figures.
  void restart(int balls, int runs, int wickets) {
    SetUp();
    figures(9, balls, runs, wickets);
  }
  void expect_stays(int innings_balls, int balls, int runs, int wickets) {
    restart(balls, runs, wickets);
    EXPECT_EQ(reviewed(innings_balls), 9) << runs << " off " << balls << " after " << innings_balls;
    EXPECT_FALSE(match.bowler_change_pending);
  }
  void expect_replaced(int innings_balls, int balls, int runs, int wickets, int by) {
    restart(balls, runs, wickets);
    EXPECT_EQ(reviewed(innings_balls), by) << runs << " off " << balls << " after " << innings_balls;
    EXPECT_TRUE(match.bowler_change_pending);
    EXPECT_EQ(match.bowler_change_out, 9);
    EXPECT_EQ(match.bowler_change_in, by);
    EXPECT_EQ(match.bowler, 5);
  }
};

TEST_F(Review, StagesBeginAndEndOnTheirBalls) {
  // 60 runs off 30 balls are too many at any stage. Early and at the death a pace man comes, the best one who is not
  // bowling: 8. Between them it is the man without a kind, 2.
  const std::vector<stage_row> table = {{6, 9},   {11, 9},  {12, 8},  {66, 8},  {71, 8},  {72, 9},
                                        {73, 2},  {174, 2}, {179, 2}, {180, 9}, {181, 2}, {258, 2},
                                        {259, 2}, {260, 9}, {261, 8}, {294, 8}, {299, 8}};
  for (const stage_row& row : table) {
    if (row.replacement == 9) {
      expect_stays(row.innings_balls, 30, 60, 0);
    } else {
      expect_replaced(row.innings_balls, 30, 60, 0, row.replacement);
    }
  }
}

TEST_F(Review, OpeningPairIsTakenBelowTwelveBalls) {
  reviewed(6);
  EXPECT_EQ(match.opening_bowlers[0], 5);
  EXPECT_EQ(match.opening_bowlers[1], 9);
  restart(6, 0, 0);
  reviewed(11);
  EXPECT_EQ(match.opening_bowlers[0], 5);
  restart(6, 0, 0);
  reviewed(12);
  EXPECT_EQ(match.opening_bowlers[0], 8);
  EXPECT_EQ(match.opening_bowlers[1], 3);
}

TEST_F(Review, EarlyScore) {
  expect_stays(60, 30, 10, 3);  // 5 - 3.75 + 1
  expect_stays(48, 24, 40, 0);  // not tired up to 24 balls: -5 + 5
  expect_stays(48, 24, 95, 0);  // -5 + 11.875
  expect_stays(48, 24, 96, 0);  // -5 + 12 = 7, which is not above 7
  expect_replaced(48, 24, 97, 0, 8);
  expect_replaced(48, 25, 40, 0, 8);  // 4.17 + 4.8
  expect_stays(60, 30, 20, 0);        // 5 + 2 = 7
  expect_replaced(60, 30, 21, 0, 8);
  expect_stays(60, 30, 32, 1);  // 5 - 1.25 + 3.2
  expect_replaced(60, 30, 33, 1, 8);
  expect_stays(60, 36, 10, 0);       // 6 + 0.83
  expect_replaced(60, 42, 1, 0, 8);  // 7 + 0.07: tired alone
}

TEST_F(Review, MiddleScore) {
  expect_stays(90, 18, 45, 0);        // not tired up to 18 balls: -5 + 10
  expect_replaced(90, 19, 45, 0, 2);  // 1.9 + 9.47
  expect_stays(90, 18, 47, 0);        // -5 + 10.44
  expect_replaced(90, 18, 48, 0, 2);  // -5 + 10.67
  expect_stays(90, 40, 15, 0);        // 4 + 1.5 = 5.5, which is not above 5.5
  expect_replaced(90, 40, 16, 0, 2);
  expect_stays(90, 40, 25, 1);  // 4 - 1 + 2.5 = 5.5
  expect_replaced(90, 40, 26, 1, 2);
  expect_replaced(90, 54, 2, 0, 2);  // 5.4 + 0.15
  expect_stays(90, 54, 2, 1);
}

TEST_F(Review, LateScore) {
  expect_stays(240, 30, 30, 0);  // 6, which is not above 6
  expect_replaced(240, 30, 31, 0, 2);
  expect_stays(240, 30, 40, 2);  // 8 - 2
  expect_replaced(240, 30, 41, 2, 2);
  expect_replaced(240, 6, 7, 0, 2);
}

TEST_F(Review, DeathScore) {
  expect_stays(264, 42, 40, 1);  // 5.71 - 1
  expect_stays(264, 30, 35, 0);  // 7, which is not above 7
  expect_replaced(264, 30, 36, 0, 8);
  expect_stays(264, 30, 40, 1);  // 8 - 1
  expect_replaced(264, 30, 41, 1, 8);
}

TEST_F(Review, AtTheDeathOnlyFastBowlersStay) {
  for (const char* kind : {"Medium Pacer", "spinner", "", "fast bowler"}) {
    restart(6, 0, 5);
    set_kind(9, kind);
    EXPECT_EQ(reviewed(264), 8) << kind;
  }
}

TEST_F(Review, ThePoolsKindsAreSearchedAndTheElevensJudged) {
  restart(6, 0, 0);
  match.bowling_xi[9].bowler_type = "spinner";  // the list still calls him fast
  EXPECT_EQ(reviewed(264), 8);
  restart(6, 0, 0);
  for (int i = 1; i <= 11; ++i) match.bowler_pool[i].bowler_type = "spinner";
  EXPECT_EQ(reviewed(264), 9);
}

TEST_F(Review, TenOversForceAChangeAfterTheEarlyStage) {
  expect_stays(66, 60, 10, 3);  // 10 - 3.75 + 0.5
  expect_stays(72, 60, 10, 9);
  expect_replaced(174, 60, 10, 9, 2);
  expect_replaced(174, 61, 10, 9, 2);
  expect_stays(174, 59, 10, 9);
  expect_stays(180, 60, 10, 9);
  expect_replaced(240, 60, 10, 9, 2);
  expect_replaced(264, 60, 10, 9, 8);
  expect_stays(264, 59, 10, 9);
}

TEST_F(Review, TheBallsOfTheNewMenAreLimited) {
  struct row {
    int innings_balls;
    int balls, runs, wickets;  // of the man under review
    int limit;                 // of the balls that his replacement has bowled
    int best;                  // the best replacement
    int next;                  // the man after him
  };
  const std::vector<row> table = {
      {48, 30, 60, 0, 30, 8, 4}, {90, 30, 60, 0, 42, 2, 1},  {90, 60, 0, 9, 54, 2, 1},  {240, 30, 60, 0, 48, 2, 1},
      {240, 60, 0, 9, 48, 2, 1}, {264, 30, 60, 0, 54, 8, 4}, {264, 60, 0, 9, 54, 8, 4},
  };
  for (const row& r : table) {
    restart(r.balls, r.runs, r.wickets);
    figures(r.best, r.limit, 0, 0);
    EXPECT_EQ(reviewed(r.innings_balls), r.best) << r.innings_balls << ", " << r.balls;
    restart(r.balls, r.runs, r.wickets);
    figures(r.best, r.limit + 1, 0, 0);
    EXPECT_EQ(reviewed(r.innings_balls), r.next) << r.innings_balls << ", " << r.balls;
  }
}

TEST_F(Review, TheMiddleOversSpareTheOpeningPairAndTheirSuccessorsMayBeOfAnyKind) {
  set_kind(2, "spinner");
  figures(9, 30, 60, 0);
  EXPECT_EQ(reviewed(90), 1);  // 3 and 8 opened; 5 and 9 are bowling
  restart(30, 60, 0);
  set_kind(2, "spinner");
  match.opening_bowlers = {5, 9};
  EXPECT_EQ(reviewed(240), 3);
}

TEST_F(Review, TheKeeperMayBowl) {
  set_kind(2, "spinner");
  match.bowling_xi[7].is_keeper = flag_true;
  for (const int i : {1, 2, 4, 6}) figures(i, 48, 0, 0);
  figures(9, 30, 60, 0);
  EXPECT_EQ(reviewed(90), 7);
}

TEST_F(Review, NoManToBeFoundIsAnEndlessSearch) {
  for (int i = 1; i <= 11; ++i) figures(i, 55, 0, 0);
  figures(9, 60, 0, 0);
  match.innings_balls = 264;
  try {
    review_bowler(match);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::endless);
  }
}

// The announcement.

TEST_F(Review, AChangeIsAnnouncedAtTheNextReview) {
  figures(9, 30, 60, 0);
  EXPECT_EQ(reviewed(60), 8);
  EXPECT_THAT(user_.requests, IsEmpty());
  std::swap(match.bowler, match.next_bowler);
  figures(5, 30, 0, 3);
  EXPECT_EQ(reviewed(66), 5);
  EXPECT_THAT(user_.requests, ElementsAre("message Bowler Change | A.Bowl9 has been replaced by A.Bowl8 ."));
  EXPECT_FALSE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 0);
  EXPECT_EQ(match.bowler_change_in, 0);
  reviewed(72);
  EXPECT_EQ(user_.messages.size(), 1U);
}

TEST_F(Review, AChangeMadeWhileOneIsAnnouncedWaitsForItsOwnTurn) {
  figures(9, 36, 60, 0);
  EXPECT_EQ(reviewed(60), 8);
  std::swap(match.bowler, match.next_bowler);  // 8 bowls, 5 has bowled
  figures(5, 30, 60, 0);
  EXPECT_EQ(reviewed(66), 4);
  std::swap(match.bowler, match.next_bowler);
  figures(8, 6, 0, 0);
  reviewed(71);
  EXPECT_THAT(user_.requests, ElementsAre("message Bowler Change | A.Bowl9 has been replaced by A.Bowl8 .",
                                          "message Bowler Change | A.Bowl5 has been replaced by A.Bowl4 ."));
}

TEST_F(Review, TwoComputersHearNothing) {
  match.computer_bats = true;
  match.bowler_change_pending = true;
  match.bowler_change_out = 9;
  match.bowler_change_in = 8;
  figures(9, 6, 0, 0);
  reviewed(24);
  EXPECT_THAT(user_.requests, IsEmpty());
  EXPECT_FALSE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 0);
}

TEST_F(Review, AHumanBowlingSideHearsOfAChangeAndKeepsItsAggression) {
  match.computer_bats = true;
  match.computer_bowls = false;
  match.bowler_change_pending = true;
  match.bowler_change_out = 1;
  match.bowler_change_in = 2;
  match.bowling_aggression = {4, 5};
  figures(9, 6, 0, 0);
  reviewed(24);
  EXPECT_THAT(user_.requests, ElementsAre("message Bowler Change | A.Bowl1 has been replaced by A.Bowl2 ."));
  EXPECT_EQ(match.bowling_aggression[0], 4);
}

}  // namespace
}  // namespace velorin::testing
