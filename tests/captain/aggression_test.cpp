// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "captain/computer_captain.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

constexpr projection_text number_of(int value) { return {projection_text::kind::number, value}; }

/// Two batsmen of skill 100 who have just come in, and a bowler whose strike rate is 30: the value of each is the base
/// + 0.01 - 0.05 + 0.3, so the base itself.
class BattingAggression : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    match.striker = 1;
    match.non_striker = 2;
    match.bowler = 8;
    match.next_bowler = 9;
    match.batting_xi[1].bat_skill = 100;
    match.batting_xi[2].bat_skill = 100;
    match.bowling_xi[8].bowl_sr = 30;
  }
  static void score(int runs, int wickets, int balls) {
    match.score_runs = runs;
    match.score_wickets = wickets;
    match.innings_balls = balls;
  }
  static std::array<int, 2> set() {
    script_draws({});
    set_batting_aggression(match);
    return match.batsman_aggression;
  }
  using slots = std::array<int, 2>;
};

TEST_F(BattingAggression, IsTwoBeforeTheFirstBall) {
  EXPECT_EQ(set(), (slots{2, 2}));
  match.first_total = 200;
  match.first_innings_projection = {projection_text::kind::dash, 0};
  EXPECT_EQ(set(), (slots{2, 2})) << "no figure of the first innings is looked at yet";
}

TEST_F(BattingAggression, FirstInningsBase) {
  struct row {
    int runs, wickets, balls, value;
  };
  const std::vector<row> table = {
      {4, 0, 6, 2},       // 3.33 - 1 + 0.08 = 2.41
      {75, 4, 75, 2},     // 2 - 1.5 + 1 = 1.5, a half goes to 2
      {25, 4, 75, 2},     // 2 - 0.5 + 1 = 2.5, a half goes to 2
      {0, 4, 75, 3},      // 3
      {125, 4, 75, 1},    // 0.5 goes to 0, and the value is not below 1
      {240, 2, 294, 5},   // 2.67 - 1.22 + 3.92 = 5.36
      {200, 0, 294, 5},   // 6.23, and the value is not above 5
      {150, 9, 240, 3},   // 0.33 - 0.94 + 3.2 = 2.6
      {36, 9, 6, 1},      // -8.6
      {100, 10, 150, 1},  // 0 - 1 + 2 = 1
  };
  for (const row& r : table) {
    score(r.runs, r.wickets, r.balls);
    EXPECT_EQ(set(), (slots{r.value, r.value})) << r.runs << "/" << r.wickets << " off " << r.balls;
  }
}

TEST_F(BattingAggression, SecondInningsBaseTakesTheFrozenProjection) {
  struct row {
    int projection, wickets, balls, value;
  };
  const std::vector<row> table = {
      {6, 1, 50, 2},    // 1 + 2 - 1
      {6, 1, 175, 2},   // 1 + 2 - 0.5, a half goes to 2
      {9, 1, 175, 4},   // 1 + 3 - 0.5, a half goes to 4
      {0, 10, 6, 1},    // -1.18
      {6, 10, 300, 2},  // 2
      {250, 0, 6, 5},   // far above 5
      {250, 9, 299, 5},
  };
  match.first_total = 1;
  for (const row& r : table) {
    match.first_innings_projection = number_of(r.projection);
    score(77, r.wickets, r.balls);
    EXPECT_EQ(set(), (slots{r.value, r.value})) << r.projection << ", " << r.wickets << " down off " << r.balls;
  }
}

TEST_F(BattingAggression, TheBatsmansFormSkillAndTheBowlerCount) {
  match.batting_card[1].runs = 100;
  match.batting_card[1].balls = 60;  // form 231
  match.batting_xi[1].bat_skill = 50;
  EXPECT_EQ(set(), (slots{5, 2}));  // 2 + 2.31 - 0.1 + 0.3 = 4.51
  match.batting_card[1].runs = 99;  // 4.49
  EXPECT_EQ(set(), (slots{4, 2}));
  match.batting_xi[2].bat_skill = 2;  // 2 + 0.01 - 2.5 + 0.3
  EXPECT_EQ(set(), (slots{4, 1}));
  match.batting_xi[2].bat_skill = -2;  // 2 + 0.01 + 2.5 + 0.3
  EXPECT_EQ(set(), (slots{4, 5}));
  match.bowling_xi[8].bowl_sr = 90;  // 2 + 2.29 - 0.1 + 0.9, 2 + 0.01 - 0.05 + 0.9
  match.batting_xi[2].bat_skill = 100;
  EXPECT_EQ(set(), (slots{5, 3}));
}

TEST_F(BattingAggression, HalfABallCounts) {
  match.batting_card[1].balls = 1;  // form 1.5: 2 + 0.015 - 0.05 + 0.53 = 2.495
  match.bowling_xi[8].bowl_sr = 53;
  EXPECT_EQ(set()[0], 2);
  match.batting_card[1].balls = 3;  // form 2.5: 2.505
  EXPECT_EQ(set()[0], 3);
}

TEST_F(BattingAggression, TheSlotFollowsThePositionAndNotTheEnd) {
  match.batting_card[4].runs = 100;  // 2 + 2.01 - 5 / 40 + 0.3 = 4.185
  match.batting_xi[4].bat_skill = 40;
  match.striker = 4;
  EXPECT_EQ((match.non_striker = 2, set()), (slots{2, 4}));
  match.striker = 2;
  EXPECT_EQ((match.non_striker = 4, set()), (slots{2, 4}));
  match.non_striker = 7;
  match.striker = 4;
  EXPECT_EQ(set()[0], 4);
}

TEST_F(BattingAggression, AProjectionThatIsNoNumberIsATypeError) {
  match.first_total = 10;
  score(1, 0, 1);
  for (const auto what : {projection_text::kind::dash, projection_text::kind::empty}) {
    match.first_innings_projection = {what, 0};
    try {
      set_batting_aggression(match);
      ADD_FAILURE() << "no error";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::type);
    }
  }
}

TEST_F(BattingAggression, ASkillOfZeroIsADivisionError) {
  match.batting_xi[2].bat_skill = 0;
  try {
    set_batting_aggression(match);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::division);
    EXPECT_EQ(error.place().player, "H.Bat2");
  }
}

/// The end of an over in which nothing is to be reviewed. Two batsmen of skill 50 who have just come in and a bowler of
/// strike rate 30: the value is the base - 0.01 - 1 - 0.3, so the base less 1 or, from a half on, a bit less.
class BowlingAggression : public BattingAggression {
 protected:
  void SetUp() override {
    BattingAggression::SetUp();
    match.batting_xi[1].bat_skill = 50;
    match.batting_xi[2].bat_skill = 50;
    match.bowling_card[9].balls = 6;
    for (int i = 1; i <= 11; ++i) match.bowler_pool[i].position = i;
  }
  static int reviewed() {
    script_draws({});
    match.bowling_aggression = {9, 7};
    review_bowler(match);
    EXPECT_EQ(match.bowling_aggression[1], 7) << "the other end's value stands";
    EXPECT_EQ(match.next_bowler, 9) << "nobody was to be replaced";
    return match.bowling_aggression[0];
  }
};

TEST_F(BowlingAggression, FirstInningsBaseLeavesOutTheSix) {
  struct row {
    int runs, wickets, balls, value;
  };
  const std::vector<row> table = {
      {75, 1, 75, 1},     // base 0.5 + 4 - 1 - 1 = 2.5, a half goes to 2: 0.69
      {75, 3, 75, 3},     // 1.5 + 4 - 2 = 3.5, a half goes to 4: 2.69
      {0, 0, 6, 3},       // 4 - 0.08: base 4
      {6, 2, 6, 3},       // 1 + 4 - 1 - 0.08: base 4
      {0, 4, 6, 5},       // 2 + 4 - 0.08: base 6: 4.69
      {0, 9, 6, 5},       // not above 5
      {240, 2, 294, 1},   // not below 1
      {300, 10, 294, 3},  // 5 + 4 - 1.02 - 3.92: base 4
  };
  for (const row& r : table) {
    score(r.runs, r.wickets, r.balls);
    EXPECT_EQ(reviewed(), r.value) << r.runs << "/" << r.wickets << " off " << r.balls;
  }
}

TEST_F(BowlingAggression, IsOnABaseOfTwoBeforeTheFirstBall) {
  match.bowling_card[8].wickets = 5;  // 2 - 1.31 + 2 = 2.69
  EXPECT_EQ(reviewed(), 3);
}

TEST_F(BowlingAggression, SecondInningsBaseTakesTheFrozenProjection) {
  struct row {
    int projection, wickets, balls, value;
  };
  const std::vector<row> table = {
      {8, 3, 150, 3},                    // 1 + 4 - 2 + 1.5 = 4.5, a half goes to 4: 2.69
      {4, 3, 150, 5},                    // 1 + 4 - 1 + 1.5 = 5.5, a half goes to 6: 4.69
      {250, 3, 150, 1},                  // far below 1
      {250, 9, 250, 1}, {0, 0, 100, 4},  // 5: 3.69
  };
  match.first_total = 1;
  for (const row& r : table) {
    match.first_innings_projection = number_of(r.projection);
    score(500, r.wickets, r.balls);
    EXPECT_EQ(reviewed(), r.value) << r.projection << ", " << r.wickets << " down off " << r.balls;
  }
}

TEST_F(BowlingAggression, BatsmenAndBowlerCount) {
  score(75, 3, 75);                   // base 4
  match.bowling_card[8].wickets = 2;  // 4 - 1.31 + 0.8
  EXPECT_EQ(reviewed(), 3);
  match.bowling_card[8].wickets = 3;  // 4 - 1.31 + 1.2
  EXPECT_EQ(reviewed(), 4);
  match.batting_card[1].runs = 100;
  match.batting_card[1].balls = 60;  // forms 231 and 1, mean 116: 4 - 1.16 - 1 - 0.3 + 1.2
  EXPECT_EQ(reviewed(), 3);
  match.batting_card[2].runs = 70;  // forms 231 and 141, mean 186: 2.04
  EXPECT_EQ(reviewed(), 2);
  match.batting_xi[1].bat_skill = 20;  // skills 70: 2.34
  EXPECT_EQ(reviewed(), 2);
  match.batting_xi[2].bat_skill = 20;  // skills 40: 2.64
  EXPECT_EQ(reviewed(), 3);
  match.bowling_xi[8].bowl_sr = 50;  // 2.44
  EXPECT_EQ(reviewed(), 2);
}

TEST_F(BowlingAggression, AProjectionThatIsNoNumberIsATypeError) {
  match.first_total = 10;
  score(1, 0, 6);
  match.first_innings_projection = {projection_text::kind::dash, 0};
  try {
    review_bowler(match);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::type);
  }
}

}  // namespace
}  // namespace velorin::testing
