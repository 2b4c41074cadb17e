// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "database/records_fixture.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

void bat(batting_card_rec& line, const std::string& name, int runs) {
  line.name = name;
  line.runs = runs;
  line.balls = 1;
}

void bowl(bowling_card_rec& line, const std::string& name, int wickets, int runs) {
  line.name = name;
  line.wickets = wickets;
  line.runs = runs;
}

class TopLists : public testing::records_fixture {};

TEST_F(TopLists, TheHighestScoresAreSorted) {
  const record_lists lists = updated();
  const auto& list = lists.top_scores;
  EXPECT_EQ(list[1].player, "A.Man2");
  EXPECT_EQ(list[1].runs, 120);
  EXPECT_EQ(list[1].balls, 110);
  EXPECT_EQ(list[1].team, "Alba");
  EXPECT_EQ(list[1].against, "Tamar");
  EXPECT_EQ(list[1].venue, "Harbour Park");
  EXPECT_EQ(list[1].not_out, 0);
  EXPECT_EQ(list[2].player, "A.Man1");
  EXPECT_EQ(list[2].not_out, flag_true);
  EXPECT_EQ(list[3].player, "T.Man1");
  EXPECT_EQ(list[3].team, "Tamar");
  EXPECT_EQ(list[3].not_out, flag_true);
  EXPECT_EQ(list[4].player, "A.Man4");
  EXPECT_EQ(list[5].player, "T.Man2") << "the second innings goes first, equals below one another";
  EXPECT_EQ(list[14].player, "T.Man11");
  EXPECT_EQ(list[15].player, "A.Man5");
}

TEST_F(TopLists, TheFifteenthLineDropsOutAndItsEqualDoesNotEnter) {
  set_up_quiet_match();
  for (int i = 1; i <= 11; ++i) bat(match.batting_card[i], fmt::format("T{}", i), 100 + i);
  for (int i = 1; i <= 4; ++i) bat(match.first_batting_card[i], fmt::format("A{}", i), 100);
  EXPECT_EQ(updated().top_scores[15].player, "A4");
  set_up_quiet_match();
  bat(match.batting_card[1], "Equal", 100);
  EXPECT_EQ(updated().top_scores[15].player, "A4");
  bat(match.batting_card[1], "Better", 101);
  const record_lists lists = updated();
  EXPECT_EQ(lists.top_scores[12].player, "Better") << "below his equal";
  EXPECT_EQ(lists.top_scores[15].player, "A3");
}

TEST_F(TopLists, AScoreOfZeroEntersNoList) {
  set_up_quiet_match();
  match.batting_card[1].name = "Nought";
  const record_lists lists = updated();
  EXPECT_EQ(lists.top_scores[1].player, "");
  EXPECT_EQ(lists.top_bowling[1].player, "");
}

TEST_F(TopLists, TheBestBowlingIsSorted) {
  const record_lists lists = updated();
  const auto& list = lists.top_bowling;
  EXPECT_EQ(list[1].player, "A.Man9");
  EXPECT_EQ(list[1].wickets, 5);
  EXPECT_EQ(list[1].runs, 31);
  EXPECT_EQ(list[1].balls, 60);
  EXPECT_EQ(list[1].team, "Alba");
  EXPECT_EQ(list[1].against, "Tamar");
  EXPECT_EQ(list[2].player, "A.Man10");
  EXPECT_EQ(list[3].player, "T.Man9");
  EXPECT_EQ(list[3].team, "Tamar");
  EXPECT_EQ(list[4].player, "T.Man10") << "1/50 goes before 1/60";
  EXPECT_EQ(list[5].player, "A.Man11");
  EXPECT_EQ(list[6].player, "") << "no wicket, no entry";
}

TEST_F(TopLists, EqualFiguresStandInTheOrderOfTheirEntry) {
  set_up_quiet_match();
  bowl(match.bowling_card[1], "First", 2, 20);
  bowl(match.bowling_card[2], "Second", 2, 20);
  bowl(match.first_bowling_card[1], "Dearer", 2, 21);
  const record_lists lists = updated();
  EXPECT_EQ(lists.top_bowling[1].player, "First");
  EXPECT_EQ(lists.top_bowling[2].player, "Second");
  EXPECT_EQ(lists.top_bowling[3].player, "Dearer");
}

TEST_F(TopLists, TheHighestTotals) {
  const record_lists lists = updated();
  const auto& list = lists.highest_totals;
  EXPECT_EQ(list[1].total, 231);
  EXPECT_EQ(list[1].balls, 300);
  EXPECT_EQ(list[1].wickets, 3);
  EXPECT_EQ(list[1].team, "Alba");
  EXPECT_EQ(list[1].against, "Tamar");
  EXPECT_EQ(list[1].venue, "Harbour Park");
  EXPECT_EQ(list[2].total, 174);
  EXPECT_EQ(list[2].wickets, 10);
  EXPECT_EQ(list[2].balls, 262);
  EXPECT_EQ(list[2].team, "Tamar");
  EXPECT_EQ(list[3].team, "");
}

TEST_F(TopLists, OfEqualTotalsTheFewerWicketsRankHigherOnBothLists) {
  update_records(match, data);
  match.first_total = 174;
  match.first_wickets = 4;
  match.score_runs = 174;
  const record_lists lists = updated();
  EXPECT_EQ(lists.highest_totals[2].wickets, 4);
  EXPECT_EQ(lists.highest_totals[3].wickets, 10);
  EXPECT_EQ(lists.highest_totals[4].wickets, 10);
  EXPECT_EQ(lists.lowest_totals[1].wickets, 10) << "the lowest list goes the other way round";
  EXPECT_EQ(lists.lowest_totals[2].wickets, 10);
  EXPECT_EQ(lists.lowest_totals[3].wickets, 4);
  EXPECT_EQ(lists.lowest_totals[4].total, 231);
}

TEST_F(TopLists, APlaceGoesByTheWicketsOfTheInningsTotals) {
  match.score_runs = 231;
  match.innings_wickets = 2;
  match.score_wickets = 9;
  const record_lists lists = updated();
  EXPECT_EQ(lists.highest_totals[1].team, "Tamar");
  EXPECT_EQ(lists.highest_totals[1].wickets, 9);
}

TEST_F(TopLists, TheFirstUpdateFreesTheLowestList) {
  const record_lists lists = updated();
  const auto& list = lists.lowest_totals;
  EXPECT_EQ(list[1].total, 174);
  EXPECT_EQ(list[1].team, "Tamar");
  EXPECT_EQ(list[2].total, 231) << "not all out, and yet a low total";
  for (int i = 3; i <= 15; ++i) EXPECT_EQ(list[i].total, 1000);
}

TEST_F(TopLists, ATotalOfZeroBecomesAFreeLine) {
  match.first_total = 0;
  EXPECT_EQ(updated().lowest_totals[1].total, 0);
  set_up_quiet_match();
  match.first_total = 900;
  match.score_runs = 901;
  const record_lists lists = updated();
  EXPECT_EQ(lists.lowest_totals[1].total, 900) << "the line of 0 was free";
}

TEST_F(TopLists, TheBestStandOfEachWicket) {
  const record_lists lists = updated();
  const auto& list = lists.partnerships;
  EXPECT_EQ(list[1].partner_runs, 150);
  EXPECT_EQ(list[1].partner_balls, 181);
  EXPECT_EQ(list[1].score, 150);
  EXPECT_EQ(list[1].balls, 181);
  EXPECT_EQ(list[1].overs_text, "30.1");
  EXPECT_EQ(list[1].batsman_a, "A.Man1");
  EXPECT_EQ(list[1].batsman_b, "A.Man2");
  EXPECT_EQ(list[1].team, "Alba");
  EXPECT_EQ(list[1].against, "Tamar");
  EXPECT_EQ(list[1].venue, "Harbour Park");
  EXPECT_EQ(list[2].overs_text, "") << "the stand of the second innings comes first";
  EXPECT_EQ(list[4].batsman_a, "A.Man1");
  EXPECT_EQ(list[4].batsman_b, "A.Man5 * ");
}

TEST_F(TopLists, AnEqualStandOfMoreBallsReplacesTheRecord) {
  update_records(match, data);
  set_up_quiet_match();
  match.batting_card[1].name = "New";
  match.batting_card[2].name = "Pair";
  match.score_runs = 150;
  match.score_wickets = 1;
  match.innings_balls = 180;
  add_stand(match.deliveries, {150, 180, 1, 2});
  EXPECT_EQ(updated().partnerships[1].batsman_a, "A.Man1");
  match.deliveries.clear();
  match.innings_balls = 182;
  add_stand(match.deliveries, {150, 182, 1, 2});
  const record_lists lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "New");
  EXPECT_EQ(lists.partnerships[1].team, "Tamar");
  EXPECT_EQ(lists.partnerships[1].against, "Alba");
}

TEST_F(TopLists, TheSecondInningsComesFirstAmongTheStands) {
  match.deliveries = match.first_deliveries;
  match.score_runs = match.first_total;
  match.score_wickets = match.first_wickets;
  match.innings_balls = match.first_balls;
  const record_lists lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "T.Man1");
  EXPECT_EQ(lists.partnerships[1].team, "Tamar");
}

TEST_F(TopLists, TheReservedBytesOfAStandStay) {
  record_lists lists = read_record_lists(data);
  lists.partnerships[1].partnership_reserved = {1, 2, 3, 4};
  write_record_lists(data, lists);
  lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "A.Man1");
  EXPECT_EQ(lists.partnerships[1].partnership_reserved[3], 4);
}

}  // namespace
}  // namespace velorin
