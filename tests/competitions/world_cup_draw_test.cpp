// SPDX-License-Identifier: GPL-3.0-or-later
#include <numeric>
#include <utility>

#include "competitions/cup_fixture.h"
#include "competitions/world_cup_fixtures.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using CupDraw = CupTest;

constexpr double oval = 0.25;
constexpr double park = 0.75;

/// The draw of a place from `count` places from `first` on.
double draw_place(int place, int count, int first) { return die_draw(place - first + 1, count); }

/// Draws for so many exchanges of a place with itself.
std::vector<double> idle_exchanges(int times) { return std::vector<double>(2 * times, 0.0); }

std::vector<double> joined(std::vector<double> first, const std::vector<double>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// The fixtures from one place to another: stage, the two places, the teams, ground.
std::vector<std::string> fixtures(int from, int to) {
  std::vector<std::string> lines;
  for (int place = from; place <= to; ++place) {
    const cup_fixture& fixture = world_cup.fixtures[place];
    lines.push_back(fixture.stage + " " + std::to_string(int(fixture.index_a)) + " " +
                    std::to_string(int(fixture.index_b)) + " " + fixture.team_a + "-" + fixture.team_b + " " +
                    fixture.venue);
  }
  return lines;
}

TEST_F(CupDraw, TheFormOpensOnTheFirstTenTeams) {
  EXPECT_EQ(form_.teams.size(), 10U);
  EXPECT_THAT(form_.group_a_index, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(form_.group_b_index, ElementsAre(5, 6, 7, 8, 9));
  EXPECT_THAT(form_.host_index, ElementsAre(0, -1, -1));
  EXPECT_THAT(form_.human_a, Each(false));
  EXPECT_THAT(form_.human_b, Each(false));
  EXPECT_STREQ(world_cup_form::note, "Note: Select all the human controlled teams.");
  EXPECT_FALSE(form_.closed);
  EXPECT_THAT(user_.requests, IsEmpty()) << "ten teams are enough";
  form_.cancel();
  EXPECT_TRUE(form_.closed);
}

TEST(CupForm, NineTeamsAreNotEnough) {
  small_database database;
  for (int i = 1; i <= 9; ++i) database.add_team("Team" + std::to_string(i));
  database.write();
  scripted_user user;
  const front_end_scope shown(user);
  world_cup_form form(in_play(), world_cup);
  form.open();
  EXPECT_TRUE(form.closed);
  EXPECT_THAT(user.requests, ElementsAre("message Error | Not enough teams in current database to play the World cup"));
}

TEST_F(CupDraw, AnEleventhTeamIsOnTheListsButNotInTheGroups) {
  database_.add_team("Kestor");
  database_.write();
  form_.open();
  ASSERT_EQ(form_.teams.size(), 11U);
  EXPECT_EQ(form_.teams[10].name, "Kestor");
  EXPECT_EQ(form_.teams[10].record, 12);
  EXPECT_THAT(form_.group_b_index, ElementsAre(5, 6, 7, 8, 9));
}

TEST_F(CupDraw, TheRowsAgainstTheOthersAreNamed) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(world_cup.group_a[i].team, cup_group_a[i - 1]);
    EXPECT_EQ(world_cup.group_b[i].team, cup_group_b[i - 1]);
    for (int j = 1; j <= 5; ++j) {
      EXPECT_EQ(world_cup.group_a[i].versus[j].team, i == j ? "" : cup_group_a[j - 1]);
      EXPECT_EQ(world_cup.group_b[i].versus[j].team, i == j ? "" : cup_group_b[j - 1]);
    }
  }
}

TEST_F(CupDraw, GroupMatchesAlternateAndEachDrawsItsGround) {
  choose_groups();
  std::vector<double> venues;
  for (int k = 0; k < 10; ++k) {
    venues.push_back(oval);
    venues.push_back(k < 5 ? park : oval);
  }
  script_draws(joined(venues, idle_exchanges(30)));
  draw_group_fixtures(chance, world_cup);
  EXPECT_EQ(chance.draws_used(), 80U);
  EXPECT_THAT(fixtures(1, 8), ElementsAre("A 1 2 Ardell-Brava Ardell Oval", "B 1 2 Farol-Gintra Ardell Park",
                                          "A 1 3 Ardell-Corrin Ardell Oval", "B 1 3 Farol-Halden Ardell Park",
                                          "A 1 4 Ardell-Dessa Ardell Oval", "B 1 4 Farol-Isker Ardell Park",
                                          "A 1 5 Ardell-Elmar Ardell Oval", "B 1 5 Farol-Jorvik Ardell Park"));
  EXPECT_THAT(fixtures(9, 20), ElementsAre("A 2 3 Brava-Corrin Ardell Oval", "B 2 3 Gintra-Halden Ardell Park",
                                           "A 2 4 Brava-Dessa Ardell Oval", "B 2 4 Gintra-Isker Ardell Oval",
                                           "A 2 5 Brava-Elmar Ardell Oval", "B 2 5 Gintra-Jorvik Ardell Oval",
                                           "A 3 4 Corrin-Dessa Ardell Oval", "B 3 4 Halden-Isker Ardell Oval",
                                           "A 3 5 Corrin-Elmar Ardell Oval", "B 3 5 Halden-Jorvik Ardell Oval",
                                           "A 4 5 Dessa-Elmar Ardell Oval", "B 4 5 Isker-Jorvik Ardell Oval"));
  for (int k = 1; k <= 20; ++k) EXPECT_EQ(world_cup.fixtures[k].match_no, (k + 1) / 2);
  EXPECT_EQ(world_cup.fixtures[21].team_a, "");
}

TEST_F(CupDraw, ThirtyExchangesShuffleTheGroupMatches) {
  choose_groups();
  script_draws(joined(std::vector<double>(20, oval), idle_exchanges(30)));
  draw_group_fixtures(chance, world_cup);
  std::vector<std::string> wanted = fixtures(1, 20);

  std::vector<double> draws(20, oval);
  for (int exchange = 1; exchange <= 30; ++exchange) {
    const int p = exchange % 20 + 1;
    const int q = exchange == 7 ? p : (exchange * 7) % 20 + 1;
    draws.push_back(draw_place(p, 20, 1));
    draws.push_back(draw_place(q, 20, 1));
    std::swap(wanted[p - 1], wanted[q - 1]);
  }
  script_draws(draws);
  draw_group_fixtures(chance, world_cup);
  EXPECT_EQ(fixtures(1, 20), wanted);
  EXPECT_EQ(chance.draws_used(), 80U) << "thirty exchanges, two draws each";
}

TEST_F(CupDraw, TheFirstAndTheLastPlaceCanBeDrawn) {
  choose_groups();
  std::vector<double> draws = joined(std::vector<double>(20, oval), {0.0, 0.9999999});
  script_draws(joined(draws, idle_exchanges(29)));
  draw_group_fixtures(chance, world_cup);
  EXPECT_EQ(fixtures(1, 1)[0], "B 4 5 Isker-Jorvik Ardell Oval");
  EXPECT_EQ(fixtures(20, 20)[0], "A 1 2 Ardell-Brava Ardell Oval");
}

TEST_F(CupDraw, NumbersRunUpWithinEachGroup) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  int a = 0;
  int b = 0;
  for (int k = 1; k <= 20; ++k) {
    const cup_fixture& fixture = world_cup.fixtures[k];
    EXPECT_EQ(fixture.match_no, fixture.stage == "A" ? ++a : ++b);
  }
  EXPECT_EQ(a, 10);
  EXPECT_EQ(b, 10);
}

TEST_F(CupDraw, TheSuperSixMeetsAcrossTheGroups) {
  choose_groups();
  for (int place = 1; place <= 6; ++place) world_cup.super_six[place].team = "Q" + std::to_string(place);
  std::vector<double> venues(9, park);
  venues[4] = oval;
  script_draws(joined(venues, idle_exchanges(10)));
  draw_super_six_fixtures(chance, world_cup);
  EXPECT_EQ(chance.draws_used(), 29U);
  EXPECT_THAT(fixtures(21, 29),
              ElementsAre("SS 1 1 Q1-Q4 Ardell Park", "SS 1 2 Q1-Q5 Ardell Park", "SS 1 3 Q1-Q6 Ardell Park",
                          "SS 2 1 Q2-Q4 Ardell Park", "SS 2 2 Q2-Q5 Ardell Oval", "SS 2 3 Q2-Q6 Ardell Park",
                          "SS 3 1 Q3-Q4 Ardell Park", "SS 3 2 Q3-Q5 Ardell Park", "SS 3 3 Q3-Q6 Ardell Park"));
}

TEST_F(CupDraw, TenExchangesShuffleTheSuperSix) {
  choose_groups();
  for (int place = 1; place <= 6; ++place) world_cup.super_six[place].team = "Q" + std::to_string(place);
  script_draws(joined(std::vector<double>(9, oval), idle_exchanges(10)));
  draw_super_six_fixtures(chance, world_cup);
  std::vector<std::string> wanted = fixtures(21, 29);

  std::vector<double> draws(9, oval);
  for (int exchange = 1; exchange <= 10; ++exchange) {
    const int p = 21 + exchange % 9;
    const int q = exchange == 1 ? 29 : 21 + (exchange * 5) % 9;
    draws.push_back(draw_place(p, 9, 21));
    draws.push_back(draw_place(q, 9, 21));
    std::swap(wanted[p - 21], wanted[q - 21]);
  }
  script_draws(draws);
  draw_super_six_fixtures(chance, world_cup);
  EXPECT_EQ(fixtures(21, 29), wanted);
  EXPECT_EQ(chance.draws_used(), 29U);
  for (int k = 21; k <= 29; ++k) EXPECT_EQ(world_cup.fixtures[k].match_no, k - 20);
}

TEST_F(CupDraw, TheHostsGroundsComeInFileOrder) {
  form_.host_index = {6, 1, 8};
  quit_after(0);
  form_.accept();
  EXPECT_THAT(world_cup.grounds,
              ElementsAre("Brava Oval", "Gintra Oval", "Isker Oval", "Brava Park", "Gintra Park", "Isker Park"));
}

TEST_F(CupDraw, HostsWithoutGroundsLeaveEveryVenueEmpty) {
  database_.add_team("Kestor");
  database_.write();
  form_.open();
  form_.host_index = {10, -1, -1};
  user_.on_world_cup_fixtures.push_back([](world_cup_fixtures_form& list) {
    EXPECT_EQ(list.fixtures, 20);
    for (int place = 1; place <= 20; ++place) EXPECT_EQ(list.row_of(place).venue, "");
    list.accept();
  });
  EXPECT_THAT(world_cup.grounds, IsEmpty());
  EXPECT_THROW(form_.accept(), run_time_error) << "there is no pitch to play on";
  EXPECT_THAT(user_.matches, IsEmpty());
}

TEST_F(CupDraw, ATeamInBothGroupsPlaysAsTwo) {
  form_.group_b_index[0] = 0;
  quit_after(20);
  form_.accept();
  int as_a = 0;
  int as_b = 0;
  for (int k = 1; k <= 20; ++k) {
    const cup_fixture& fixture = world_cup.fixtures[k];
    if (fixture.team_a == "Ardell" || fixture.team_b == "Ardell") ++(fixture.stage == "A" ? as_a : as_b);
  }
  EXPECT_EQ(as_a, 4);
  EXPECT_EQ(as_b, 4);
  EXPECT_EQ(group_table(world_cup.group_a)[1].played, 4);
  EXPECT_EQ(group_table(world_cup.group_b)[1].team, "Ardell");
  EXPECT_EQ(group_table(world_cup.group_b)[1].played, 4);
}

}  // namespace
}  // namespace velorin::testing
