// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/run_time_error.h"
#include "support/squad_table.h"

// Squads worked out by hand.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

/// Fifteen men in the order of the screen. Bowlers by score: 10 (93), 13 (95), 12 (98), 8 (101.5), 15 (105), 14 (106).
std::vector<squad_row> full_squad() {
  return {{o, 40},
          {o, 35},
          {o, 30},
          {m, 45},
          {m, 42},
          {m, 38, 90, 9, true},
          {m, 33},
          {m, 28, 34, 4.5F},
          {m, 22},
          {l, 20, 30, 4.2F},
          {l, 18, 90, 9, true},
          {l, 15, 32, 4.4F},
          {l, 12, 35, 4},
          {l, 10, 31, 5},
          {l, 8, 33, 4.8F}};
}

TEST(AutoSelect, TwoOpenersFourBatsmenFourBowlersAKeeperAndTheNextBestBatsmen) {
  // Openers 1 and 2; batsmen 4, 5, 1, 6; bowlers 10, 13, 12, 8; keeper 6; 8 is the bowler who can bat; then 7 and 3.
  EXPECT_THAT(auto_selected(full_squad()), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13));
}

TEST(AutoSelect, ChoosesTheBetterBatOfTwoKeepers) {
  auto squad = full_squad();
  squad[5].keeper = false;
  squad[14].keeper = true;  // 15 of skill 8, and 11 of skill 18
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 11, 12, 13));
  squad[14].skill = 19;
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 12, 13, 15));
  squad[14].skill = 18;
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 11, 12, 13)) << "the earlier on a tie";
}

TEST(AutoSelect, AKindThatEndsInWkMakesAKeeper) {
  auto squad = full_squad();
  squad[5].keeper = false;
  squad[10].keeper = false;
  for (const char* kind : {"Wk", "spinner/Wk", "Fast BowlerWk"}) {
    squad[14].type = kind;
    EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 12, 13, 15)) << kind;
  }
  for (const char* kind : {"wk", "Wk ", "Wkt", "W", ""}) {
    squad[14].type = kind;
    EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13)) << kind;
  }
}

TEST(AutoSelect, OfSeveralShownAsKeepersTheBestBatIsTaken) {
  auto squad = full_squad();
  squad[5].keeper = false;
  squad[10].keeper = true;    // skill 18
  squad[13].type = "a Wk";    // skill 10
  squad[14].type = "the Wk";  // skill 8
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 11, 12, 13));
  squad[13].skill = 19;
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 12, 13, 14));
}

TEST(AutoSelect, WithoutAKeeperOneMoreBatsmanPlays) {
  auto squad = full_squad();
  squad[5].keeper = false;
  squad[10].keeper = false;
  squad[5].skill = 23;
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13));
  squad[5].skill = 21;
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 3, 4, 5, 7, 8, 9, 10, 12, 13));
}

TEST(AutoSelect, TheFirstBowlerAboveTwentyIsTheOneWhoCanBat) {
  auto squad = full_squad();
  squad[7].skill = 20;   // 8 is no batsman then; the rest in order of score are 15 (105), 14 (106), then all others
  squad[13].skill = 21;  // 14
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 12, 13, 14));
  squad[14].skill = 21;  // 15 comes before him
  EXPECT_THAT(auto_selected(squad), ElementsAre(1, 2, 4, 5, 6, 7, 8, 10, 12, 13, 15));
  selection screen(squad_of(squad));
  screen.form.auto_select();
  EXPECT_EQ(screen.form.batting_bowler(), 15);
  EXPECT_THAT(screen.form.best_bowlers(), ElementsAre(10, 13, 12, 8));
}

TEST(AutoSelect, WithNobodyAboveTwentyThereIsNoBowlerWhoCanBat) {
  auto squad = full_squad();
  for (squad_row& row : squad) row.skill -= 25;  // the best is 20, the openers 15, 10 and 5
  selection screen(squad_of(squad));
  screen.form.auto_select();
  EXPECT_EQ(screen.form.batting_bowler(), 0);
  EXPECT_THAT(ticked_places(screen.form), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13));
}

// The men at the top of the order.

/// Fourteen men: 1 the best bat, 2 to 4 no bats at all, 5 to 14 of falling skill, 5 to 8 the best bowlers. Roles of 1
/// to 4 as given, the others of the lower order unless `others` says else. Whoever of 2 to 4 is ticked is so for his
/// role alone; 1, 5, 6 and 7 are the best batsmen, and the rest fills up from 9 on.
std::vector<squad_row> top_order(const std::vector<std::string>& roles, const std::string& others = l) {
  std::vector<squad_row> rows;
  for (const std::string& role : roles) rows.push_back({role, 3});
  rows[0].skill = 50;
  for (int place = 5; place <= 14; ++place) {
    rows.push_back({others, 45 - place, place <= 8 ? 25.0F + static_cast<float>(place) : 80.0F, 5});
  }
  return rows;
}

TEST(AutoSelectTopOrder, TakesTheFirstTwoOpenersByPlace) {
  EXPECT_THAT(auto_selected(top_order({m, o, o, o})), ElementsAre(1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, OneOpenerIsJoinedByTheFirstOfTheMiddleOrder) {
  EXPECT_THAT(auto_selected(top_order({l, m, o, m})), ElementsAre(1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12));
  EXPECT_THAT(auto_selected(top_order({l, l, m, o})), ElementsAre(1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, OneOpenerWithoutAMiddleOrderIsJoinedByTheFirstOfTheLower) {
  EXPECT_THAT(auto_selected(top_order({"", l, l, o})), ElementsAre(1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, WithoutAnOpenerTheFirstTwoOfTheMiddleOrderAreTaken) {
  EXPECT_THAT(auto_selected(top_order({l, m, m, m})), ElementsAre(1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, OneOfTheMiddleOrderAloneIsJoinedByTheFirstOfTheLower) {
  EXPECT_THAT(auto_selected(top_order({"", l, m, l})), ElementsAre(1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, WithoutBothTheFirstTwoOfTheLowerOrderAreTaken) {
  EXPECT_THAT(auto_selected(top_order({"", "", l, l})), ElementsAre(1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST(AutoSelectTopOrder, AnOnlyManOfTheLowerOrderCountsTwice) {
  EXPECT_THAT(auto_selected(top_order({"", "", l, ""}, "")), ElementsAre(1, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13));
}

void expect_endless(const std::vector<squad_row>& rows) {
  try {
    auto_selected(rows);
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::endless);
    EXPECT_EQ(error.place().player, "Home");
  }
}

TEST(AutoSelectTopOrder, NoManOfAKnownRoleIsAnEndlessSearch) {
  expect_endless({});
  expect_endless(top_order({"", "opener", "Opener ", "Lower"}, "Middle"));
  expect_endless(top_order({"", o, "", ""}, ""));
  expect_endless(top_order({"", "", m, ""}, ""));
}

TEST(AutoSelectTopOrder, OneOpenerAndOneOfTheMiddleOrderAreEnough) {
  EXPECT_THAT(auto_selected(top_order({"", o, m, ""}, "")), ElementsAre(1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12));
}

}  // namespace
}  // namespace velorin::testing
