// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/worm_graph.h"

#include "reports/match_scenes.h"
#include "reports/opened.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using WormGraph = reports_test;

void expect_points(const std::vector<worm_point>& points, const std::vector<worm_point>& wanted) {
  ASSERT_EQ(points.size(), wanted.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].row, wanted[i].row) << "point " << i;
    EXPECT_EQ(points[i].value, wanted[i].value) << "point " << i;
  }
}

/// Bowls up to this many balls of the innings; the last of them brings the score. The first call in an innings bowls
/// one ball, before which the innings stood at the balls and runs that are missing.
void feed(int balls, int runs, int wickets) {
  const bool goes_on = !match.deliveries.empty();
  const int more = goes_on ? balls - match.innings_balls : 1;
  for (int i = 1; i < more; ++i) match.deliveries.push_back(ball_of_runs(0));
  match.deliveries.push_back(ball_of_runs(goes_on ? runs - match.score_runs : 0));
  match.innings_balls = balls;
  match.score_runs = runs;
  match.score_wickets = wickets;
}

/// The innings in play is over: its deliveries go.
void end_innings() {
  keep_worms(match);
  match.deliveries.clear();
}

/// The next match of the same run of the program: everything fresh but the lines.
void start_match(const std::string& team1, const std::string& team2) {
  end_innings();
  const match_worms kept = match;
  match = match_state{};
  static_cast<match_worms&>(match) = kept;
  match.team1_name = team1;
  match.team2_name = team2;
}

void change_innings() {
  end_innings();
  std::swap(match.team1_name, match.team2_name);
}

TEST_F(WormGraph, TheFirstBallNamesTheLines) {
  start_match("South Isles", "Northland");
  EXPECT_EQ(worms_with_this_innings(match).worm[0].team, "");
  keep_worms(match);
  EXPECT_FALSE(match.loaded);
  feed(1, 4, 0);
  const match_worms now = worms_with_this_innings(match);
  EXPECT_TRUE(now.loaded);
  EXPECT_EQ(now.worm[0].team, "South Isles");
  EXPECT_EQ(now.worm[1].team, "Northland");
  EXPECT_FALSE(match.loaded) << "the lines of the match are as they were";
  keep_worms(match);
  EXPECT_TRUE(match.loaded);
  const worm_graph_form window = opened<worm_graph_form>();
  EXPECT_EQ(window.first_side, "South Isles");
  EXPECT_EQ(window.second_side, "Northland");
  EXPECT_EQ(window.first_score, "4/0");
  EXPECT_EQ(window.second_score, "");
  expect_points(window.series[0], {{1, 4}});
  expect_points(window.series[1], {});
}

TEST_F(WormGraph, OpeningTheWindowNamesTheLinesToo) {
  start_match("South Isles", "Northland");
  const worm_graph_form window = opened<worm_graph_form>();
  EXPECT_EQ(window.first_side, "South Isles");
  EXPECT_EQ(window.second_side, "Northland");
  EXPECT_EQ(window.first_score, "");
  EXPECT_TRUE(match.loaded);
}

TEST_F(WormGraph, EachBallOverwritesTheRowOfItsOver) {
  start_match("South Isles", "Northland");
  feed(1, 1, 0);
  feed(5, 9, 1);
  feed(6, 10, 1);
  feed(7, 12, 1);
  feed(12, 20, 2);
  expect_points(opened<worm_graph_form>().series[0], {{1, 9}, {2, 12}, {3, 20}});
  EXPECT_EQ(opened<worm_graph_form>().first_score, "20/2");
}

TEST_F(WormGraph, TheEndOfThe50thOverStandsOnRow51) {
  start_match("South Isles", "Northland");
  feed(299, 250, 7);
  feed(300, 254, 7);
  expect_points(opened<worm_graph_form>().series[0], {{50, 250}, {51, 254}});
}

TEST_F(WormGraph, AnOverCutShortStandsOnTheRowItBegan) {
  start_match("South Isles", "Northland");
  feed(123, 98, 10);
  expect_points(opened<worm_graph_form>().series[0], {{21, 98}});
  EXPECT_EQ(opened<worm_graph_form>().first_score, "98/10");
}

TEST_F(WormGraph, AnInningsKeptTwiceStandsOnce) {
  start_match("South Isles", "Northland");
  feed(1, 1, 0);
  feed(7, 12, 1);
  keep_worms(match);
  keep_worms(match);
  expect_points(opened<worm_graph_form>().series[0], {{1, 1}, {2, 12}});
  EXPECT_EQ(opened<worm_graph_form>().first_score, "12/1");
}

TEST_F(WormGraph, ABallThatDoesNotCountStaysOnItsRow) {
  start_match("South Isles", "Northland");
  feed(6, 9, 0);
  match.deliveries.push_back(wide_on(6));
  expect_points(opened<worm_graph_form>().series[0], {{2, 9}});
}

TEST_F(WormGraph, TheSecondInningsTakesTheSecondLine) {
  start_match("South Isles", "Northland");
  feed(6, 10, 0);
  change_innings();
  feed(6, 3, 2);
  const worm_graph_form window = opened<worm_graph_form>();
  EXPECT_EQ(window.first_side, "South Isles");
  EXPECT_EQ(window.second_side, "Northland");
  EXPECT_EQ(window.first_score, "10/0");
  EXPECT_EQ(window.second_score, "3/2");
  expect_points(window.series[0], {{2, 10}});
  expect_points(window.series[1], {{2, 3}});
}

TEST_F(WormGraph, ALaterMatchOfOtherSidesLeavesTheLinesAlone) {
  start_match("South Isles", "Northland");
  feed(6, 10, 0);
  start_match("Westmark", "Easting");
  feed(6, 99, 9);
  const worm_graph_form window = opened<worm_graph_form>();
  EXPECT_EQ(window.first_side, "South Isles");
  EXPECT_EQ(window.second_side, "Northland");
  EXPECT_EQ(window.first_score, "10/0");
  expect_points(window.series[0], {{2, 10}});
  expect_points(window.series[1], {});
}

TEST_F(WormGraph, ANameThatRecursIsWrittenOverItsOldLine) {
  start_match("South Isles", "Northland");
  feed(6, 10, 0);
  feed(12, 30, 0);
  start_match("Westmark", "South Isles");
  feed(6, 99, 9);
  change_innings();
  feed(6, 1, 1);
  const worm_graph_form window = opened<worm_graph_form>();
  EXPECT_EQ(window.first_score, "1/1");
  expect_points(window.series[0], {{2, 1}, {3, 30}});
  expect_points(window.series[1], {});
}

TEST_F(WormGraph, TheRowsOfAnEarlierMatchAreToldApart) {
  start_match("South Isles", "Northland");
  feed(1, 4, 0);
  feed(300, 250, 6);
  worm_graph_form form = opened<worm_graph_form>();
  expect_points(form.of_match[0], form.series[0]);
  EXPECT_FALSE(form.has_old_rows());

  start_match("South Isles", "Eastmark");
  worm_graph_form again = opened<worm_graph_form>();
  expect_points(again.of_match[0], {});
  EXPECT_TRUE(again.has_old_rows());
  feed(2, 9, 0);
  worm_graph_form third = opened<worm_graph_form>();
  std::vector<worm_point> all = {{1, 9}};
  for (int row = 2; row <= 50; ++row) all.push_back({row, 4});
  all.push_back({51, 250});
  expect_points(third.series[0], all);
  expect_points(third.of_match[0], {{1, 9}});
  expect_points(third.of_match[1], {});

  change_innings();
  match.first_balls = 2;
  match.first_total = 9;
  match.innings_balls = 0;
  worm_graph_form fourth = opened<worm_graph_form>();
  expect_points(fourth.of_match[0], {{1, 9}});
}

TEST_F(WormGraph, LinesStartedAfreshAreThoseOfANewStart) {
  EXPECT_EQ(standing_worms(match), "");
  start_match("South Isles", "Northland");
  feed(1, 4, 0);
  keep_worms(match);
  EXPECT_EQ(standing_worms(match), "The Score Comparison Graph still shows South Isles and Northland.");
  match.deliveries.clear();
  start_worms_afresh(match);
  EXPECT_EQ(standing_worms(match), "");
  start_match("Westmark", "Eastmark");
  const worm_graph_form form = opened<worm_graph_form>();
  EXPECT_EQ(form.first_side, "Westmark");
  EXPECT_EQ(form.first_score, "");
  expect_points(form.series[0], {});
}

TEST_F(WormGraph, LoadingHappensOnce) {
  start_match("South Isles", "Northland");
  load_worms(match);
  start_match("Westmark", "Easting");
  load_worms(match);
  EXPECT_EQ(opened<worm_graph_form>().first_side, "South Isles");
}

}  // namespace
}  // namespace velorin
