// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/records_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

class TeamTable : public testing::records_fixture {
 protected:
  static team_table row_of(const std::string& team) {
    const record_lists lists = read_record_lists(data);
    for (int t = 1; t <= lists.table_team_count; ++t) {
      if (lists.teams[t].team_name.text() == team) return lists.teams[t];
    }
    ADD_FAILURE() << "no row of " << team;
    return {};
  }

  static void finish(const std::string& winner, const std::string& loser) {
    match.result_winner = winner;
    match.result_loser = loser;
    update_records(match, data);
  }
};

TEST_F(TeamTable, ANewTeamHasEmptyCounters) {
  update_records(match, data);
  const team_table alba = row_of("Alba");
  EXPECT_EQ(alba.home_won, tagged{1.0});
  EXPECT_TRUE(alba.home_lost.is_empty());
  EXPECT_TRUE(alba.home_tied.is_empty());
  EXPECT_TRUE(alba.away_won.is_empty());
  EXPECT_EQ(alba.team_name, tagged{std::string("Alba")});
  const team_table tamar = row_of("Tamar");
  EXPECT_EQ(tamar.away_lost, tagged{1.0});
  EXPECT_TRUE(tamar.home_lost.is_empty());
  EXPECT_EQ(read_record_lists(data).teams[1].team_name.text(), "Tamar") << "the side that batted second comes first";
}

TEST_F(TeamTable, TotalsHaveTheTypesOfTheirSources) {
  update_records(match, data);
  const team_table alba = row_of("Alba");
  EXPECT_EQ(alba.high_for, tagged{integer(231)});
  EXPECT_EQ(alba.high_for_against, tagged{std::string("Tamar")});
  EXPECT_EQ(alba.high_for_venue, tagged{std::string("Harbour Park")});
  EXPECT_EQ(alba.low_for, tagged{integer(1000)}) << "three wickets down is not all out";
  EXPECT_TRUE(alba.low_for_against.is_empty());
  EXPECT_EQ(alba.high_against, tagged{std::string("174")});
  EXPECT_EQ(alba.low_against, tagged{std::string("174")});
  EXPECT_EQ(alba.low_against_by, tagged{std::string("Tamar")});
  const team_table tamar = row_of("Tamar");
  EXPECT_EQ(tamar.high_for, tagged{std::string("174")});
  EXPECT_EQ(tamar.low_for, tagged{std::string("174")});
  EXPECT_EQ(tamar.high_against, tagged{integer(231)});
  EXPECT_EQ(tamar.high_against_by, tagged{std::string("Alba")});
  EXPECT_EQ(tamar.low_against, tagged{integer(1000)});
  EXPECT_TRUE(tamar.low_against_venue.is_empty());
}

TEST_F(TeamTable, EqualTotalsChangeNothing) {
  update_records(match, data);
  match.ground.ground_name = "Elsewhere";
  update_records(match, data);
  EXPECT_EQ(row_of("Alba").high_for_venue.text(), "Harbour Park");
  EXPECT_EQ(row_of("Alba").low_against_venue.text(), "Harbour Park");
  EXPECT_EQ(row_of("Tamar").low_for_venue.text(), "Harbour Park");
}

TEST_F(TeamTable, TotalsAreComparedAsNumbers) {
  update_records(match, data);
  match.score_runs = 99;
  update_records(match, data);
  EXPECT_EQ(row_of("Tamar").high_for.text(), "174") << "\"99\" is the greater text";
  EXPECT_EQ(row_of("Tamar").low_for.text(), "99");
}

TEST_F(TeamTable, AFirstInningsAllOutIsALowestTotal) {
  match.first_wickets = 10;
  update_records(match, data);
  EXPECT_EQ(row_of("Alba").low_for, tagged{integer(231)});
  EXPECT_EQ(row_of("Tamar").low_against, tagged{integer(231)});
  EXPECT_EQ(row_of("Tamar").low_against_by, tagged{std::string("Alba")});
}

TEST_F(TeamTable, ResultsCountAtHomeAndAway) {
  finish("Tamar", "Alba");
  EXPECT_EQ(row_of("Alba").home_lost.number(), 1);
  EXPECT_EQ(row_of("Tamar").away_won.number(), 1);
  match.ground.country = "Tamar";
  finish("Tamar", "Alba");
  EXPECT_EQ(row_of("Alba").away_lost.number(), 1);
  EXPECT_EQ(row_of("Tamar").home_won.number(), 1);
  finish("Alba", "Tamar");
  finish("Alba", "Tamar");
  EXPECT_EQ(row_of("Alba").away_won, tagged{2.0});
  EXPECT_EQ(row_of("Tamar").home_lost, tagged{2.0});
}

TEST_F(TeamTable, ATieCountsForBoth) {
  finish("", "");
  EXPECT_EQ(row_of("Alba").home_tied, tagged{1.0});
  EXPECT_EQ(row_of("Tamar").away_tied, tagged{1.0});
  EXPECT_TRUE(row_of("Alba").home_won.is_empty());
}

TEST_F(TeamTable, ANeutralGroundIsAwayForBoth) {
  match.ground.country = "Neutral";
  update_records(match, data);
  EXPECT_EQ(row_of("Alba").away_won, tagged{1.0});
  EXPECT_EQ(row_of("Tamar").away_lost, tagged{1.0});
}

TEST_F(TeamTable, AValueKeepsItsTagUntilAMatchSetsIt) {
  update_records(match, data);
  record_lists lists = read_record_lists(data);
  lists.teams[1].away_won = {integer(4)};
  lists.teams[1].away_lost = {std::string("6")};
  lists.teams[1].high_against = {std::int32_t{500}};
  write_record_lists(data, lists);
  update_records(match, data);
  const team_table tamar = row_of("Tamar");
  EXPECT_EQ(tamar.away_won, tagged{integer(4)});
  EXPECT_EQ(tamar.away_lost, tagged{7.0});
  EXPECT_EQ(tamar.high_against, tagged{std::int32_t{500}});
}

}  // namespace
}  // namespace velorin
