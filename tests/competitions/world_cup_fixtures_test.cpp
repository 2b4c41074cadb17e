// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/world_cup_fixtures.h"

#include "competitions/competition_fixture.h"
#include "competitions/world_cup.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class FixtureList : public CompetitionTest {
 protected:
  /// A list of so many fixtures, of which the first so many have been played.
  void fill(int fixtures, int played) {
    for (int place = 1; place <= fixtures; ++place) {
      cup_fixture& fixture = world_cup.fixtures[place];
      fixture.team_a = "H" + std::to_string(place);
      fixture.team_b = "V" + std::to_string(place);
      fixture.venue = "G" + std::to_string(place);
      fixture.stage = place > 20 ? "SS" : place % 2 == 1 ? "A" : "B";
      fixture.match_no = place > 20 ? place - 20 : (place + 1) / 2;
      fixture.result = place <= played ? "H" + std::to_string(place) + "   won by  7  runs" : "";
    }
    list_.open();
  }

  /// The place of the row in dark blue, from 0; -1 if none is.
  int blue_row() const {
    int found = -1;
    for (int line = 0; line < 10; ++line) {
      if (!list_.rows[line].is_next) continue;
      EXPECT_EQ(found, -1) << "two rows are marked";
      found = line;
    }
    return found;
  }

  world_cup_fixtures_form list_{user_in_use(), world_cup};
};

std::vector<std::string> texts(const world_cup_fixtures_form::row& row) {
  return {row.match_number, row.team_a, row.versus, row.team_b, row.at, row.venue, row.result};
}

TEST_F(FixtureList, ARowHasItsTexts) {
  fill(29, 1);
  EXPECT_THAT(texts(list_.rows[0]), ElementsAre("Gr A Mt 1", "H1", "vs", "V1", "@", "G1", "H1   won by  7  runs"));
  EXPECT_THAT(texts(list_.rows[1]), ElementsAre("Gr B Mt 1", "H2", "vs", "V2", "@", "G2", ""));
  EXPECT_THAT(texts(list_.row_of(29)), ElementsAre("Gr SS Mt 9", "H29", "vs", "V29", "@", "G29", ""));
}

TEST_F(FixtureList, TheFirstMatchesStandAtTheTop) {
  for (int played = 0; played < 10; ++played) {
    fill(20, played);
    EXPECT_EQ(list_.fixtures, 20);
    EXPECT_EQ(list_.next_fixture, played + 1);
    EXPECT_EQ(list_.scroll, 1);
    EXPECT_EQ(list_.scroll_maximum, 11);
    EXPECT_EQ(blue_row(), played);
  }
}

TEST_F(FixtureList, FromTheEleventhOnTheNextMatchStandsOnTheLastRow) {
  for (int next = 11; next <= 20; ++next) {
    fill(20, next - 1);
    EXPECT_EQ(list_.next_fixture, next);
    EXPECT_EQ(list_.scroll, next - 9);
    EXPECT_EQ(blue_row(), 9);
    EXPECT_EQ(list_.rows[9].team_a, "H" + std::to_string(next));
  }
}

TEST_F(FixtureList, TheStartOfTheSuperSixLeavesTheListAtTheTop) {
  fill(29, 20);
  EXPECT_EQ(list_.next_fixture, 21);
  EXPECT_EQ(list_.scroll_maximum, 20);
  EXPECT_EQ(list_.scroll, 1);
  EXPECT_EQ(blue_row(), -1) << "the next match is not on show";
  list_.scroll_to(12);
  EXPECT_EQ(blue_row(), 9);
}

TEST_F(FixtureList, WithinTheSuperSixItFollowsAgain) {
  fill(29, 21);
  EXPECT_EQ(list_.scroll, 13);
  fill(29, 28);
  EXPECT_EQ(list_.next_fixture, 29);
  EXPECT_EQ(list_.scroll, 20);
  EXPECT_EQ(blue_row(), 9);
}

TEST_F(FixtureList, AThirtiethMatchLeavesTheListAtTheTop) {
  fill(31, 29);
  EXPECT_EQ(list_.next_fixture, 30);
  EXPECT_EQ(list_.scroll, 1);
  fill(31, 30);
  EXPECT_EQ(list_.next_fixture, 31);
  EXPECT_EQ(list_.scroll, 22);
}

TEST_F(FixtureList, WithEverythingPlayedThereIsNoNextMatch) {
  fill(20, 20);
  EXPECT_EQ(list_.next_fixture, 0);
  EXPECT_EQ(list_.scroll, 1);
  EXPECT_EQ(blue_row(), -1);
}

TEST_F(FixtureList, TheNextMatchIsTheFirstWithoutAResult) {
  fill(20, 20);
  world_cup.fixtures[4].result = "";
  world_cup.fixtures[16].result = "";
  list_.open();
  EXPECT_EQ(list_.next_fixture, 4);
}

TEST_F(FixtureList, TheListEndsBeforeTheFirstEmptyName) {
  fill(20, 0);
  world_cup.fixtures[13].team_a = "";
  list_.open();
  EXPECT_EQ(list_.fixtures, 12);
  EXPECT_EQ(list_.scroll_maximum, 3);
}

TEST_F(FixtureList, FewFixturesLeaveEmptyRows) {
  fill(4, 0);
  EXPECT_EQ(list_.scroll_maximum, 1);
  EXPECT_EQ(list_.rows[3].team_a, "H4");
  for (int line = 4; line < 10; ++line) {
    EXPECT_THAT(texts(list_.rows[line]), ElementsAre("", "", "", "", "", "", ""));
    EXPECT_FALSE(list_.rows[line].is_next);
  }
}

TEST_F(FixtureList, AFullListHasFifty) {
  fill(50, 40);
  EXPECT_EQ(list_.fixtures, 50);
  EXPECT_EQ(list_.scroll_maximum, 41);
  EXPECT_EQ(list_.scroll, 32);
}

TEST_F(FixtureList, TheScrollBarMovesTheRowsWithinItsRange) {
  fill(29, 3);
  list_.scroll_to(7);
  EXPECT_EQ(list_.rows[0].team_a, "H7");
  EXPECT_EQ(list_.rows[9].team_a, "H16");
  EXPECT_EQ(blue_row(), -1);
  list_.scroll_to(99);
  EXPECT_EQ(list_.scroll, 20);
  EXPECT_EQ(list_.rows[9].team_a, "H29");
  list_.scroll_to(-4);
  EXPECT_EQ(list_.scroll, 1);
  EXPECT_EQ(blue_row(), 3);
}

TEST_F(FixtureList, TheButtonsPlayShowTheTablesAndQuit) {
  fill(20, 0);
  list_.open_tables();
  EXPECT_THAT(user_.requests, ElementsAre("wcsstab"));
  EXPECT_FALSE(list_.closed) << "the tables open over the list";
  list_.accept();
  EXPECT_TRUE(list_.closed);
  EXPECT_FALSE(world_cup.quit_requested);
  list_.open();
  list_.quit();
  EXPECT_TRUE(list_.closed);
  EXPECT_TRUE(world_cup.quit_requested);
}

}  // namespace
}  // namespace velorin::testing
