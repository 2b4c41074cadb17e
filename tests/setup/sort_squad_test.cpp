// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "setup/new_match.h"
#include "support/squad_table.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

/// The names of the first `count` places after the sort.
std::vector<std::string> sorted(squad men, int count) {
  sort_squad(men);
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back(men[i].name);
  return names;
}

TEST(SortSquad, OpenersThenTheMiddleThenTheLowerOrderEachBySkill) {
  EXPECT_THAT(sorted(squad_of({{l, 20}, {m, 30}, {o, 25}, {m, 45}, {l, 22}, {o, 50}, {m, 31}, {l, 1}}), 8),
              ElementsAre("p6", "p3", "p4", "p7", "p2", "p5", "p1", "p8"));
}

TEST(SortSquad, EqualMenKeepTheirOrder) {
  EXPECT_THAT(sorted(squad_of({{m, 30}, {o, 30}, {m, 30}, {o, 30}, {m, 30}, {o, 30}}), 6),
              ElementsAre("p2", "p4", "p6", "p1", "p3", "p5"));
}

TEST(SortSquad, TheHandDoesNotCount) {
  squad men = squad_of({{m, 30}, {m, 40}, {m, 35}});
  men[1].bat_type = "ZZZMiddle Order";
  men[2].bat_type = "   Middle Order";
  men[3].bat_type = "LH Middle Order";
  EXPECT_THAT(sorted(men, 3), ElementsAre("p2", "p3", "p1"));
}

TEST(SortSquad, OtherRolesStandWhereTheirTextsStand) {
  // Falling by the value of the characters: small letters before capitals, the longer before its beginning, a text
  // that is too short for a role last.
  squad men = squad_of({{"Keeper", 99},
                        {l, 99},
                        {"opener", 1},
                        {o, 99},
                        {"Opener+", 1},
                        {"", 99},
                        {"\xC9lite", 1},
                        {"Opene", 99},
                        {m, 2}});
  EXPECT_THAT(sorted(men, 9), ElementsAre("p7", "p3", "p5", "p4", "p8", "p9", "p2", "p1", "p6"));
  men[6].bat_type = "R";
  EXPECT_EQ(sorted(men, 9).back(), "p6");
}

TEST(SortSquad, EmptyPlacesSinkToTheEnd) {
  squad men = squad_of({{l, 5}, {l, 6}, {o, 7}, {m, 8}});
  men[1] = player_rec();
  men[3] = player_rec();
  const auto names = sorted(men, 20);
  EXPECT_EQ(names[0], "p4");
  EXPECT_EQ(names[1], "p2");
  for (std::size_t i = 2; i < 20; ++i) EXPECT_EQ(names[i], "");
}

TEST(SortSquad, ABlankRecordWithARoleTakesItsPlaceByIt) {
  squad men = squad_of({{l, 5}, {m, 6}, {o, 7}});
  men[3].name.clear();
  EXPECT_THAT(sorted(men, 3), ElementsAre("", "p2", "p1"));
}

TEST(SortSquad, AFullSquadInReverseIsTurnedRound) {
  std::vector<squad_row> rows;
  for (int skill = 1; skill <= 20; ++skill) rows.push_back({m, skill});
  const auto names = sorted(squad_of(rows), 20);
  for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(names[i], "p" + std::to_string(20 - i));
}

TEST(SortSquad, WholeRecordsMove) {
  squad men = squad_of({{l, 5, 31.5F, 4.5F, true, "Fast Bowler"}, {o, 6}});
  men[1].reserved[5] = "tail";
  sort_squad(men);
  EXPECT_EQ(men[2].name, "p1");
  EXPECT_EQ(men[2].bat_skill, 5);
  EXPECT_EQ(men[2].bowl_sr, 31.5F);
  EXPECT_EQ(men[2].econ, 4.5F);
  EXPECT_EQ(men[2].is_keeper, flag_true);
  EXPECT_EQ(men[2].bowler_type, "Fast Bowler");
  EXPECT_EQ(men[2].reserved[5], "tail");
}

}  // namespace
}  // namespace velorin::testing
