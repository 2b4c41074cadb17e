// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/world_cup_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "competitions/cup_fixture.h"
#include "competitions/world_cup.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class CupTables : public ::testing::Test {
 protected:
  void SetUp() override {
    world_cup = world_cup_record();
    for (int i = 1; i <= 5; ++i) {
      world_cup.group_a[i].team = std::string(1, static_cast<char>('A' + i - 1));
      world_cup.group_b[i].team = std::string(1, static_cast<char>('F' + i - 1));
    }
  }
  void TearDown() override { world_cup = world_cup_record(); }

  static world_cup_tables_form shown() {
    world_cup_tables_form form(world_cup);
    form.open();
    return form;
  }
};

/// Fills a row: played, won, lost, tied, points, rate.
void fill(league_row& row, int played, int won, int lost, int tied, int points, double rate) {
  row.played = played;
  row.won = won;
  row.lost = lost;
  row.tied = tied;
  row.points = points;
  row.net_run_rate = rate;
}

TEST_F(CupTables, BeforeAnyMatchTheGroupsStandInTheOrderOfTheDraw) {
  const world_cup_tables_form form = shown();
  EXPECT_THAT(order(form.group_a), ElementsAre("A", "B", "C", "D", "E"));
  EXPECT_THAT(order(form.group_b), ElementsAre("F", "G", "H", "I", "J"));
  EXPECT_THAT(form.group_a[0], ElementsAre("A", "0", "0", "0", "0", "0", "0"));
  EXPECT_THAT(form.super_six, IsEmpty());
  EXPECT_EQ(form.first_semi_final, "");
  EXPECT_EQ(form.second_semi_final, "");
  EXPECT_EQ(form.grand_final, "");
  EXPECT_EQ(form.winners_line, "World Cup winners : ");
}

TEST_F(CupTables, AGroupRowIsTheSumOfItsFive) {
  auto& rows = world_cup.group_b[3].versus;
  fill(rows[1], 1, 1, 0, 0, 2, 1.25);
  fill(rows[2], 1, 0, 1, 0, 0, -2.5);
  fill(rows[4], 1, 0, 0, 1, 1, 0);
  fill(rows[5], 1, 1, 0, 0, 2, 0.125);
  const world_cup_tables_form form = shown();
  EXPECT_THAT(form.group_b[0], ElementsAre("H", "4", "2", "1", "1", "5", "-1.12"));
  EXPECT_THAT(order(form.group_b), ElementsAre("H", "F", "G", "I", "J"));
  EXPECT_EQ(world_cup.group_b[3].team, "H") << "the groups themselves are left as they are";
}

TEST_F(CupTables, TheRateIsRoundedHalvesToTheEvenDigit) {
  fill(world_cup.group_a[1].versus[2], 1, 1, 0, 0, 2, 0.625);
  fill(world_cup.group_a[2].versus[1], 1, 0, 1, 0, 0, -0.625);
  const world_cup_tables_form form = shown();
  EXPECT_EQ(form.group_a[0][6], "0.62");
  EXPECT_EQ(form.group_a[4][6], "-0.62");
}

TEST_F(CupTables, LevelRowsKeepTheOrderOfTheDrawAndRatesDecide) {
  fill(world_cup.group_a[1].versus[2], 1, 0, 1, 0, 0, -1);
  fill(world_cup.group_a[4].versus[5], 1, 1, 0, 0, 2, 0.5);
  fill(world_cup.group_a[3].versus[5], 1, 1, 0, 0, 2, 0.501);
  EXPECT_THAT(order(shown().group_a), ElementsAre("C", "D", "B", "E", "A"));
}

TEST_F(CupTables, TheSuperSixIsShownSortedOnceItHasTeams) {
  for (int i = 1; i <= 6; ++i) {
    world_cup.super_six[i].team = "Q" + std::to_string(i);
    fill(world_cup.super_six[i], 5, i % 3, 5 - i % 3, 0, 2 * (i % 3), 0.1 * i);
  }
  const world_cup_tables_form form = shown();
  EXPECT_THAT(order(form.super_six), ElementsAre("Q5", "Q2", "Q4", "Q1", "Q6", "Q3"));
  EXPECT_THAT(form.super_six[0], ElementsAre("Q5", "5", "2", "3", "0", "4", "0.5"));
  EXPECT_EQ(world_cup.super_six[1].team, "Q1") << "the table itself is not sorted";
}

TEST_F(CupTables, TheKnockOutIsShownAsItComes) {
  world_cup.semi_finals[1] = {"A", "I", "I", "  won by  4  wickets ", false, false};
  world_cup.semi_finals[2] = {"F", "B", "", "", false, false};
  world_cup_tables_form form = shown();
  EXPECT_EQ(form.first_semi_final, "A vs I - I   won by  4  wickets ");
  EXPECT_EQ(form.second_semi_final, "F vs B -  ");
  EXPECT_EQ(form.grand_final, "");
  world_cup.grand_final = {"I", "B", "B", "  won by  12  runs", false, false};
  world_cup_tables_form again = shown();
  EXPECT_EQ(again.grand_final, "I vs B - B   won by  12  runs");
  EXPECT_EQ(again.winners_line, "World Cup winners : B");
  again.accept();
  EXPECT_TRUE(again.closed);
}

TEST_F(CupTables, ATiedFinalHasNoWinner) {
  world_cup.grand_final = {"I", "B", "", "Match tied.", false, false};
  const world_cup_tables_form form = shown();
  EXPECT_EQ(form.grand_final, "I vs B -  Match tied.");
  EXPECT_EQ(form.winners_line, "World Cup winners : ");
}

TEST_F(CupTables, AFinalWithoutItsFirstTeamIsNotShown) {
  world_cup.grand_final = {"", "B", "B", "  by a walkover", false, false};
  const world_cup_tables_form form = shown();
  EXPECT_EQ(form.grand_final, "");
  EXPECT_EQ(form.winners_line, "World Cup winners : B");
}

TEST_F(CupTables, OpeningAgainShowsTheTablesAnew) {
  world_cup.super_six[1].team = "Q1";
  world_cup_tables_form form = shown();
  EXPECT_THAT(form.super_six, SizeIs(6));
  world_cup.super_six[1].team = "";
  form.open();
  EXPECT_THAT(form.super_six, IsEmpty());
  EXPECT_THAT(form.group_a, SizeIs(5));
}

}  // namespace
}  // namespace velorin::testing
