// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "database/elevens.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/squad_table.h"

// The eleven that the headless user selects, above all where Auto Select ticks twelve.

namespace velorin::testing {
namespace {

const std::string o = "Opener";
const std::string m = "Middle Order";
const std::string l = "Lower Order";

/// Auto Select ticks places 1 to 12: openers 1 and 2, batsmen 3 to 6, bowlers 7 to 10, the keeper 11 and 12, the best
/// bowler who can bat.
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

/// The names of the eleven that goes into the match, parted by blanks.
std::string selected(const squad& men) {
  set_up_sample_match();
  selection screen(men);
  headless_user user(match);
  user.show(screen.form);
  EXPECT_TRUE(screen.form.closed);
  EXPECT_TRUE(match.first_team_done);
  read_elevens(match, data);
  std::string names;
  for (int i = 1; i <= 11; ++i) names += (i > 1 ? " " : "") + match.batting_xi[i].name;
  return names;
}

std::string selected(const std::vector<squad_row>& rows) { return selected(squad_of(rows)); }

/// All of the twelve but one.
std::string without(int place) {
  std::string names;
  for (int i = 1; i <= 12; ++i) {
    if (i != place) names += (names.empty() ? "p" : " p") + std::to_string(i);
  }
  return names;
}

TEST(LeaveOut, NobodyWhereElevenAreTicked) {
  auto rows = twelve();
  rows[0].skill = 41;  // the first opener is one of the best batsmen now, and 6 is not
  rows[4].skill = 20;
  EXPECT_EQ(selected(rows), "p1 p2 p3 p4 p6 p7 p8 p9 p10 p11 p12");
}

TEST(LeaveOut, TheLeastBatWhoNeitherKeepsNorBowls) { EXPECT_EQ(selected(twelve()), without(2)); }

TEST(LeaveOut, OfEqualBatsTheLaterPlace) {
  auto rows = twelve();
  rows[0].skill = 9;
  EXPECT_EQ(selected(rows), without(2));
  rows[0].skill = 8;
  EXPECT_EQ(selected(rows), without(1));
  for (const std::size_t i : {0U, 1U, 2U, 3U, 4U, 5U}) rows[i].skill = 38;  // 1 to 4 are the batsmen, 5 fills up
  rows[12].skill = 37;
  EXPECT_EQ(selected(rows), "p1 p2 p3 p4 p5 p7 p8 p9 p10 p11 p12") << "only eleven are ticked";
}

TEST(LeaveOut, NeverTheKeeper) {
  auto rows = twelve();
  rows[10].skill = 1;
  EXPECT_EQ(selected(rows), without(2));
}

TEST(LeaveOut, NotAnotherKeeperAmongTheTicked) {
  auto rows = twelve();
  rows[1].keeper = true;  // of skill 9, less than the keeper of 30
  EXPECT_EQ(selected(rows), without(1));
}

TEST(LeaveOut, NeverTheBowlerWhoCanBat) {
  auto rows = twelve();
  rows[0].skill = 27;
  rows[1].skill = 26;
  EXPECT_EQ(selected(rows), without(2)) << "12, of skill 25, was ticked as the bowler who can bat";
}

TEST(LeaveOut, ABatsmanIfNobodyElseMayGo) {
  auto rows = twelve();
  rows[0].keeper = true;
  rows[1].keeper = true;
  EXPECT_EQ(selected(rows), without(6));
}

TEST(LeaveOut, TheSecondTeamsOkIsPressedForTheSecondTeam) {
  set_up_sample_match();
  headless_user user(match);
  selection first(squad_of(twelve()), "Home");
  user.show(first.form);
  selection second(squad_of(twelve()), "Away");
  user.show(second.form);
  EXPECT_TRUE(second.form.closed);
  EXPECT_FALSE(match.first_team_done);
  EXPECT_NE(match.selected[1][1].name, "");
}

}  // namespace
}  // namespace velorin::testing
