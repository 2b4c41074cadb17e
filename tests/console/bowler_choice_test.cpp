// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>

#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using use = bowler_choice_form::use;

/// Away bowls; its seventh man keeps.
class BowlerChoice : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }
  static std::string closed_rows(const bowler_choice_form& form) {
    std::string rows;
    for (int i = 1; i <= 11; ++i) {
      if (!form.enabled[i]) rows += std::to_string(i) + " ";
    }
    return rows;
  }
};

TEST_F(BowlerChoice, RowsShowNameSkillAndRunsPerOver) {
  struct row {
    float sr;
    const char* skill;
  };
  const row table[] = {{36, "64"},    {36.5F, "64"}, {35.5F, "64"}, {37.5F, "62"},  {36.4F, "64"},
                       {36.6F, "63"}, {100, "0"},    {100.5F, "0"}, {101.5F, "-2"}, {0, "100"}};
  const bowler_choice_form form(match, use::change, "Change Bowler");
  EXPECT_EQ(form.title, "Change Bowler");
  EXPECT_EQ(form.name(8), "A.Bowl8");
  for (const row& r : table) {
    match.bowling_xi[8].bowl_sr = r.sr;
    EXPECT_EQ(form.skill(8), r.skill) << r.sr;
  }
  match.bowling_xi[8].econ = 4.7F;
  EXPECT_EQ(form.economy(8), "4.7");
  match.bowling_xi[8].econ = 5;
  EXPECT_EQ(form.economy(8), "5");
}

TEST_F(BowlerChoice, ClosesTheOtherEndAndTheKeepers) {
  match.bowler = 8;
  match.next_bowler = 9;
  match.bowling_xi[3].is_keeper = flag_true;
  const bowler_choice_form form(match, use::change, "Change Bowler");
  EXPECT_EQ(closed_rows(form), "3 7 9 ");
  EXPECT_EQ(form.chosen, 8);
}

TEST_F(BowlerChoice, AManPastHisQuotaIsStillOnOffer) {
  match.bowler = 8;
  match.next_bowler = 9;
  match.bowling_card[8].balls = 60;
  match.bowling_card[10].balls = 60;
  const bowler_choice_form form(match, use::change, "Change Bowler");
  EXPECT_TRUE(form.enabled[8]);
  EXPECT_TRUE(form.enabled[10]);
}

TEST_F(BowlerChoice, ForTheFirstOpenerAllButTheKeeperAreOpenAndNobodyIsChosen) {
  const bowler_choice_form form(match, use::first_opener, "Select 1st Opening Bowler");
  EXPECT_EQ(closed_rows(form), "7 ");
  EXPECT_EQ(form.chosen, 0);
}

TEST_F(BowlerChoice, ForTheSecondOpenerTheFirstIsClosed) {
  match.bowler = 9;
  const bowler_choice_form form(match, use::second_opener, "Select 2nd Opening Bowler");
  EXPECT_EQ(closed_rows(form), "7 9 ");
  EXPECT_EQ(form.chosen, 9);
}

TEST_F(BowlerChoice, AClosedRowCannotBeChosen) {
  match.bowler = 8;
  match.next_bowler = 9;
  bowler_choice_form form(match, use::change, "Change Bowler");
  form.choose(7);
  form.choose(9);
  EXPECT_EQ(form.chosen, 8);
  form.choose(2);
  EXPECT_EQ(form.chosen, 2);
}

TEST_F(BowlerChoice, OkChangesTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  bowler_choice_form form(match, use::change, "Change Bowler");
  form.choose(2);
  EXPECT_EQ(match.bowler, 8) << "not before the OK";
  form.accept();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.bowler, 2);
  EXPECT_EQ(match.next_bowler, 9);
}

TEST_F(BowlerChoice, OkWithoutAnotherChoiceKeepsTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  bowler_choice_form form(match, use::change, "Change Bowler");
  form.accept();
  EXPECT_EQ(match.bowler, 8);
}

TEST_F(BowlerChoice, OkOfTheOpenersWritesTheirPlaces) {
  bowler_choice_form first(match, use::first_opener, "Select 1st Opening Bowler");
  first.choose(11);
  first.accept();
  EXPECT_EQ(match.bowler, 11);
  EXPECT_EQ(match.next_bowler, 0);
  bowler_choice_form second(match, use::second_opener, "Select 2nd Opening Bowler");
  second.choose(6);
  second.accept();
  EXPECT_EQ(match.bowler, 11);
  EXPECT_EQ(match.next_bowler, 6);
}

TEST_F(BowlerChoice, WithNobodyChosenTheOkWritesZero) {
  match.bowler = 8;
  match.next_bowler = 9;
  bowler_choice_form form(match, use::change, "Change Bowler");
  form.chosen = 0;
  form.accept();
  EXPECT_EQ(match.bowler, 0);
  bowler_choice_form second(match, use::second_opener, "Select 2nd Opening Bowler");
  second.accept();
  EXPECT_EQ(match.next_bowler, 0);
}

TEST_F(BowlerChoice, TheSecondOpenerLeftAloneIsTheFirst) {
  match.bowler = 8;
  bowler_choice_form form(match, use::second_opener, "Select 2nd Opening Bowler");
  form.accept();
  EXPECT_EQ(match.next_bowler, 8);
}

TEST_F(BowlerChoice, TheBestRowIsTheMostSkilledManWithOversLeft) {
  for (int row = 1; row <= 11; ++row) match.bowling_xi[row].bowl_sr = 50;
  match.bowling_xi[3].bowl_sr = 30;
  match.bowling_xi[5].bowl_sr = 31;
  match.bowling_xi[5].econ = 5;
  match.bowling_xi[6].bowl_sr = 31;
  match.bowling_xi[6].econ = 4;
  match.bowling_xi[10].bowl_sr = 31;
  match.bowling_xi[10].econ = 4;
  match.bowling_xi[7].is_keeper = flag_true;
  match.bowling_xi[7].bowl_sr = 20;
  match.bowling_xi[9].bowl_sr = 21;
  match.bowler = 8;
  match.next_bowler = 9;
  EXPECT_EQ(bowler_choice_form(match, use::quota, "Change Bowler").best_row(), 3);
  match.bowling_card[3].balls = 60;
  EXPECT_EQ(bowler_choice_form(match, use::quota, "Change Bowler").best_row(), 6)
      << "fewer runs an over, then the first";
  for (int row = 1; row <= 11; ++row) match.bowling_card[row].balls = 60;
  EXPECT_EQ(bowler_choice_form(match, use::quota, "Change Bowler").best_row(), 3) << "nobody has overs left";
  for (int row = 1; row <= 11; ++row) match.bowling_xi[row].is_keeper = flag_true;
  EXPECT_EQ(bowler_choice_form(match, use::quota, "Change Bowler").best_row(), 0);
}

TEST_F(BowlerChoice, AQuotaIsAChangeOfTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  bowler_choice_form form(match, use::quota, "Change Bowler");
  EXPECT_EQ(form.chosen, 8);
  form.choose(10);
  form.accept();
  EXPECT_EQ(match.bowler, 10);
  EXPECT_EQ(match.next_bowler, 9);
}

}  // namespace
}  // namespace velorin::testing
