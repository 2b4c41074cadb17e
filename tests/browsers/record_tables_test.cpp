// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/record_tables.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "browsers/figures_fixture.h"
#include "database/career_update.h"
#include "database/configuration.h"
#include "model/match_state.h"
#include "support/cards.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <class Form>
shown_table opened(Form form, auto... arguments) {
  form.open(arguments...);
  return form.table;
}

class RecordTables : public figures_fixture {
 protected:
  void TearDown() override { match = match_state(); }

  /// Adds an innings of one man to the lists, as the end of a match does: "Alba" fields against "Tamar", whose man is
  /// the only one to bat, in the second innings.
  static void play_innings(const std::string& name, int runs, bool not_out = true) {
    data.files.updates = true;
    match = match_state();
    match.team1_name = "Tamar";
    match.team2_name = "Alba";
    match.ground.ground_name = "Harbour Park";
    match.batting_card[1].name = name;
    match.batting_card[1].runs = runs;
    put_out(match.batting_card[1], not_out ? dismissal::none : dismissal::bowled, "A.Bowler");
    update_records(match, data);
  }
};

TEST_F(RecordTables, HaveTheirTitlesAndColumnsWithoutAnyRow) {
  const shown_table scores = opened(best_performances_form(data), 1);
  EXPECT_EQ(scores.title, "Highest Induvidual Scores");
  EXPECT_THAT(headings(scores), ElementsAre("Score", "Player", "For", "Against", "Venue"));
  const shown_table bowling = opened(best_performances_form(data), 0);
  EXPECT_EQ(bowling.title, "Best Bowling Figures");
  EXPECT_THAT(headings(bowling), ElementsAre("Analysis", "Player", "For", "Against", "Venue"));
  const shown_table highest = opened(total_records_form(data), 1);
  EXPECT_EQ(highest.title, "Highest Totals in ODI's");
  EXPECT_THAT(headings(highest), ElementsAre("Score", "For", "Against"));
  const shown_table lowest = opened(total_records_form(data), 0);
  EXPECT_EQ(lowest.title, "Lowest Totals in ODI's");
  EXPECT_THAT(headings(lowest), ElementsAre("Score", "For", "Against"));
  const shown_table stands = opened(stand_records_form(data));
  EXPECT_EQ(stands.title, "Record Partnerships");
  EXPECT_THAT(headings(stands), ElementsAre("Score", "Players", "For", "Against"));
  for (const auto& table : {scores, bowling, highest, lowest, stands}) EXPECT_THAT(table.rows, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data.files.record_file));
}

TEST_F(RecordTables, AScoreShowsItsBallsAndNotWhetherItStood) {
  lists.top_scores[1] = {"T.One", 150, 140, "Tamar", "Alba", "Harbour Park", -1};
  lists.top_scores[2] = {"T.Two", 99, 101, "Tamar", "Umbria", "Mill Lane", 0};
  write();
  const shown_table table = opened(best_performances_form(data), 1);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_THAT(row(table, 0), ElementsAre("150 (140)", "T.One", "Tamar", "Alba", "Harbour Park"));
  EXPECT_THAT(row(table, 1), ElementsAre("99 (101)", "T.Two", "Tamar", "Umbria", "Mill Lane"));
  EXPECT_EQ(table.rows[1].team, "Tamar");
  EXPECT_EQ(table.rows[1].player, "T.Two");
}

TEST_F(RecordTables, AnAnalysisShowsWicketsAndRuns) {
  lists.top_bowling[1] = {"A.One", 41, 60, 8, "Alba", "Tamar", "Harbour Park"};
  write();
  const shown_table table = opened(best_performances_form(data), 0);
  EXPECT_THAT(row(table, 0), ElementsAre("8 - 41", "A.One", "Alba", "Tamar", "Harbour Park"));
  EXPECT_EQ(table.rows[0].team, "Alba");
  EXPECT_EQ(table.rows[0].player, "A.One");
}

TEST_F(RecordTables, ATotalShowsItsWickets) {
  lists.highest_totals[1] = {345, 300, 6, "Alba", "Tamar", "Harbour Park"};
  lists.lowest_totals[1] = {77, 180, 10, "Tamar", "Alba", "Mill Lane"};
  write();
  EXPECT_THAT(row(opened(total_records_form(data), 1), 0), ElementsAre("345 - 6", "Alba", "Tamar"));
  EXPECT_THAT(row(opened(total_records_form(data), 0), 0), ElementsAre("77 - 10", "Tamar", "Alba"));
  EXPECT_EQ(opened(total_records_form(data), 0).rows[0].team, "Tamar");
  EXPECT_EQ(opened(total_records_form(data), 0).rows[0].player, "");
}

TEST_F(RecordTables, AFreeLineIsHiddenByItsEmptyNameAlone) {
  lists.top_scores[2] = {"T.One", 0, 0, "", "", "", 0};
  lists.top_scores[3] = {"", 50, 50, "Tamar", "Alba", "Mill Lane", 0};
  lists.top_bowling[15] = {"A.One", 0, 0, 0, "", "", ""};
  lists.highest_totals[4] = {0, 0, 0, "Alba", "", ""};
  lists.highest_totals[5] = {200, 300, 5, "", "Alba", "Mill Lane"};
  lists.lowest_totals[1] = {1000, 0, 0, "", "", ""};
  lists.lowest_totals[3] = {1000, 0, 0, "Tamar", "", ""};
  lists.partnerships[10] = {0, "", 0, 0, 0, "T.One", "", {}, "", "", ""};
  lists.partnerships[9] = {0, "", 5, 5, 0, "", "T.Two", {}, "Tamar", "Alba", ""};
  write();
  EXPECT_THAT(places(opened(best_performances_form(data), 1)), ElementsAre(2));
  EXPECT_THAT(places(opened(best_performances_form(data), 0)), ElementsAre(15));
  EXPECT_THAT(places(opened(total_records_form(data), 1)), ElementsAre(4));
  EXPECT_THAT(places(opened(total_records_form(data), 0)), ElementsAre(3));
  EXPECT_THAT(row(opened(total_records_form(data), 0), 0), ElementsAre("1000 - 0", "Tamar", ""));
  EXPECT_THAT(places(opened(stand_records_form(data))), ElementsAre(10));
}

TEST_F(RecordTables, AStandShowsItsPairAndMarksOneUnbroken) {
  lists.partnerships[1] = {150, "", 150, 181, 181, "A.One", "A.Two", {}, "Alba", "Tamar", "Harbour Park"};
  lists.partnerships[3] = {231, "", 110, 130, 300, "A.One", "A.Five * ", {}, "Alba", "Tamar", "Harbour Park"};
  lists.partnerships[4] = {231, "", 10, 30, 300, "A.One", "A.Six *", {}, "Alba", "Tamar", "Harbour Park"};
  lists.partnerships[5] = {231, "", 9, 30, 300, "A.One * ", " * ", {}, "Alba", "Tamar", "Harbour Park"};
  write();
  const shown_table table = opened(stand_records_form(data));
  EXPECT_THAT(places(table), ElementsAre(1, 3, 4, 5));
  EXPECT_THAT(row(table, 0), ElementsAre("150 (181)", "A.One && A.Two", "Alba", "Tamar"));
  EXPECT_THAT(row(table, 1), ElementsAre("110* (130)", "A.One && A.Five", "Alba", "Tamar"));
  EXPECT_THAT(row(table, 2), ElementsAre("10 (30)", "A.One && A.Six *", "Alba", "Tamar"));  // another ending
  EXPECT_THAT(row(table, 3), ElementsAre("9* (30)", "A.One *  && ", "Alba", "Tamar"));
  EXPECT_EQ(table.rows[1].team, "Alba");
  EXPECT_EQ(table.rows[1].player, "A.One");
  EXPECT_EQ(table.rows[1].partner, "A.Five");
}

TEST_F(RecordTables, OfSixteenHundredMakersTheLowestDropsOut) {
  for (int man = 1; man <= 15; ++man) play_innings(fmt::format("T.Man{}", man), 100 + man);
  EXPECT_EQ(opened(best_performances_form(data), 1).rows.size(), 15U);
  EXPECT_EQ(row(opened(best_performances_form(data), 1), 14)[1], "T.Man1");
  play_innings("T.Sixteenth", 102);  // below his equal, above the lowest
  const shown_table table = opened(best_performances_form(data), 1);
  ASSERT_EQ(table.rows.size(), 15U);
  EXPECT_EQ(row(table, 13)[1], "T.Man2");
  EXPECT_EQ(row(table, 14)[1], "T.Sixteenth");
  EXPECT_EQ(row(table, 14)[0], "102 (0)");
}

TEST_F(RecordTables, AnEqualOfTheLastLineDoesNotEnter) {
  for (int man = 1; man <= 15; ++man) play_innings(fmt::format("T.Man{}", man), 100);
  play_innings("T.Sixteenth", 100);
  const std::vector<std::string> players = column(opened(best_performances_form(data), 1), "Player");
  ASSERT_EQ(players.size(), 15U);
  EXPECT_EQ(players.front(), "T.Man1");
  EXPECT_EQ(players.back(), "T.Man15");
}

TEST_F(RecordTables, AScoreOfNothingIsNoRecord) {
  play_innings("T.Nought", 0, false);
  EXPECT_THAT(opened(best_performances_form(data), 1).rows, IsEmpty());
  play_innings("T.One", 1, false);
  EXPECT_THAT(column(opened(best_performances_form(data), 1), "Player"), ElementsAre("T.One"));
}

TEST_F(RecordTables, ALowestTotalOfNothingIsTakenForAFreeLineNextTimeAndShown) {
  play_innings("T.One", 20);  // both totals are 0
  EXPECT_THAT(column(opened(total_records_form(data), 0), "Score"), ElementsAre("0 - 0", "0 - 0"));
  play_innings("T.One", 20);
  const shown_table table = opened(total_records_form(data), 0);
  EXPECT_THAT(column(table, "Score"), ElementsAre("0 - 0", "0 - 0", "1000 - 0", "1000 - 0"));
  EXPECT_THAT(column(table, "For"), ElementsAre("Alba", "Tamar", "Alba", "Tamar"));
}

TEST_F(RecordTables, TheButtonClosesTheForm) {
  best_performances_form form(data);
  form.open(1);
  EXPECT_FALSE(form.closed);
  form.accept();
  EXPECT_TRUE(form.closed);
}

}  // namespace
}  // namespace velorin::testing
