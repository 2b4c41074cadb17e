// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_figures.h"
#include "console/console_view.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

class RatesView : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.team2_name = "Old Away";
    match.over_no = 1;
  }
  /// The end of an over at this score; the next one is to begin.
  static void refresh_at(int runs, int wickets, int balls) {
    match.score_runs = runs;
    match.score_wickets = wickets;
    match.innings_balls = balls;
    match.over_no = balls / 6 + 1;
    refresh_rates(match);
  }
  static std::vector<std::string> cells() {
    std::vector<std::string> texts;
    for (const rate_cell& cell : view_rates(match).cells) texts.push_back(cell.text);
    return texts;
  }
  static std::vector<std::string> headings() {
    std::vector<std::string> texts;
    for (const rate_cell& cell : view_rates(match).cells) texts.push_back(cell.heading);
    return texts;
  }
  /// A second innings after 250/7.
  static void start_chase() {
    match.first_total = 250;
    match.first_wickets = 7;
    match.first_balls = 298;
  }
};

// The last five overs.

TEST_F(RatesView, LastFiveStandsFromTheFifthOver) {
  add_over(match.deliveries, 1, {"4", "W", "2", "", "3", "0"});
  for (int over = 2; over <= 6; ++over) add_over(match.deliveries, over, {"1", "0", "0", "0", "0", "0"});
  refresh_at(0, 0, 0);
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
  refresh_at(12, 1, 24);
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
  refresh_at(13, 1, 30);
  EXPECT_EQ(view_rates(match).last_five_overs, "2.6");
  refresh_at(14, 1, 36);
  EXPECT_EQ(view_rates(match).last_five_overs, "1");
}

TEST_F(RatesView, LastFiveChangesOnlyWithARefresh) {
  for (int over = 1; over <= 5; ++over) add_over(match.deliveries, over, {"2", "2", "2", "0", "0", "0"});
  refresh_at(30, 0, 30);
  add_over(match.deliveries, 6, {"6", "6", "6", "", "", ""});
  match.score_runs = 48;
  match.innings_balls = 33;
  EXPECT_EQ(view_rates(match).last_five_overs, "6");
}

TEST_F(RatesView, LastFiveEndsWithTheLastCompletedOver) {
  // Balls that count beyond six an over: 36 of them make five overs, and 42 make six.
  for (int over = 1; over <= 5; ++over) add_over(match.deliveries, over, {"1", "0", "0", "0", "0", "0"});
  match.innings_balls = 36;
  match.over_no = 6;
  refresh_rates(match);
  EXPECT_EQ(view_rates(match).last_five_overs, "0.8") << "overs 2 to 5, and the sixth still empty";
  add_over(match.deliveries, 6, {"5", "", "", "", "", ""});
  EXPECT_EQ(view_rates(match).last_five_overs, "0.8") << "the over in progress does not count";
  match.innings_balls = 42;
  match.over_no = 7;
  refresh_rates(match);
  EXPECT_EQ(view_rates(match).last_five_overs, "1.6") << "overs 3 to 6";
}

TEST_F(RatesView, LastFiveIsEmptyUntilTheFifthOverOfTheChase) {
  for (int over = 45; over <= 49; ++over) add_over(match.deliveries, over, {"1", "1", "1", "1", "1", "2"});
  refresh_at(240, 5, 294);
  EXPECT_EQ(view_rates(match).last_five_overs, "7");
  std::swap(match.deliveries, match.first_deliveries);
  start_chase();
  match.innings_balls = 0;
  prepare_chase_display(match);
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
  refresh_at(4, 0, 6);
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
}

// Projections.

TEST_F(RatesView, ProjectionsAreDashesBeforeTheFirstBall) {
  refresh_at(0, 0, 0);
  EXPECT_FALSE(view_rates(match).chase);
  EXPECT_THAT(cells(), Each("-"));
  EXPECT_THAT(headings(), ElementsAre("Current RR", "4 per over", "6 per over", "8 per over", "10 per over"));
}

TEST_F(RatesView, Projections) {
  refresh_at(50, 2, 60);
  EXPECT_THAT(cells(), ElementsAre("250", "210", "290", "370", "450"));
  refresh_at(0, 0, 6);
  EXPECT_THAT(cells(), ElementsAre("0", "196", "294", "392", "490"));
  refresh_at(240, 5, 294);
  EXPECT_THAT(cells(), ElementsAre("245", "244", "246", "248", "250"));
  refresh_at(100, 5, 300);
  EXPECT_THAT(cells(), ElementsAre("100", "100", "100", "100", "100"));
}

TEST_F(RatesView, ProjectionsRoundTheAddedPart) {
  refresh_at(50, 2, 62);  // 238 balls left: 191.94, 158.67, 238, 317.33, 396.67
  EXPECT_THAT(cells(), ElementsAre("242", "209", "288", "367", "447"));
  refresh_at(1, 0, 200);  // a half goes to 0
  EXPECT_EQ(cells()[0], "1");
  refresh_at(3, 0, 200);  // one and a half to 2
  EXPECT_EQ(cells()[0], "5");
  refresh_at(5, 0, 200);  // two and a half to 2
  EXPECT_EQ(cells()[0], "7");
}

TEST_F(RatesView, ProjectionsChangeOnlyWithARefresh) {
  refresh_at(50, 2, 60);
  match.score_runs = 60;
  match.innings_balls = 63;
  EXPECT_EQ(cells()[2], "290");
}

// The chase.

TEST_F(RatesView, ChaseHeadings) {
  start_chase();
  refresh_at(100, 3, 120);
  EXPECT_TRUE(view_rates(match).chase);
  EXPECT_THAT(headings(), ElementsAre("Runs Reqd.", "Overs rem.", "RR Reqd.", "Current RR", "Wkts in hand", "Target",
                                      "Initial RR"));
  EXPECT_EQ(view_rates(match).chase_headline, "To win Hom need...");
}

TEST_F(RatesView, ChaseFigures) {
  start_chase();
  refresh_at(100, 3, 120);
  EXPECT_THAT(cells(), ElementsAre("151", "30.0 (180b)", "5.03", "5", "7", "251", "5.02"));
  refresh_at(101, 10, 127);
  EXPECT_THAT(cells(), ElementsAre("150", "28.5 (173b)", "5.2", "4.77", "0", "251", "5.02"));
  EXPECT_EQ(view_rates(match).first_innings, "OA 250/7");
  EXPECT_EQ(view_rates(match).first_innings_overs, "49.4 Overs");
}

TEST_F(RatesView, RequiredRateKeepsItsLastValueWithNoBallLeft) {
  start_chase();
  refresh_at(240, 3, 294);
  EXPECT_EQ(cells()[2], "11");
  refresh_at(245, 3, 300);
  EXPECT_THAT(cells(), ElementsAre("6", "0.0 (0b)", "11", "4.9", "7", "251", "5.02"));
}

TEST_F(RatesView, CurrentRateIsEmptyBeforeTheFirstBall) {
  start_chase();
  refresh_at(0, 0, 0);
  EXPECT_THAT(cells(), ElementsAre("251", "50.0 (300b)", "5.02", "", "10", "251", "5.02"));
}

TEST_F(RatesView, ComparisonIsRecountedFromTheFirstInningsLog) {
  start_chase();
  add_over(match.first_deliveries, 1, {"1", "W", "4", "", "12", "0"});
  add_over(match.first_deliveries, 2, {"W", "W", "2", "3", "0", "6"});
  add_over(match.first_deliveries, 3, {"W", "1", "1", "1", "1", "1"});
  refresh_at(20, 1, 12);
  rates_view view = view_rates(match);
  EXPECT_EQ(view.stage_overs, "2.0 Overs");
  EXPECT_EQ(view.score_now, "Hom are 20/1");
  EXPECT_EQ(view.score_then, "OA were 28/3");
  refresh_at(21, 1, 18);
  EXPECT_EQ(view_rates(match).score_then, "OA were 33/4");
}

TEST_F(RatesView, ComparisonAfterAnOverOfSevenBalls) {
  start_chase();
  add_over(match.first_deliveries, 1, {"1", "0", "0", "0", "0", "0"});
  add_over(match.first_deliveries, 2, {"6", "0", "0", "0", "0", "0"});
  refresh_at(3, 0, 9);
  EXPECT_EQ(view_rates(match).stage_overs, "1.3 Overs");
  EXPECT_EQ(view_rates(match).score_then, "OA were 1/0");
}

TEST_F(RatesView, InTheCourseOfAnOverItTellsWhichOversItKnows) {
  start_chase();
  refresh_at(20, 1, 12);
  EXPECT_EQ(view_rates(match).told_after, "");
  match.innings_balls = 15;
  EXPECT_EQ(view_rates(match).told_after, "2.0");
  refresh_at(31, 2, 18);
  EXPECT_EQ(view_rates(match).told_after, "");
}

TEST_F(RatesView, StagesAreWrittenInOversAndBalls) {
  start_chase();
  for (const auto& [balls, shown] :
       {std::pair{1, "0.1 Overs"}, {5, "0.5 Overs"}, {6, "1.0 Overs"}, {299, "49.5 Overs"}}) {
    refresh_at(1, 0, balls);
    EXPECT_EQ(view_rates(match).stage_overs, shown);
  }
}

TEST_F(RatesView, ANeedOfNothingIsNotShown) {
  start_chase();
  refresh_at(250, 3, 120);
  EXPECT_EQ(view_rates(match).chase_headline, "To win Hom need...");
  EXPECT_THAT(cells(), ElementsAre("1", "30.0 (180b)", "0.03", "12.5", "7", "251", "5.02"));
  for (const int runs : {251, 256}) {
    refresh_at(runs, 3, 120);
    EXPECT_EQ(view_rates(match).chase_headline, "") << runs;
    EXPECT_EQ(cells()[0], "") << runs;
    EXPECT_EQ(cells()[2], "") << runs;
    EXPECT_EQ(cells()[5], "251") << runs;
  }
}

TEST_F(RatesView, TheChaseOpensWithItsOwnFigures) {
  refresh_at(244, 7, 294);
  start_chase();
  match.innings_balls = 0;
  prepare_chase_display(match);
  const rates_view view = view_rates(match);
  EXPECT_TRUE(view.chase);
  EXPECT_EQ(view.chase_headline, "To win Hom need...");
  EXPECT_THAT(cells(), ElementsAre("251", "50.0 (300b)", "", "", "10", "251", "5.02"));
  EXPECT_EQ(view.stage_overs, "") << "there is no over to compare";
  EXPECT_EQ(view.score_now, "Hom are 0/0");
  EXPECT_EQ(view.score_then, "OA were 0/0");
  EXPECT_EQ(view.first_innings, "OA 250/7");
  EXPECT_EQ(view.first_innings_overs, "49.4 Overs");
  EXPECT_EQ(match.first_innings_projection.text(), "250") << "the captain reckons with the last refresh";
}

TEST_F(RatesView, TheOpeningOfTheChaseLastsUntilItsFirstOver) {
  refresh_at(244, 7, 294);
  start_chase();
  match.innings_balls = 0;
  prepare_chase_display(match);
  match.score_runs = 6;
  match.innings_balls = 2;
  EXPECT_EQ(cells()[0], "251");
  refresh_at(7, 0, 6);
  EXPECT_THAT(cells(), ElementsAre("244", "49.0 (294b)", "4.98", "7", "10", "251", "5.02"));
}

TEST_F(RatesView, AfterAFirstInningsOfNothingTheProjectionsStartAnew) {
  refresh_at(0, 10, 12);
  match.innings_balls = 0;
  prepare_chase_display(match);
  EXPECT_FALSE(view_rates(match).chase);
  EXPECT_THAT(cells(), Each("-"));
}

}  // namespace
}  // namespace velorin::testing
