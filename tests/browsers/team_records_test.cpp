// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "browsers/figures_fixture.h"
#include "browsers/team_records.h"
#include "browsers/world_rankings.h"
#include "database/configuration.h"
#include "database/database_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TeamRecords : public figures_fixture {
 protected:
  shown_table ranking() const {
    write();
    world_rankings_form form(data);
    form.open();
    return form.table;
  }
  team_records_form team(int index = 0) const {
    write();
    team_records_form form(data);
    form.open();
    form.choose_team(index);
    return form;
  }
  /// Adds teams with one win each until there are `count`.
  void add_teams(int count) {
    while (lists.table_team_count < count) add_team(fmt::format("Team {}", lists.table_team_count + 1), {1, 0, 0}, {});
  }
};

// The ranking of all teams.

TEST_F(TeamRecords, TheRankingHasItsTitleAndColumns) {
  const shown_table table = ranking();
  EXPECT_EQ(table.title, "Top Ten Teams");
  EXPECT_THAT(headings(table), ElementsAre("Rank", "Team", "Success %", "Played", "Won", "Lost", "Tied"));
  EXPECT_THAT(table.rows, IsEmpty());
}

TEST_F(TeamRecords, TheRankingAddsHomeAndAway) {
  add_team("Alba", {3, 1, 1}, {2, 4, 0});
  EXPECT_THAT(row(ranking(), 0), ElementsAre("1", "Alba", "45.45", "11", "5", "5", "1"));  // 500 / 11
}

TEST_F(TeamRecords, OneMatchWonIsAHundred) {
  add_team("Alba", {0, 1, 0}, {});
  add_team("Tamar", {}, {1, 0, 0});
  const shown_table table = ranking();
  EXPECT_THAT(row(table, 0), ElementsAre("1", "Tamar", "100", "1", "1", "0", "0"));
  EXPECT_THAT(row(table, 1), ElementsAre("2", "Alba", "0", "1", "0", "1", "0"));
}

TEST_F(TeamRecords, TiesCountAsPlayedAndEarnNothing) {
  add_team("Alba", {0, 0, 4}, {});
  add_team("Tamar", {1, 2, 0}, {0, 0, 1});
  const shown_table table = ranking();
  EXPECT_THAT(row(table, 0), ElementsAre("1", "Tamar", "25", "4", "1", "2", "1"));
  EXPECT_THAT(row(table, 1), ElementsAre("2", "Alba", "0", "4", "0", "0", "4"));
}

TEST_F(TeamRecords, EqualTeamsStandInTheOrderOfTheTable) {
  add_team("Umbria", {1, 1, 0}, {});
  add_team("Alba", {2, 1, 0}, {});
  add_team("Tamar", {0, 0, 0}, {2, 2, 0});
  add_team("Breton", {4, 2, 0}, {});
  const shown_table table = ranking();
  EXPECT_THAT(column(table, "Team"), ElementsAre("Alba", "Breton", "Umbria", "Tamar"));
  EXPECT_THAT(column(table, "Success %"), ElementsAre("66.67", "66.67", "50", "50"));
}

TEST_F(TeamRecords, TeamsEqualOnlyAfterRoundingAreEqual) {
  add_team("Alba", {3333, 6667, 0}, {});      // 33.33
  add_team("Tamar", {1, 2, 0}, {});           // 33.333...
  add_team("Umbria", {33333, 66667, 0}, {});  // 33.333
  EXPECT_THAT(column(ranking(), "Team"), ElementsAre("Alba", "Tamar", "Umbria"));
}

TEST_F(TeamRecords, ARateOfTwoDecimalsTakesTheEvenNeighbour) {
  add_team("Alba", {1, 31, 0}, {});   // 3.125
  add_team("Tamar", {3, 29, 0}, {});  // 9.375
  EXPECT_THAT(column(ranking(), "Success %"), ElementsAre("9.38", "3.12"));
}

TEST_F(TeamRecords, TheRankingHasTenRowsAndNoEleventh) {
  add_teams(10);
  EXPECT_EQ(ranking().rows.size(), 10U);
  add_teams(11);
  write();
  world_rankings_form form(data);
  EXPECT_EQ(failure_of([&] { form.open(); }), failure::subscript);
}

TEST_F(TeamRecords, ATeamWithoutAMatchHasNoSuccess) {
  add_team("Tamar", {1, 0, 0}, {});
  add_team("Alba", {}, {});
  write();
  world_rankings_form ranks(data);
  EXPECT_STREQ(
      error_of([&] { ranks.open(); }).what(),
      "Division by zero: a team of the table has played no match (file world.ptr, record 91, field away_won, at "
      "\"Alba\")");
  EXPECT_EQ(failure_of([&] { ranks.open(); }), failure::division);
  team_records_form form(data);
  EXPECT_EQ(failure_of([&] { form.open(); }), failure::division);
}

TEST_F(TeamRecords, ResultsBeyondADoubleAreRefused) {
  write();
  std::filesystem::copy_file(
      std::filesystem::path(VELORIN_TEST_DATA) / "data" / "broken" / "BrokenResultsBeyondDouble.ptr",
      data.files.record_file, std::filesystem::copy_options::overwrite_existing);
  world_rankings_form ranks(data);
  EXPECT_EQ(failure_of([&] { ranks.open(); }), failure::overflow);
  team_records_form form(data);
  EXPECT_EQ(failure_of([&] { form.open(); }), failure::overflow);
}

TEST_F(TeamRecords, ResultsBeyondADoubleAtHomeAloneAreRefusedWithTheTeam) {
  team_table& team = add_team("Alba", {}, {});
  team.home_won = team.home_tied = {1.7e308};
  team.away_won = team.away_tied = {-1.7e308};
  team.away_lost = {1.0};
  write();
  team_records_form form(data);
  form.open();
  const auto error = error_of([&] { form.choose_team(0); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_EQ(error.place().record, 72);
  EXPECT_EQ(error.place().player, "Alba");
}

TEST_F(TeamRecords, ASuccessBeyondADoubleIsRefused) {
  add_team("Alba", {}, {}).home_won = {1e307};
  write();
  world_rankings_form ranks(data);
  EXPECT_EQ(failure_of([&] { ranks.open(); }), failure::overflow);
}

TEST_F(TeamRecords, CountersOfAnyTagCount) {
  team_table& team = add_team("Alba", {}, {});
  team.home_won = {integer(2)};
  team.away_lost = {std::string("1")};
  team.away_tied = {std::int32_t(1)};
  EXPECT_THAT(row(ranking(), 0), ElementsAre("1", "Alba", "50", "4", "2", "1", "1"));
}

// One team.

TEST_F(TeamRecords, ATeamHasThreeColumnsOfResults) {
  add_team("Alba", {3, 1, 1}, {2, 4, 0});
  const team_records_form form = team();
  EXPECT_EQ(form.title, "Team Records - Alba");
  EXPECT_THAT(team_records_form::result_captions, ElementsAre("Played", "Won", "Lost", "Tied", "Success %"));
  EXPECT_EQ(form.results[0].heading, "Home");
  EXPECT_THAT(form.results[0].texts, ElementsAre("5", "3", "1", "1", "60%"));
  EXPECT_EQ(form.results[1].heading, "Away");
  EXPECT_THAT(form.results[1].texts, ElementsAre("6", "2", "4", "0", "33.33%"));
  EXPECT_EQ(form.results[2].heading, "Total");
  EXPECT_THAT(form.results[2].texts, ElementsAre("11", "5", "5", "1", "45.45%"));
}

TEST_F(TeamRecords, ATeamWithoutAHomeMatchHasNoSuccessThere) {
  add_team("Alba", {}, {1, 0, 0});
  const team_records_form form = team();
  EXPECT_THAT(form.results[0].texts, ElementsAre("0", "0", "0", "0", "  -  "));
  EXPECT_THAT(form.results[1].texts, ElementsAre("1", "1", "0", "0", "100%"));
  EXPECT_THAT(form.results[2].texts, ElementsAre("1", "1", "0", "0", "100%"));
}

TEST_F(TeamRecords, TheListHasTheOrderOfTheTableAndTheRankThatOfTheRanking) {
  add_team("Umbria", {1, 1, 0}, {});
  add_team("Alba", {1, 0, 0}, {});
  add_team("Tamar", {1, 1, 0}, {});
  EXPECT_THAT(team().teams, ElementsAre("Umbria", "Alba", "Tamar"));
  EXPECT_EQ(team(0).world_ranking.caption, "World Ranking : ");
  EXPECT_EQ(team(0).world_ranking.text, "2");
  EXPECT_EQ(team(1).world_ranking.text, "1");
  EXPECT_EQ(team(2).world_ranking.text, "3");
}

TEST_F(TeamRecords, ElevenTeamsHaveRanksHere) {
  add_teams(10);
  add_team("Alba", {1, 1, 0}, {});
  EXPECT_EQ(team(10).world_ranking.text, "11");
}

TEST_F(TeamRecords, ATeamHasItsExtremeTotals) {
  team_table& row = add_team("Alba", {1, 0, 0}, {});
  row.high_for = {std::string("312")};
  row.high_for_against = {std::string("Tamar")};
  row.high_for_venue = {std::string("Harbour Park")};
  row.high_against = {integer(298)};
  row.high_against_by = {std::string("Umbria")};
  row.high_against_venue = {std::string("Mill Lane")};
  row.low_for = {std::string("97")};
  row.low_for_against = {std::string("Breton")};
  row.low_for_venue = {std::string("Hill End")};
  row.low_against = {integer(88)};
  row.low_against_by = {std::string("Tamar")};
  row.low_against_venue = {std::string("The Oval")};
  const auto extremes = team().extremes;
  EXPECT_EQ(extremes[0].caption, "Highest total for :");
  EXPECT_EQ(extremes[0].text, "312 vs Tamar at Harbour Park");
  EXPECT_EQ(extremes[1].caption, "Highest total against :");
  EXPECT_EQ(extremes[1].text, "298 by Umbria at Mill Lane");
  EXPECT_EQ(extremes[2].caption, "Lowest total for :");
  EXPECT_EQ(extremes[2].text, "97 vs Breton at Hill End");
  EXPECT_EQ(extremes[3].caption, "Lowest total against :");
  EXPECT_EQ(extremes[3].text, "88 by Tamar at The Oval");
}

TEST_F(TeamRecords, ATeamNeverAllOutHasNoLowestTotal) {
  team_table& row = add_team("Alba", {1, 0, 0}, {});
  row.low_against = {std::string("1000")};
  const auto extremes = team().extremes;
  EXPECT_EQ(extremes[0].text, " vs  at ");  // no total yet
  EXPECT_EQ(extremes[2].text, "Not available");
  EXPECT_EQ(extremes[3].text, "Not available");
}

TEST_F(TeamRecords, ATeamHasItsBestMen) {
  add_team("Alba", {1, 0, 0}, {});
  career_rec man = batsman("A.One", 9, 0, 400, 500);
  man.high_score = 120;
  man.high_not_out = -1;
  man.high_against = "Tamar";
  add("Alba", man);
  man = batsman("A.Two", 8, 0, 450, 500);
  man.high_score = 119;
  man.matches = 10;
  man.wickets = 20;
  man.best_wickets = 4;
  man.best_runs = 30;
  man.best_against = "Umbria";
  add("Alba", man);
  man = bowler("A.Three", 300, 200, 19);
  man.best_wickets = 4;
  man.best_runs = 29;
  man.best_against = "Breton";
  add("Alba", man);
  const auto best = team().individual;
  EXPECT_EQ(team_records_form::individual_caption, "Induvidual  Records");
  EXPECT_EQ(best[0].caption, "Highest Score:");
  EXPECT_EQ(best[0].text, "A.One  120* vs Tamar");
  EXPECT_EQ(best[1].caption, "Most Runs:");
  EXPECT_EQ(best[1].text, "A.Two  450 runs from 10 matches");
  EXPECT_EQ(best[2].caption, "Best Bowling:");
  EXPECT_EQ(best[2].text, "A.Three  4/29 vs Breton");
  EXPECT_EQ(best[3].caption, "Most Wickets:");
  EXPECT_EQ(best[3].text, "A.Two  20 wickets from 10 matches");
}

TEST_F(TeamRecords, OfEqualMenTheFirstIsBest) {
  add_team("Alba", {1, 0, 0}, {});
  for (const char* name : {"A.One", "A.Two"}) {
    career_rec man = batsman(name, 1, 0, 50, 50);
    man.high_score = 50;
    man.wickets = 3;
    man.best_wickets = 3;
    man.best_runs = 20;
    add("Alba", man);
  }
  for (const shown_field& field : team().individual) EXPECT_EQ(field.text.substr(0, 5), "A.One") << field.caption;
}

TEST_F(TeamRecords, WithoutAnyFigureTheFirstManIsBest) {
  add_team("Alba", {1, 0, 0}, {});
  add("Alba", bowler("A.One", 0, 0, 0));
  add("Alba", bowler("A.Two", 6, 9, 0));
  const auto best = team().individual;
  EXPECT_EQ(best[0].text, "A.One  0 vs ");
  EXPECT_EQ(best[1].text, "A.One  0 runs from 1 matches");
  EXPECT_EQ(best[2].text, "A.One  0/0 vs ");
  EXPECT_EQ(best[3].text, "A.One  0 wickets from 1 matches");
}

TEST_F(TeamRecords, AWicketGoesBeforeNoWicketWhateverItCost) {
  add_team("Alba", {1, 0, 0}, {});
  add("Alba", bowler("A.One", 0, 0, 0));
  career_rec man = bowler("A.Two", 60, 99, 1);
  man.best_wickets = 1;
  man.best_runs = 99;
  add("Alba", man);
  EXPECT_EQ(team().individual[2].text, "A.Two  1/99 vs ");
}

TEST_F(TeamRecords, ATeamWithoutCareersShowsNoMen) {
  add_team("Alba", {1, 0, 0}, {});
  add_team("Tamar", {1, 0, 0}, {});
  add("Tamar", batsman("T.One", 1, 0, 5, 5));
  write();
  team_records_form form(data);
  form.open();
  form.choose_team(1);
  EXPECT_EQ(form.individual[1].text, "T.One  5 runs from 1 matches");
  form.choose_team(0);
  EXPECT_THAT(form.individual, Each(::testing::Field(&shown_field::text, "")));
}

TEST_F(TeamRecords, AnEmptyDatabaseHasNoTeams) {
  team_records_form form(data);
  form.open();
  EXPECT_THAT(form.teams, IsEmpty());
  form.choose_team(-1);
  EXPECT_EQ(form.world_ranking.text, "");
  EXPECT_FALSE(std::filesystem::exists(data.files.record_file));
  form.accept();
  EXPECT_TRUE(form.closed);
}

}  // namespace
}  // namespace velorin::testing
