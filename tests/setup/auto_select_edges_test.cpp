// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/squad_table.h"

// Ties, rounding, empty places and the twelfth man of Auto Select.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

const std::string o = "Opener";
const std::string m = "Middle Order";
const std::string l = "Lower Order";

// The ranking of bowlers: score = strike rate as a whole number + 15 x economy, the least first.

/// The four best of these bowlers, the best first.
std::array<int, 4> best_bowlers(const std::vector<std::pair<float, float>>& figures) {
  std::vector<squad_row> rows;
  for (const auto& [sr, econ] : figures) rows.push_back({l, 10, sr, econ});
  selection screen(squad_of(rows));
  screen.form.auto_select();
  return screen.form.best_bowlers();
}

TEST(AutoSelectBowlers, EconomyCountsFifteenfold) {
  EXPECT_THAT(best_bowlers({{20, 6}, {34, 5}, {48, 4}, {62, 3}, {36, 5}}), ElementsAre(4, 3, 2, 1));  // 107 to 111
}

TEST(AutoSelectBowlers, TheEarlierPlaceWinsATie) {
  EXPECT_THAT(best_bowlers({{30, 5}, {45, 4}, {30, 5}, {60, 3}, {90, 1}}), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(best_bowlers({{30, 5}, {45, 4}, {30, 5}, {60, 3}, {29, 5}}), ElementsAre(5, 1, 2, 3));
}

TEST(AutoSelectBowlers, AHalfOfTheStrikeRateGoesToTheEvenNeighbour) {
  EXPECT_THAT(best_bowlers({{32.5F, 5}, {32, 5}, {33.5F, 5}, {34, 5}}), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(best_bowlers({{34, 5}, {33.5F, 5}, {32, 5}, {32.5F, 5}}), ElementsAre(3, 4, 1, 2));
  EXPECT_THAT(best_bowlers({{34.5F, 5}, {34.4F, 5}, {33.6F, 5}, {34, 5}}), ElementsAre(1, 2, 3, 4));
}

TEST(AutoSelectBowlers, FiguresHaveThePrecisionOfTheirShownText) {
  // 4.7 as a single is a bit less than 4.7, and 4.3 a bit more; what is shown makes them equal: 100.5, and 94.5.
  EXPECT_THAT(best_bowlers({{33, 4.5F}, {30, 4.7F}, {50, 5}, {60, 6}}), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(best_bowlers({{30, 4.3F}, {27, 4.5F}, {50, 5}, {60, 6}}), ElementsAre(1, 2, 3, 4));
}

// The ranking of batsmen.

TEST(AutoSelectBatsmen, TheEarlierPlaceWinsATie) {
  std::vector<squad_row> rows(14, squad_row{l, 30});
  for (std::size_t i = 0; i < 4; ++i) rows[i].skill = 1;
  for (std::size_t i = 10; i < 14; ++i) rows[i].sr = 30;
  // 1 and 2 open; batsmen 5 to 8; bowlers 11 to 14; 9 fills up.
  EXPECT_THAT(auto_selected(rows), ElementsAre(1, 2, 5, 6, 7, 8, 9, 11, 12, 13, 14));
}

// Twelve men.

/// Two openers of little skill, four batsmen, four bowlers, a keeper, a bowler who can bat, and one more.
std::vector<squad_row> twelve() {
  return {{o, 10},
          {o, 9},
          {m, 40},
          {m, 39},
          {m, 38},
          {m, 37},
          {l, 5, 30, 4},
          {l, 4, 31, 4},
          {l, 3, 32, 4},
          {l, 2, 33, 4},
          {m, 30, 90, 9, true},
          {l, 25, 50, 5},
          {m, 36}};
}

TEST(AutoSelectTwelve, TwelveAreTickedWhenTheStepsHardlyOverlap) {
  selection screen(squad_of(twelve()));
  screen.form.auto_select();
  EXPECT_THAT(ticked_places(screen.form), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
  EXPECT_EQ(screen.form.ticked(), 12);
  EXPECT_EQ(screen.form.selected_count(), "12/11 players selected so far.");
}

// Empty places.

TEST(AutoSelectEmptyPlaces, ShortSquadsFillUpWithThem) {
  std::vector<squad_row> rows(9, squad_row{l, 30});
  EXPECT_THAT(auto_selected(rows), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
  rows.resize(2);
  EXPECT_THAT(auto_selected(rows), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(AutoSelectEmptyPlaces, MenOfNoSkillAtAllComeBehindThem) {
  std::vector<squad_row> rows(9, squad_row{l, 30});
  for (std::size_t i = 4; i < 9; ++i) rows[i] = {l, -1, 99, 9};
  rows[8].sr = 98;
  // 1 to 4 bat and bowl; then the empty places of skill 0, 10 to 16.
  EXPECT_THAT(auto_selected(rows), ElementsAre(1, 2, 3, 4, 10, 11, 12, 13, 14, 15, 16));
}

TEST(AutoSelectEmptyPlaces, BetweenMenTheyAreLeftOutOfTheBestFour) {
  // An empty place whose figures have stayed: it is the best bat on the list, but only the last step takes it.
  auto rows = twelve();
  rows[12].skill = 99;
  squad men = squad_of(rows);
  men[13].name.clear();
  EXPECT_THAT(auto_selected(men), ElementsAre(1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12));
  men[11].is_keeper = 0;
  EXPECT_THAT(auto_selected(men), ElementsAre(1, 2, 3, 4, 5, 7, 8, 9, 10, 12, 13));
}

TEST(AutoSelectEmptyPlaces, AsBowlersTheyAreTheWorst) {
  auto rows = twelve();
  rows[12].sr = 1;
  rows[12].econ = 0.1F;
  squad men = squad_of(rows);
  men[13].name.clear();
  selection screen(men);
  screen.form.auto_select();
  EXPECT_THAT(screen.form.best_bowlers(), ElementsAre(7, 8, 9, 10));
  men[13].name = "back";
  selection with_him(men);
  with_him.form.auto_select();
  EXPECT_THAT(with_him.form.best_bowlers(), ElementsAre(13, 7, 8, 9));
}

TEST(AutoSelectEmptyPlaces, ARoleOrAKeeperThatHasStayedCounts) {
  squad men = squad_of(twelve());
  men[1].name.clear();
  men[11].name.clear();
  EXPECT_THAT(auto_selected(men), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

}  // namespace
}  // namespace velorin::testing
