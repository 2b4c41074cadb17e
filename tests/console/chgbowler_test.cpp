// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>

#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using use = chgbowler::use;

/// Away bowls; its seventh man keeps.
class Chgbowler : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }
  static std::string closed_rows(const chgbowler& form) {
    std::string rows;
    for (int i = 1; i <= 11; ++i) {
      if (!form.enabled[i]) rows += std::to_string(i) + " ";
    }
    return rows;
  }
};

TEST_F(Chgbowler, RowsShowNameSkillAndRunsPerOver) {
  struct row {
    float sr;
    const char* skill;
  };
  const row table[] = {{36, "64"},    {36.5F, "64"}, {35.5F, "64"}, {37.5F, "62"},  {36.4F, "64"},
                       {36.6F, "63"}, {100, "0"},    {100.5F, "0"}, {101.5F, "-2"}, {0, "100"}};
  const chgbowler form(use::change, "Change Bowler");
  EXPECT_EQ(form.title, "Change Bowler");
  EXPECT_EQ(form.option1(8), "A.Bowl8");
  for (const row& r : table) {
    match.bowling_xi[8].bowl_sr = r.sr;
    EXPECT_EQ(form.label1(8), r.skill) << r.sr;
  }
  match.bowling_xi[8].econ = 4.7F;
  EXPECT_EQ(form.label2(8), "4.7");
  match.bowling_xi[8].econ = 5;
  EXPECT_EQ(form.label2(8), "5");
}

TEST_F(Chgbowler, ClosesTheOtherEndAndTheKeepers) {
  match.bowler = 8;
  match.next_bowler = 9;
  match.bowling_xi[3].is_keeper = flag_true;
  const chgbowler form(use::change, "Change Bowler");
  EXPECT_EQ(closed_rows(form), "3 7 9 ");
  EXPECT_EQ(form.chosen, 8);
}

TEST_F(Chgbowler, AManPastHisQuotaIsStillOnOffer) {
  match.bowler = 8;
  match.next_bowler = 9;
  match.bowling_card[8].balls = 60;
  match.bowling_card[10].balls = 60;
  const chgbowler form(use::change, "Change Bowler");
  EXPECT_TRUE(form.enabled[8]);
  EXPECT_TRUE(form.enabled[10]);
}

TEST_F(Chgbowler, ForTheFirstOpenerAllButTheKeeperAreOpenAndNobodyIsChosen) {
  const chgbowler form(use::first_opener, "Select 1st Opening Bowler");
  EXPECT_EQ(closed_rows(form), "7 ");
  EXPECT_EQ(form.chosen, 0);
}

TEST_F(Chgbowler, ForTheSecondOpenerTheFirstIsClosed) {
  match.bowler = 9;
  const chgbowler form(use::second_opener, "Select 2nd Opening Bowler");
  EXPECT_EQ(closed_rows(form), "7 9 ");
  EXPECT_EQ(form.chosen, 9);
}

TEST_F(Chgbowler, AClosedRowCannotBeChosen) {
  match.bowler = 8;
  match.next_bowler = 9;
  chgbowler form(use::change, "Change Bowler");
  form.option1_click(7);
  form.option1_click(9);
  EXPECT_EQ(form.chosen, 8);
  form.option1_click(2);
  EXPECT_EQ(form.chosen, 2);
}

TEST_F(Chgbowler, OkChangesTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  chgbowler form(use::change, "Change Bowler");
  form.option1_click(2);
  EXPECT_EQ(match.bowler, 8) << "not before the OK";
  form.command_click();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.bowler, 2);
  EXPECT_EQ(match.next_bowler, 9);
}

TEST_F(Chgbowler, OkWithoutAnotherChoiceKeepsTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  chgbowler form(use::change, "Change Bowler");
  form.command_click();
  EXPECT_EQ(match.bowler, 8);
}

TEST_F(Chgbowler, OkOfTheOpenersWritesTheirPlaces) {
  chgbowler first(use::first_opener, "Select 1st Opening Bowler");
  first.option1_click(11);
  first.command_click();
  EXPECT_EQ(match.bowler, 11);
  EXPECT_EQ(match.next_bowler, 0);
  chgbowler second(use::second_opener, "Select 2nd Opening Bowler");
  second.option1_click(6);
  second.command_click();
  EXPECT_EQ(match.bowler, 11);
  EXPECT_EQ(match.next_bowler, 6);
}

TEST_F(Chgbowler, WithNobodyChosenTheOkWritesZero) {
  match.bowler = 8;
  match.next_bowler = 9;
  chgbowler form(use::change, "Change Bowler");
  form.chosen = 0;
  form.command_click();
  EXPECT_EQ(match.bowler, 0);
  chgbowler second(use::second_opener, "Select 2nd Opening Bowler");
  second.command_click();
  EXPECT_EQ(match.next_bowler, 0);
}

TEST_F(Chgbowler, TheSecondOpenerLeftAloneIsTheFirst) {
  match.bowler = 8;
  chgbowler form(use::second_opener, "Select 2nd Opening Bowler");
  form.command_click();
  EXPECT_EQ(match.next_bowler, 8);
}

TEST_F(Chgbowler, TheBestRowIsTheMostSkilledManWithOversLeft) {
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
  EXPECT_EQ(chgbowler(use::quota, "Change Bowler").best_row(), 3);
  match.bowling_card[3].balls = 60;
  EXPECT_EQ(chgbowler(use::quota, "Change Bowler").best_row(), 6) << "fewer runs an over, then the first";
  for (int row = 1; row <= 11; ++row) match.bowling_card[row].balls = 60;
  EXPECT_EQ(chgbowler(use::quota, "Change Bowler").best_row(), 3) << "nobody has overs left";
  for (int row = 1; row <= 11; ++row) match.bowling_xi[row].is_keeper = flag_true;
  EXPECT_EQ(chgbowler(use::quota, "Change Bowler").best_row(), 0);
}

TEST_F(Chgbowler, AQuotaIsAChangeOfTheBowler) {
  match.bowler = 8;
  match.next_bowler = 9;
  chgbowler form(use::quota, "Change Bowler");
  EXPECT_EQ(form.chosen, 8);
  form.option1_click(10);
  form.command_click();
  EXPECT_EQ(match.bowler, 10);
  EXPECT_EQ(match.next_bowler, 9);
}

}  // namespace
}  // namespace velorin::testing
