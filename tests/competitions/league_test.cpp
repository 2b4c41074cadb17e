// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/league.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "model/match_state.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

league_row named(const std::string& team, int points = 0, double rate = 0) {
  league_row row;
  row.team = team;
  row.points = points;
  row.net_run_rate = rate;
  return row;
}

/// The result block of a match that `first` batted first in.
void set_result(const std::string& winner, const std::string& first, const std::string& second, double first_delta) {
  static_cast<match_result&>(match) = {};
  match.result_winner = winner;
  match.rate_first = {first, first_delta};
  match.rate_second = {second, -first_delta};
}

/// played, won, lost, tied, points.
std::vector<int> figures(const league_row& row) { return {row.played, row.won, row.lost, row.tied, row.points}; }

std::vector<std::string> order_after_sort(std::vector<league_row> rows) {
  rows.insert(rows.begin(), league_row());
  const int last = static_cast<int>(rows.size()) - 1;
  sort_league(rows, last, [](int) {});
  std::vector<std::string> names;
  for (int place = 1; place <= last; ++place) names.push_back(rows[place].team);
  return names;
}

TEST(League, AShownRowHasSevenTexts) {
  league_row row = named("South Isles", 9, -1.234567);
  row.played = 7;
  row.won = 4;
  row.lost = 2;
  row.tied = 1;
  EXPECT_THAT(shown_row(row), ElementsAre("South Isles", "7", "4", "2", "1", "9", "-1.23"));
}

TEST(League, AShownRateHasTwoPlacesHalvesToTheEvenDigitAndNoTrailingZeros) {
  const auto shown = [](double rate) { return shown_row(named("A", 0, rate))[6]; };
  EXPECT_EQ(shown(0.125), "0.12");
  EXPECT_EQ(shown(0.375), "0.38");
  EXPECT_EQ(shown(-0.125), "-0.12");
  EXPECT_EQ(shown(1.5), "1.5");
  EXPECT_EQ(shown(-3), "-3");
  EXPECT_EQ(shown(12.004), "12");
  EXPECT_EQ(shown(0.004), "0");
  EXPECT_EQ(shown(-0.004), "0");
}

TEST(League, PointsComeFirstThenTheRateThenTheEarlierRow) {
  EXPECT_THAT(order_after_sort({named("A", 2, 5), named("B", 4, -5), named("C", 2, 6)}), ElementsAre("B", "C", "A"));
  EXPECT_THAT(order_after_sort({named("A", 2, 1), named("B", 2, 1.001), named("C", 2, 1)}), ElementsAre("B", "A", "C"))
      << "a difference in the third decimal counts";
  EXPECT_THAT(order_after_sort({named("A"), named("B"), named("C"), named("D"), named("E")}),
              ElementsAre("A", "B", "C", "D", "E"));
}

TEST(League, WinsDoNotDecideTheOrder) {
  league_row two_wins = named("A", 4, 0.1);
  two_wins.won = 2;
  league_row four_ties = named("B", 4, 0.2);
  four_ties.tied = 4;
  EXPECT_THAT(order_after_sort({two_wins, four_ties}), ElementsAre("B", "A"));
}

TEST(League, WhatIsSortedAlongFollowsItsRow) {
  std::mt19937 generator(5);
  for (int season = 0; season < 200; ++season) {
    std::vector<league_row> rows(1);
    std::vector<int> along(1);
    const int count = 2 + static_cast<int>(generator() % 5);
    for (int i = 1; i <= count; ++i) {
      rows.push_back(named(std::to_string(i), static_cast<int>(generator() % 4), static_cast<int>(generator() % 3)));
      along.push_back(i);
    }
    std::vector<league_row> wanted = rows;
    std::stable_sort(wanted.begin() + 1, wanted.end(), [](const league_row& a, const league_row& b) {
      return a.points != b.points ? a.points > b.points : a.net_run_rate > b.net_run_rate;
    });
    sort_league(rows, count, [&](int j) { std::swap(along[j], along[j + 1]); });
    for (int i = 1; i <= count; ++i) {
      EXPECT_EQ(rows[i].team, wanted[i].team);
      EXPECT_EQ(std::to_string(along[i]), rows[i].team);
    }
  }
}

TEST(League, AWinIsWorthTwoPointsAndATieOne) {
  league_row a = named("A");
  league_row b = named("B");
  set_result("A", "A", "B", 1);
  book_outcome(match, a, b, "A", "B");
  set_result("B", "A", "B", 1);
  book_outcome(match, a, b, "A", "B");
  book_outcome(match, a, b, "A", "B");
  set_result("", "A", "B", 0);
  book_outcome(match, a, b, "A", "B");
  EXPECT_THAT(figures(a), ElementsAre(0, 1, 2, 1, 3));
  EXPECT_THAT(figures(b), ElementsAre(0, 2, 1, 1, 5));
  EXPECT_EQ(a.net_run_rate, 0) << "rates are booked apart";
}

TEST(League, AWinnerOfNeitherNameIsATie) {
  league_row a = named("A");
  league_row b = named("B");
  set_result("C", "A", "B", 1);
  book_outcome(match, a, b, "A", "B");
  EXPECT_THAT(figures(a), ElementsAre(0, 0, 0, 1, 1));
  EXPECT_THAT(figures(b), ElementsAre(0, 0, 0, 1, 1));
}

std::string overflow_of(const std::function<void()>& procedure) {
  try {
    procedure();
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::overflow);
    return error.what();
  }
  return "no failure";
}

std::string does_not_fit(int value, const std::string& field, const std::string& team) {
  return "Overflow: " + std::to_string(value) + " does not fit a 16-bit figure (field " + field + ", at \"" + team +
         "\")";
}

TEST(League, AFigureBeyondSixteenBitsIsAnOverflow) {
  struct booked {
    const char* field;
    integer league_row::*figure;
    const char* winner;
    int last;  ///< the greatest value that a match leaves room for
  };
  for (const booked& full :
       {booked{"played", &league_row::played, "A", 32766}, booked{"won", &league_row::won, "A", 32766},
        booked{"lost", &league_row::lost, "B", 32766}, booked{"tied", &league_row::tied, "", 32766},
        booked{"points", &league_row::points, "A", 32765}, booked{"points", &league_row::points, "", 32766}}) {
    set_result(full.winner, "A", "B", 0);
    std::vector<league_row> rows = {named("A"), named("B")};
    rows[0].*full.figure = full.last;
    book_league_match(match, rows.data(), 2, "A", "B");
    EXPECT_EQ(rows[0].*full.figure, 32767);
    EXPECT_EQ(overflow_of([&] { book_league_match(match, rows.data(), 2, "A", "B"); }),
              does_not_fit(32767 + 32767 - full.last, full.field, "A"));
    EXPECT_EQ(rows[0].*full.figure, 32767);
  }
}

TEST(League, TheSecondTeamIsNamedByItsOwnName) {
  league_row a = named("A");
  league_row against_a = named("A");  // as the cells of a group are headed
  set_result("A", "A", "B", 0);
  against_a.lost = 32767;
  EXPECT_EQ(overflow_of([&] { book_outcome(match, a, against_a, "A", "B"); }), does_not_fit(32768, "lost", "B"));
  set_result("", "A", "B", 0);
  against_a.tied = 32767;
  EXPECT_EQ(overflow_of([&] { book_outcome(match, a, against_a, "A", "B"); }), does_not_fit(32768, "tied", "B"));
  set_result("B", "A", "B", 0);
  against_a.won = 32767;
  EXPECT_EQ(overflow_of([&] { book_outcome(match, a, against_a, "A", "B"); }), does_not_fit(32768, "won", "B"));
}

TEST(League, SumsOfRowsHaveTheSameLimit) {
  struct summed {
    const char* field;
    integer league_row::*figure;
  };
  for (const summed& full :
       {summed{"played", &league_row::played}, summed{"won", &league_row::won}, summed{"lost", &league_row::lost},
        summed{"tied", &league_row::tied}, summed{"points", &league_row::points}}) {
    league_row sum = named("A");
    league_row cell = named("B");
    cell.*full.figure = 32767;
    add_row(sum, cell);
    EXPECT_EQ(sum.*full.figure, 32767);
    EXPECT_EQ(overflow_of([&] { add_row(sum, cell); }), does_not_fit(65534, full.field, "A"));
    EXPECT_EQ(sum.*full.figure, 32767);
  }
}

TEST(League, AMatchIsBookedInTheRowsOfBothTeams) {
  std::vector<league_row> rows = {named("A"), named("B"), named("C")};
  set_result("C", "C", "A", 1.25);
  book_league_match(match, rows.data(), 3, "A", "C");
  EXPECT_THAT(figures(rows[0]), ElementsAre(1, 0, 1, 0, 0));
  EXPECT_THAT(figures(rows[1]), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_THAT(figures(rows[2]), ElementsAre(1, 1, 0, 0, 2));
  EXPECT_EQ(rows[0].net_run_rate, -1.25);
  EXPECT_EQ(rows[1].net_run_rate, 0);
  EXPECT_EQ(rows[2].net_run_rate, 1.25);
}

TEST(League, RatesAreSummedAndDividedByNothing) {
  std::vector<league_row> rows = {named("A"), named("B")};
  for (const double delta : {0.5, -2.0, 0.25}) {
    set_result(delta > 0 ? "A" : "B", "A", "B", delta);
    book_league_match(match, rows.data(), 2, "A", "B");
  }
  EXPECT_EQ(rows[0].net_run_rate, -1.25);
  EXPECT_EQ(rows[1].net_run_rate, 1.25);
}

TEST(League, ATeamAgainstItselfPlaysTwiceAndWinsAndLoses) {
  std::vector<league_row> rows = {named("A"), named("B")};
  set_result("A", "A", "A", 2);
  book_league_match(match, rows.data(), 2, "A", "A");
  EXPECT_THAT(figures(rows[0]), ElementsAre(2, 1, 1, 0, 2));
  EXPECT_EQ(rows[0].net_run_rate, 0);
}

TEST(League, OfSeveralRowsOfANameTheLastTakesTheOutcome) {
  std::vector<league_row> rows = {named("A"), named("A"), named("B")};
  set_result("A", "A", "B", 1);
  book_league_match(match, rows.data(), 3, "A", "B");
  EXPECT_THAT(figures(rows[0]), ElementsAre(1, 0, 0, 0, 0));
  EXPECT_THAT(figures(rows[1]), ElementsAre(1, 1, 0, 0, 2));
  EXPECT_THAT(figures(rows[2]), ElementsAre(1, 0, 1, 0, 0));
  EXPECT_EQ(rows[0].net_run_rate, 1) << "every row of the name takes the gain";
  EXPECT_EQ(rows[1].net_run_rate, 1);
  EXPECT_EQ(rows[2].net_run_rate, -1);
}

TEST(League, TheSumsHoldOverRandomSeasons) {
  std::mt19937 generator(8);
  std::uniform_real_distribution<double> gain(-6, 6);
  for (int season = 0; season < 100; ++season) {
    const int count = 3 + static_cast<int>(generator() % 4);
    std::vector<league_row> rows;
    for (int i = 0; i < count; ++i) rows.push_back(named(std::string(1, static_cast<char>('A' + i))));
    int matches = 0;
    for (int i = 0; i < count; ++i) {
      for (int j = 0; j < count; ++j) {
        if (i == j) continue;
        const double delta = generator() % 5 == 0 ? 0 : gain(generator);
        const std::string winner = delta == 0 ? "" : delta > 0 ? rows[i].team : rows[j].team;
        set_result(winner, rows[i].team, rows[j].team, delta);
        book_league_match(match, rows.data(), count, rows[j].team, rows[i].team);
        ++matches;
      }
    }
    double rates = 0;
    int points = 0;
    for (const league_row& row : rows) {
      EXPECT_EQ(row.points, 2 * row.won + row.tied);
      EXPECT_EQ(row.played, row.won + row.lost + row.tied);
      EXPECT_EQ(row.played, 2 * (count - 1));
      rates += row.net_run_rate;
      points += row.points;
    }
    EXPECT_NEAR(rates, 0, 1e-9);
    EXPECT_EQ(points, 2 * matches);
  }
}

}  // namespace
}  // namespace velorin::testing
