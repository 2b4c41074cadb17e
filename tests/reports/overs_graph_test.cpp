// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/overs_graph.h"

#include "reports/match_scenes.h"
#include "reports/opened.h"
#include "reports/worm_graph.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using OversGraph = reports_test;

/// The second innings in play, of which no ball is on record.
void set_innings_without_deliveries() {
  set_second_innings_in_play();
  match.deliveries.clear();
  match.first_deliveries.clear();
}

TEST_F(OversGraph, BarsStandOnTheirBaseLines) {
  set_innings_without_deliveries();
  add_over(match.deliveries, 3, {"1", "0", "4", "0", "2", "0"});
  add_over(match.first_deliveries, 50, {"6", "0", "0", "0", "0", "3"});
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_EQ(screen.bars[3].height, 7 * 165);
  EXPECT_EQ(screen.bars[3].top, 3300 - 7 * 165);
  EXPECT_TRUE(screen.bars[3].visible);
  EXPECT_EQ(screen.bars[52].height, 9 * 165);
  EXPECT_EQ(screen.bars[52].top, 6840 - 9 * 165);
  EXPECT_TRUE(screen.bars[52].visible);
}

TEST_F(OversGraph, OnlyTheOversWithRunsShowABar) {
  set_innings_without_deliveries();
  add_over(match.deliveries, 3, {"1"});
  add_over(match.first_deliveries, 1, {"1"});
  const overs_graph_form screen = opened<overs_graph_form>();
  for (int place = 0; place <= 101; ++place) {
    EXPECT_EQ(screen.bars[place].visible, place == 3 || place == 101) << place;
    EXPECT_FALSE(screen.wicket_marks[place]) << place;
  }
}

TEST_F(OversGraph, Places) {
  EXPECT_EQ(overs_graph_form::place(0, 1), 1);
  EXPECT_EQ(overs_graph_form::place(0, 50), 50);
  EXPECT_EQ(overs_graph_form::place(1, 1), 101);
  EXPECT_EQ(overs_graph_form::place(1, 50), 52);
}

TEST_F(OversGraph, OnlyNumbersCount) {
  add_over(match.deliveries, 1, {"1", "W", "2lb", "", "3", "4b"});
  delivery no_number = wide_on(2);  // stands on the wicket
  no_number.counted = true;
  match.deliveries.push_back(no_number);
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_EQ(screen.bars[1].height, (1 + 2 + 3 + 4) * 165);
  EXPECT_TRUE(screen.wicket_marks[1]);
}

TEST_F(OversGraph, AMaidenWithAWicketShowsTheMarkAlone) {
  add_over(match.deliveries, 5, {"0", "0", "W", "0", "0", "0"});
  add_over(match.first_deliveries, 7, {"0", "0", "0", "0", "0", "W"});
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_FALSE(screen.bars[5].visible);
  EXPECT_EQ(screen.bars[5].height, 0);
  EXPECT_EQ(screen.bars[5].top, 3300);
  EXPECT_TRUE(screen.wicket_marks[5]);
  EXPECT_FALSE(screen.bars[95].visible);
  EXPECT_EQ(screen.bars[95].top, 6840);
  EXPECT_TRUE(screen.wicket_marks[95]);
}

TEST_F(OversGraph, AnOverOfMoreThan20RunsReachesPastTheTop) {
  add_over(match.deliveries, 50, {"6", "6", "6", "6", "6", "12"});
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_EQ(screen.bars[50].height, 42 * 165);
  EXPECT_EQ(screen.bars[50].top, 3300 - 42 * 165);
  EXPECT_LT(screen.bars[50].top, 0);
}

TEST_F(OversGraph, RateLinesAndLabels) {
  set_second_innings_in_play();
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_DOUBLE_EQ(screen.rate[0], 5.74);
  EXPECT_DOUBLE_EQ(screen.rate_line_heights[0], 3300 - 5.74 * 165);
  EXPECT_EQ(screen.captions[0], "South Isles   ( 131/3 )");
  EXPECT_DOUBLE_EQ(screen.rate[1], 5.4);
  EXPECT_DOUBLE_EQ(screen.rate_line_heights[1], 6840 - 5.4 * 165);
  EXPECT_EQ(screen.captions[1], "Northland   ( 261/10 )");
}

TEST_F(OversGraph, WithoutABallTheRateLinesLieOnTheBaseLines) {
  match.team1_name = "South Isles";
  match.team2_name = "Northland";
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_EQ(screen.rate_line_heights[0], 3300);
  EXPECT_EQ(screen.rate_line_heights[1], 6840);
  EXPECT_EQ(screen.captions[0], "South Isles   ( 0/0 )");
  for (const over_bar& bar : screen.bars) EXPECT_FALSE(bar.visible);
  for (const bool mark : screen.wicket_marks) EXPECT_FALSE(mark);
}

TEST_F(OversGraph, AFirstInningsOfNoBallLeavesTheLowerHalfEmpty) {
  set_innings_without_deliveries();
  match.first_balls = 0;
  const overs_graph_form screen = opened<overs_graph_form>();
  EXPECT_EQ(screen.rate_line_heights[1], 6840);
  for (int place = 52; place <= 101; ++place) {
    EXPECT_FALSE(screen.bars[place].visible) << place;
    EXPECT_FALSE(screen.wicket_marks[place]) << place;
  }
}

TEST_F(OversGraph, TheLastOverOnRecord) {
  EXPECT_EQ(opened<overs_graph_form>().overs, (std::array<int, 2>{0, 0}));
  add_over(match.deliveries, 4, {"0", "0", "0", "0", "0", "0"});
  add_over(match.first_deliveries, 50, {"", "", "", "", "", "0"});
  EXPECT_EQ(opened<overs_graph_form>().overs, (std::array<int, 2>{4, 50}));
}

TEST_F(OversGraph, ASideKeepsItsPlaceFromInningsToInnings) {
  match.team1_name = "Northland";
  match.team2_name = "South Isles";
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{0, 1})) << "no line yet: the side batting comes first";
  load_worms(match);
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{0, 1}));
  set_second_innings_in_play();
  ASSERT_EQ(match.team2_name, "Northland");
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{1, 0}));
  match.loaded = false;
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{1, 0})) << "in a chase the side below batted first";
}

TEST_F(OversGraph, SidesOfALaterMatchKeepClearOfEachOther) {
  match.team1_name = "Northland";
  match.team2_name = "South Isles";
  load_worms(match);
  match.team1_name = "Eastmark";
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{0, 1})) << "South Isles keep the second line's";
  match.team2_name = "Northland";
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{1, 0}));
  match.team2_name = "Westmark";
  EXPECT_EQ(opened<overs_graph_form>().side, (std::array<int, 2>{0, 1}));
}

TEST_F(OversGraph, ReopeningForgetsWhatWasShown) {
  add_over(match.deliveries, 1, {"4", "W"});
  overs_graph_form screen = opened<overs_graph_form>();
  match = match_state{};
  screen.open();
  EXPECT_FALSE(screen.bars[1].visible);
  EXPECT_FALSE(screen.wicket_marks[1]);
}

}  // namespace
}  // namespace velorin
