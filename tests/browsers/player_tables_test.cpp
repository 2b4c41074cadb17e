// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "browsers/century_makers.h"
#include "browsers/figures_fixture.h"
#include "browsers/player_rankings.h"
#include "database/configuration.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PlayerTables : public figures_fixture {
 protected:
  shown_table opened(int record_mode, const std::string& team = {}) const {
    write();
    player_rankings_form form(data);
    form.open(record_mode, team);
    return form.table;
  }
  std::vector<std::string> names(int record_mode, const std::string& team = {}) const {
    return column(opened(record_mode, team), "Player");
  }
  shown_table centuries() const {
    write();
    century_makers_form form(data);
    form.open();
    return form.table;
  }
};

/// A man with an average of `average`.
career_rec with_average(const std::string& name, int average) { return batsman(name, 1, 0, average, 1); }

TEST_F(PlayerTables, HaveTheirTitlesAndColumnsWithoutAnyRow) {
  const char* const titles[] = {"",
                                "Records - Highest Averages",
                                "Records - Most Runs",
                                "Records - Highest Strike Rate",
                                "Records - Innings% (50 or more)",
                                "Bowling Records - Most Wickets",
                                "Bowling Records - Best Economy Rate",
                                "Bowling Records - Best Average",
                                "Alba - Career Batting Records",
                                "Alba - Career Bowling Records"};
  for (int mode = 1; mode <= 9; ++mode) {
    player_rankings_form form(data);
    form.open(mode, "Alba");
    EXPECT_EQ(form.table.title, titles[mode]);
    EXPECT_THAT(form.table.rows, IsEmpty());
    if (mode <= 4 || mode == 8) {
      EXPECT_THAT(headings(form.table), ElementsAre("Player", "M", "I", "NO", "Avge", "HS", "100s", "50s", "Runs",
                                                    mode == 4 ? "% Inns" : "SR"));
    } else {
      EXPECT_THAT(headings(form.table),
                  ElementsAre("Player", "M", "Ovr", "Mdn", "Runs", "Wkts", "Avg", "Econ.", "5 wkt", "Best"));
    }
  }
  century_makers_form form(data);
  form.open();
  EXPECT_EQ(form.table.title, "Top Century Makers");
  EXPECT_THAT(headings(form.table), ElementsAre("Player", "M", "I", "100s", "Runs"));
  EXPECT_THAT(form.table.rows, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data.files.career_file));
}

TEST_F(PlayerTables, RowsKnowTheirMenAndTeams) {
  add("Alba", with_average("A.Same", 10));
  add("Bora", with_average("B.Best", 30)).hundreds = 2;
  add("Bora", with_average("A.Same", 20)).hundreds = 1;
  const auto teams = [](const shown_table& table) {
    std::vector<std::string> lines;
    for (const shown_table::row& line : table.rows) lines.push_back(line.player + " of " + line.team + line.partner);
    return lines;
  };
  EXPECT_THAT(teams(opened(1)), ElementsAre("B.Best of Bora", "A.Same of Bora", "A.Same of Alba"));
  EXPECT_THAT(teams(opened(player_rankings_form::career_bowling, "Bora")),
              ElementsAre("B.Best of Bora", "A.Same of Bora"));
  EXPECT_THAT(teams(centuries()), ElementsAre("B.Best of Bora", "A.Same of Bora"));
}

TEST_F(PlayerTables, ABattingRowShowsItsFigures) {
  career_rec man = batsman("A.Man", 20, 4, 600, 700);
  man.matches = 21;
  man.high_score = 107;
  man.high_not_out = -1;
  man.hundreds = 1;
  man.fifties = 3;
  add("Alba", man);
  for (const int mode : {1, 2, 3, 8}) {
    EXPECT_THAT(row(opened(mode, "Alba"), 0),
                ElementsAre("A.Man", "21", "20", "4", "37.5", "107*", "1", "3", "600", "85.71"));
  }
  EXPECT_THAT(row(opened(4), 0), ElementsAre("A.Man", "21", "20", "4", "37.5", "107*", "1", "3", "600", "20"));
}

TEST_F(PlayerTables, ABowlingRowShowsItsFigures) {
  career_rec man = bowler("A.Man", 400, 333, 12);
  man.matches = 21;
  man.maidens = 5;
  man.five_wickets = 1;
  man.best_wickets = 5;
  man.best_runs = 23;
  add("Alba", man);
  for (const int mode : {5, 6, 7, 9}) {
    EXPECT_THAT(row(opened(mode, "Alba"), 0),
                ElementsAre("A.Man", "21", "66.4", "5", "333", "12", "27.75", "5", "1", "5/23"));
  }
}

TEST_F(PlayerTables, ARateWithoutItsDivisorIsAStroke) {
  career_rec man;
  man.name = "A.Twelfth";
  man.matches = 1;
  add("Alba", man);
  for (const int mode : {1, 2, 3, 4, 8}) {
    EXPECT_THAT(row(opened(mode, "Alba"), 0),
                ElementsAre("A.Twelfth", "1", "0", "0", " - ", "0", "0", "0", "0", " - "));
  }
  for (const int mode : {5, 6, 7, 9}) {
    EXPECT_THAT(row(opened(mode, "Alba"), 0),
                ElementsAre("A.Twelfth", "1", "0.0", "0", "0", "0", " - ", " - ", "0", "0/0"));
  }
}

TEST_F(PlayerTables, TheFlagOfAHighScoreStaysOnShow) {
  career_rec man = batsman("A.Man", 2, 1, 110, 100);
  man.high_score = 60;  // made out, after a 50 not out
  man.high_not_out = -1;
  add("Alba", man);
  EXPECT_THAT(column(opened(2), "HS"), ElementsAre("60*"));
}

TEST_F(PlayerTables, GoByTheirKeys) {
  career_rec one = batsman("A.One", 4, 0, 100, 50);  // average 25, strike rate 200, 25% of fifties
  one.fifties = 1;
  add("Alba", one);
  career_rec two = batsman("A.Two", 10, 0, 300, 300);  // 30, 100, 20%
  two.fifties = 1;
  two.hundreds = 1;
  add("Alba", two);
  career_rec three = batsman("A.Three", 8, 0, 320, 400);  // 40, 80, 12.5%
  three.fifties = 1;
  add("Alba", three);
  EXPECT_THAT(names(1), ElementsAre("A.Three", "A.Two", "A.One"));
  EXPECT_THAT(names(2), ElementsAre("A.Three", "A.Two", "A.One"));
  EXPECT_THAT(names(3), ElementsAre("A.One", "A.Two", "A.Three"));
  EXPECT_THAT(names(4), ElementsAre("A.One", "A.Two", "A.Three"));
  EXPECT_THAT(column(opened(4), "% Inns"), ElementsAre("25", "20", "12.5"));
}

TEST_F(PlayerTables, OfBowlersGoByTheirKeys) {
  add("Alba", bowler("A.One", 600, 500, 10));  // economy 5, average 50
  add("Alba", bowler("A.Two", 600, 600, 30));  // 6, 20
  add("Alba", bowler("A.Three", 60, 40, 1));   // 4, 40
  EXPECT_THAT(names(5), ElementsAre("A.Two", "A.One", "A.Three"));
  EXPECT_THAT(names(6), ElementsAre("A.Three", "A.One", "A.Two"));
  EXPECT_THAT(names(7), ElementsAre("A.Two", "A.Three", "A.One"));
}

TEST_F(PlayerTables, HaveNoMinimum) {
  add("Alba", batsman("A.Veteran", 200, 0, 10000, 10000));
  add("Alba", batsman("A.Novice", 1, 0, 100, 90));
  EXPECT_THAT(names(1), ElementsAre("A.Novice", "A.Veteran"));
}

TEST_F(PlayerTables, ATieKeepsTheOrderOfTheCareers) {
  for (const char* name : {"A.One", "A.Two"}) {
    career_rec man = batsman(name, 3, 0, 150, 150);
    man.fifties = 1;
    man.hundreds = 1;
    man.wickets = 2;
    man.balls_bowled = 60;
    man.runs_given = 50;
    add("Tamar", man);
    man.name = fmt::format("{}.Other", name);
    add("Alba", man);
  }
  const auto order = ElementsAre("A.One", "A.Two", "A.One.Other", "A.Two.Other");
  for (int mode = 1; mode <= 7; ++mode) EXPECT_THAT(names(mode), order) << mode;
  EXPECT_THAT(names(8, "Alba"), ElementsAre("A.One.Other", "A.Two.Other"));
  EXPECT_THAT(names(9, "Alba"), ElementsAre("A.One.Other", "A.Two.Other"));
  EXPECT_THAT(column(centuries(), "Player"), order);
}

TEST_F(PlayerTables, KeysEqualOnlyAfterRoundingTie) {
  add("Alba", batsman("A.One", 30000, 0, 999999, 1));  // 33.3333
  add("Alba", batsman("A.Two", 3, 0, 100, 1));         // 33.3333...
  EXPECT_THAT(names(1), ElementsAre("A.One", "A.Two"));
}

TEST_F(PlayerTables, ACareerOfATeamTakesItsMenAlone) {
  add("Alba", with_average("A.One", 20));
  add("Tamar", with_average("T.One", 50));
  add("Alba", with_average("A.Two", 30));
  EXPECT_THAT(names(8, "Alba"), ElementsAre("A.Two", "A.One"));
  EXPECT_THAT(names(9, "Tamar"), ElementsAre("T.One"));
  EXPECT_THAT(names(8, "Umbria"), IsEmpty());
  EXPECT_THAT(names(1, "Alba"), ElementsAre("T.One", "A.Two", "A.One"));  // the team counts for nothing here
}

TEST_F(PlayerTables, HaveFifteenRows) {
  for (int man = 1; man <= 16; ++man)
    add(man % 2 == 0 ? "Alba" : "Tamar", with_average(fmt::format("Man{}", man), man));
  const shown_table table = opened(1);
  ASSERT_EQ(table.rows.size(), 15U);
  EXPECT_EQ(row(table, 0)[0], "Man16");
  EXPECT_EQ(row(table, 14)[0], "Man2");
  EXPECT_EQ(table.rows[14].place, 15);
}

TEST_F(PlayerTables, AManWithoutANameHidesHisRow) {
  add("Alba", with_average("A.One", 50));
  add("Alba", with_average("", 40));
  add("Alba", with_average("A.Two", 30));
  const shown_table table = opened(1);
  EXPECT_THAT(column(table, "Player"), ElementsAre("A.One", "A.Two"));
  EXPECT_THAT(places(table), ElementsAre(1, 3));
}

// Hundreds.

TEST_F(PlayerTables, CenturyMakersGoByTheirHundreds) {
  career_rec man = batsman("A.One", 30, 2, 1500, 1600);
  man.matches = 31;
  man.hundreds = 2;
  add("Alba", man);
  man = batsman("T.One", 40, 2, 1400, 1600);
  man.hundreds = 3;
  add("Tamar", man);
  add("Tamar", batsman("T.Two", 40, 2, 1400, 1600));
  const shown_table table = centuries();
  ASSERT_EQ(table.rows.size(), 2U);  // a man without a hundred is hidden
  EXPECT_THAT(row(table, 0), ElementsAre("T.One", "40", "40", "3", "1400"));
  EXPECT_THAT(row(table, 1), ElementsAre("A.One", "31", "30", "2", "1500"));
}

TEST_F(PlayerTables, OfSixteenCenturyMakersTheLastIsLeftOut) {
  for (int i = 1; i <= 16; ++i) {
    career_rec man = batsman(fmt::format("Man{}", i), 10, 0, 500, 500);
    man.hundreds = i == 3 ? 2 : 1;
    add("Alba", man);
  }
  const std::vector<std::string> players = column(centuries(), "Player");
  ASSERT_EQ(players.size(), 15U);
  EXPECT_EQ(players.front(), "Man3");
  EXPECT_EQ(players[1], "Man1");
  EXPECT_EQ(players.back(), "Man15");
}

}  // namespace
}  // namespace velorin::testing
