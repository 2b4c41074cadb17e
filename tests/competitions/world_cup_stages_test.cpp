// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <string>
#include <tuple>

#include "competitions/cup_fixture.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

using CupStages = CupTest;

/// played, won, lost, tied, points of a row.
std::vector<int> figures(const league_row& row) { return {row.played, row.won, row.lost, row.tied, row.points}; }

/// Plays a match of a group and books it.
void play_in(cup_group& group, const entered_side& first, const entered_side& second, const std::string& ground) {
  play_entered(first, second, ground);
  book_group_match(match, group, first.team, second.team);
}

/// The same in the Super Six.
void play_in_super_six(const entered_side& first, const entered_side& second, const std::string& ground) {
  play_entered(first, second, ground);
  book_league_match(match, &world_cup.super_six[1], cup_super_six_places, first.team, second.team);
}

/// The texts of a table, the rate with them.
std::vector<std::string> row_texts(const league_texts& row) { return {row.begin(), row.end()}; }

TEST_F(CupStages, AGroupMatchIsBookedInTheCellsOfTheTwo) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  force({2, 0}, 1.5);
  play_in(world_cup.group_a, {"Dessa", false}, {"Brava", false}, "Ardell Park");
  EXPECT_EQ(user_.matches[0].ground, "Ardell Park");
  EXPECT_THAT(figures(world_cup.group_a[2].versus[4]), ElementsAre(1, 1, 0, 0, 2));
  EXPECT_THAT(figures(world_cup.group_a[4].versus[2]), ElementsAre(1, 0, 1, 0, 0));
  EXPECT_EQ(world_cup.group_a[2].versus[4].net_run_rate, 1.5);
  EXPECT_EQ(world_cup.group_a[4].versus[2].net_run_rate, -1.5);
  play_in(world_cup.group_b, {"Farol", false}, {"Jorvik", false}, "Ardell Oval");
  EXPECT_THAT(figures(world_cup.group_b[1].versus[5]), ElementsAre(1, 0, 0, 1, 1));
  EXPECT_THAT(figures(world_cup.group_b[5].versus[1]), ElementsAre(1, 0, 0, 1, 1));
  EXPECT_EQ(group_table(world_cup.group_a)[1].played, 0);
  EXPECT_EQ(group_table(world_cup.group_b)[2].played, 0);
}

TEST_F(CupStages, ACellThatOverflowsNamesItsTeam) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  force({1, 0}, 1);
  for (const auto& [team, other, name] : {std::tuple(2, 4, "Brava"), std::tuple(4, 2, "Dessa")}) {
    integer& played = world_cup.group_a[team].versus[other].played;
    played = 32767;
    try {
      play_in(world_cup.group_a, {"Brava", false}, {"Dessa", false}, "Ardell Park");
      ADD_FAILURE() << "no failure";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.what(),
                std::string("Overflow: 32768 does not fit a 16-bit figure (field played, at \"") + name + "\")");
    }
    EXPECT_EQ(played, 32767);
    played = 0;
  }
}

TEST_F(CupStages, OfANameTwiceInAGroupTheLastPlaceIsBooked) {
  choose_groups({"Ardell", "Brava", "Ardell", "Dessa", "Elmar"});
  draw_group_fixtures(chance, world_cup);
  force({1, 1});
  play_in(world_cup.group_a, {"Ardell", false}, {"Dessa", false}, "Ardell Park");
  EXPECT_THAT(figures(world_cup.group_a[3].versus[4]), ElementsAre(1, 1, 0, 0, 2));
  EXPECT_THAT(figures(world_cup.group_a[1].versus[4]), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_THAT(figures(world_cup.group_a[4].versus[3]), ElementsAre(1, 0, 1, 0, 0));
  EXPECT_THAT(figures(world_cup.group_a[4].versus[1]), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(CupStages, ASuperSixMatchIsBookedInTheTable) {
  choose_groups();
  for (int place = 1; place <= 6; ++place) {
    world_cup.super_six[place].team = place <= 3 ? cup_group_a[place - 1] : cup_group_b[place - 4];
  }
  force({1, 0}, 0.75);
  play_in_super_six({"Brava", true}, {"Halden", false}, "Ardell Oval");
  EXPECT_TRUE(user_.matches[0].first_human);
  EXPECT_THAT(figures(world_cup.super_six[2]), ElementsAre(1, 1, 0, 0, 2));
  EXPECT_THAT(figures(world_cup.super_six[6]), ElementsAre(1, 0, 1, 0, 0));
  EXPECT_EQ(world_cup.super_six[2].net_run_rate, 0.75);
  EXPECT_EQ(world_cup.super_six[6].net_run_rate, -0.75);
  clear_result(match);
  play_in_super_six({"Brava", false}, {"Farol", false}, "Ardell Oval");
  EXPECT_THAT(figures(world_cup.super_six[2]), ElementsAre(2, 1, 0, 1, 3));
  EXPECT_THAT(figures(world_cup.super_six[4]), ElementsAre(1, 0, 0, 1, 1));
}

TEST_F(CupStages, TheWindowsComeInTheirOrder) {
  form_.accept();
  std::vector<std::string> wanted = {"wc_fix"};
  const auto add = [&wanted](int times, const std::vector<std::string>& windows) {
    for (int i = 0; i < times; ++i) wanted.insert(wanted.end(), windows.begin(), windows.end());
  };
  add(20, {"match", "wcsstab", "wc_fix"});
  add(1, {"wcsstab", "wc_fix"});
  add(9, {"match", "wcsstab", "wc_fix"});
  add(3, {"match", "wcsstab"});
  std::vector<std::string> seen;
  for (const std::string& request : user_.requests) {
    if (request == "wcsstab" || request == "wc_fix") seen.push_back(request);
    if (request == "wecond") seen.push_back("match");
  }
  EXPECT_EQ(seen, wanted);
  EXPECT_EQ(user_.matches.size(), 32U);
  EXPECT_FALSE(form_.closed) << "the form stays loaded";
  EXPECT_TRUE(form_.hidden);
  EXPECT_FALSE(world_cup.quit_requested);
}

TEST_F(CupStages, EveryFixtureIsPlayedWhereAndAsItStands) {
  form_.accept();
  for (int k = 1; k <= 29; ++k) {
    const cup_fixture& fixture = world_cup.fixtures[k];
    const entered_match& played = user_.matches[k - 1];
    EXPECT_EQ(played.first, fixture.team_a);
    EXPECT_EQ(played.second, fixture.team_b);
    EXPECT_EQ(played.ground, fixture.venue);
    const match_result& result = played.result;
    EXPECT_EQ(fixture.result,
              result.result_winner.empty() ? "Match Tied" : result.result_winner + " " + result.result_margin);
    const world_cup_fixtures_form& list = user_.fixture_lists[k <= 20 ? k - 1 : k];
    EXPECT_EQ(list.next_fixture, k) << "the list before the match names it";
  }
}

TEST_F(CupStages, AWinAndATieAreListedInWords) {
  force({1, 0});
  user_.on_world_cup_fixtures.assign(2, [](world_cup_fixtures_form& list) { list.accept(); });
  user_.on_world_cup_fixtures.push_back([this](world_cup_fixtures_form& list) {
    EXPECT_EQ(list.row_of(1).result, user_.matches[0].first + "   won by  7  runs");
    EXPECT_EQ(list.row_of(2).result, "Match Tied");
    EXPECT_EQ(list.row_of(3).result, "");
    EXPECT_EQ(match.result_winner, "");
    EXPECT_EQ(match.result_margin, "");
    EXPECT_EQ(match.result_ground, "");
    EXPECT_EQ(match.rate_first.team, "");
    EXPECT_EQ(match.rate_second.delta, 0);
    list.quit();
  });
  form_.accept();
  EXPECT_TRUE(form_.closed);
}

TEST_F(CupStages, WithAllLeagueMatchesTiedTheDrawDecidesEverything) {
  tie_the_leagues();
  force({1, 2, 1});
  form_.accept();
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(order(tables.group_a), cup_group_a);
  EXPECT_EQ(order(tables.group_b), cup_group_b);
  EXPECT_THAT(row_texts(tables.group_a[4]), ElementsAre("Elmar", "4", "0", "0", "4", "4", "0"));
  EXPECT_THAT(order(tables.super_six), ElementsAre("Ardell", "Brava", "Corrin", "Farol", "Gintra", "Halden"));
  EXPECT_THAT(row_texts(tables.super_six[5]), ElementsAre("Halden", "5", "0", "0", "5", "5", "0"));
  EXPECT_EQ(tables.first_semi_final, "Ardell vs Farol - Ardell   won by  7  runs") << "first against fourth";
  EXPECT_EQ(tables.second_semi_final, "Brava vs Corrin - Corrin   won by  7  runs") << "second against third";
  EXPECT_EQ(tables.grand_final, "Ardell vs Corrin - Ardell   won by  7  runs");
  EXPECT_EQ(tables.winners_line, "World Cup winners : Ardell");
}

TEST_F(CupStages, QualifiersCarryTheirMatchesAgainstEachOtherAlone) {
  // The list is left as drawn, so that the group matches are known: 1-2, 1-3, 1-4, 1-5, 2-3 and so on, A and B in turn.
  const auto before_the_shuffle = [](int k) { return k < 20 ? 0.25 : 0.0; };
  std::vector<double> draws;
  for (int k = 0; k < 80; ++k) draws.push_back(before_the_shuffle(k));
  choose_groups();
  script_draws(draws);
  draw_group_fixtures(chance, world_cup);
  chance.use_seed(4);
  // Group A: 1 beats all, 2 beats all but 1, 3 ties with 4, beats 5; 4 beats 5. Qualifiers 1, 2, 3 (3 and 4 level on
  // points and, by the ties of equal gain, on rates).
  const std::vector<std::pair<std::string, int>> of_a = {{"12", 1}, {"13", 1}, {"14", 1}, {"15", 1}, {"23", 1},
                                                         {"24", 1}, {"25", 1}, {"34", 0}, {"35", 1}, {"45", 1}};
  force({});
  for (const auto& [pair, winner] : of_a) {
    force({winner}, 0.5);
    play_in(world_cup.group_a, {cup_group_a[pair[0] - '1'], false}, {cup_group_a[pair[1] - '1'], false}, "Ardell Oval");
    clear_result(match);
  }
  build_super_six(world_cup);
  EXPECT_EQ(world_cup.super_six[1].team, "Ardell");
  EXPECT_EQ(world_cup.super_six[2].team, "Brava");
  EXPECT_EQ(world_cup.super_six[3].team, "Corrin") << "level with Dessa in everything, and drawn before";
  EXPECT_THAT(figures(world_cup.super_six[1]), ElementsAre(2, 2, 0, 0, 4));
  EXPECT_THAT(figures(world_cup.super_six[2]), ElementsAre(2, 1, 1, 0, 2));
  EXPECT_THAT(figures(world_cup.super_six[3]), ElementsAre(2, 0, 2, 0, 0))
      << "the tie with a team that is out is dropped";
  EXPECT_EQ(world_cup.super_six[1].net_run_rate, 1);
  EXPECT_EQ(world_cup.super_six[2].net_run_rate, 0);
  EXPECT_EQ(world_cup.super_six[3].net_run_rate, -1);
  EXPECT_THAT(figures(world_cup.super_six[4]), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(CupStages, TheGroupsEndInTableOrderWithTheirRows) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  force({1}, 2);
  play_in(world_cup.group_b, {"Isker", false}, {"Farol", false}, "Ardell Oval");
  build_super_six(world_cup);
  std::vector<std::string> names;
  for (int i = 1; i <= 5; ++i) names.push_back(world_cup.group_b[i].team);
  EXPECT_THAT(names, ElementsAre("Isker", "Gintra", "Halden", "Jorvik", "Farol"));
  EXPECT_EQ(world_cup.group_b[1].versus[1].team, "Farol") << "a team's rows move with it";
  EXPECT_EQ(world_cup.group_b[1].versus[1].won, 1);
  EXPECT_EQ(world_cup.group_b[1].versus[4].team, "");
  EXPECT_EQ(world_cup.super_six[4].team, "Isker");
  EXPECT_EQ(world_cup.super_six[4].played, 0) << "the only match was against a team that is out";
}

TEST_F(CupStages, ATieCarriesItsPointOnlyIfBothQualify) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  force({0, 0, 1, 1, 1});
  play_in(world_cup.group_a, {"Ardell", false}, {"Brava", false}, "Ardell Oval");
  play_in(world_cup.group_a, {"Ardell", false}, {"Elmar", false}, "Ardell Oval");
  play_in(world_cup.group_a, {"Ardell", false}, {"Dessa", false}, "Ardell Oval");
  play_in(world_cup.group_a, {"Brava", false}, {"Dessa", false}, "Ardell Oval");
  play_in(world_cup.group_a, {"Corrin", false}, {"Elmar", false}, "Ardell Oval");
  build_super_six(world_cup);
  EXPECT_EQ(world_cup.super_six[1].team, "Ardell");
  EXPECT_THAT(figures(world_cup.super_six[1]), ElementsAre(1, 0, 0, 1, 1));
  EXPECT_EQ(world_cup.super_six[2].team, "Brava");
  EXPECT_THAT(figures(world_cup.super_six[2]), ElementsAre(1, 0, 0, 1, 1));
}

}  // namespace
}  // namespace velorin::testing
