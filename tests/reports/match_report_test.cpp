// SPDX-License-Identifier: GPL-3.0-or-later
// The report of a match that has been decided, with figures worked by hand from the scenes.
#include "reports/match_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/lasting_records.h"
#include "reports/match_scenes.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

/// South Isles, 131/3 in reply to 261, taken as beaten where they stand.
class MatchReport : public reports_test {
 protected:
  void SetUp() override {
    reports_test::SetUp();
    set_second_innings_in_play();
    match.result_winner = "Northland";
    match.result_loser = "South Isles";
    match.result_margin = "  won by  130  runs";
    match.fifty_list[1] = "A.Harrow";
    match.fifty_list[2] = "C.Vanterpool";
    match.hundred_list[1] = "A.Harrow";
    match.hundred_list[2] = "C.Vanterpool";
    for (int i = 1; i <= 11; ++i) match.bowling_xi[i].name = match.bowling_card[i].name;
  }

  static std::string batting_line(const reported_batsman& man) {
    return man.name + "|" + man.how_out + "|" + std::to_string(man.runs) + "|" + std::to_string(man.balls) + "|" +
           std::to_string(man.fours) + "|" + std::to_string(man.sixes) + "|" + man.strike_rate;
  }
  static std::string bowling_line(const reported_bowler& man) {
    return man.name + "|" + man.overs + "|" + std::to_string(man.maidens) + "|" + std::to_string(man.runs) + "|" +
           std::to_string(man.wickets) + "|" + man.economy;
  }
  static std::string record_line(const reported_record& line) {
    return line.list + "|" + std::to_string(line.place) + "|" + line.who + "|" + line.figures;
  }
  static std::vector<std::string> record_lines(const record_lists& before) {
    std::vector<std::string> lines;
    for (const reported_record& line : report_on(match, &before).records) lines.push_back(record_line(line));
    return lines;
  }
};

TEST_F(MatchReport, TellsTheResultAndBothTotals) {
  const match_report report = report_on(match, nullptr);
  EXPECT_EQ(report.ground, "Lake End");
  EXPECT_EQ(report.winner, "Northland");
  EXPECT_EQ(report.result, "Northland  won by  130  runs");
  const auto& [first, second] = report.innings;
  EXPECT_EQ(first.side, "Northland");
  EXPECT_EQ(first.bowling_side, "South Isles");
  EXPECT_EQ(first.total, 261);
  EXPECT_EQ(first.wickets, 10);
  EXPECT_EQ(first.overs, "48.2");
  EXPECT_EQ(first.run_rate, "5.4");
  EXPECT_EQ(second.side, "South Isles");
  EXPECT_EQ(second.total, 131);
  EXPECT_EQ(second.wickets, 3);
  EXPECT_EQ(second.overs, "22.5");
  EXPECT_EQ(second.run_rate, "5.74");
  EXPECT_FALSE(report.records_known);
  EXPECT_THAT(report.records, IsEmpty());
}

TEST_F(MatchReport, TellsEveryMansInnings) {
  const auto& [first, second] = report_on(match, nullptr).innings;
  ASSERT_EQ(first.batsmen.size(), 11U);
  EXPECT_EQ(batting_line(first.batsmen[0]), "A.Harrow|c && b J.Abara|123|131|14|2|93.89");
  EXPECT_EQ(first.batsmen[2].how_out, "st G.Penhall b H.Dray");
  EXPECT_EQ(batting_line(first.batsmen[10]), "K.Foss|not out|2|4|0|0|50");
  EXPECT_THAT(first.did_not_bat, IsEmpty());
  ASSERT_EQ(second.batsmen.size(), 5U);
  EXPECT_EQ(batting_line(second.batsmen[2]), "C.Vanterpool|not out|102|101|11|3|100.99");
  EXPECT_TRUE(second.batsmen[2].not_out);
  EXPECT_FALSE(second.batsmen[0].not_out);
  EXPECT_THAT(second.did_not_bat, ElementsAre("F.Uluila", "G.Penhall", "H.Dray", "I.Quennell", "J.Abara", "K.Stote"));
}

TEST_F(MatchReport, TellsExtrasAndFalls) {
  const auto& [first, second] = report_on(match, nullptr).innings;
  EXPECT_THAT(first.extras, ElementsAre(1, 12, 9, 3));
  EXPECT_EQ(first.extras_sum(), 25);
  EXPECT_EQ(first.falls.size(), 10U);
  EXPECT_EQ(second.extras_sum(), 15);
  ASSERT_EQ(second.falls.size(), 3U);
  // Stands of 31 in 42 balls, 0 in 1, 68 in 77.
  const auto told = [](const reported_fall& fall) {
    return std::to_string(fall.wicket) + "-" + std::to_string(fall.score) + " " + fall.overs + " " + fall.batsman;
  };
  EXPECT_EQ(told(second.falls[0]), "1-31 7.0 A.Tamuera");
  EXPECT_EQ(told(second.falls[1]), "2-31 7.1 B.Okell");
  EXPECT_EQ(told(second.falls[2]), "3-99 20.0 D.Sealing");
}

TEST_F(MatchReport, BowlersStandInTheOrderInWhichTheyCameOn) {
  const auto& [first, second] = report_on(match, nullptr).innings;
  std::vector<std::string> lines;
  for (const reported_bowler& man : second.bowlers) lines.push_back(bowling_line(man));
  EXPECT_THAT(lines, ElementsAre("K.Foss|8.0|2|29|1|3.62", "H.Ekwueme|8.0|0|44|0|5.5", "I.Nettle|6.0|11|42|1|7",
                                 "C.Featherstonehaughs|0.5|0|10|0|12"));
  EXPECT_THAT(first.bowlers,
              ElementsAre(Field(&reported_bowler::name, "K.Stote"), Field(&reported_bowler::name, "J.Abara"),
                          Field(&reported_bowler::name, "I.Quennell"), Field(&reported_bowler::name, "H.Dray"),
                          Field(&reported_bowler::name, "E.Marrack")));
}

TEST_F(MatchReport, TheRunningScoreEndsWithTheLastBall) {
  const auto& [first, second] = report_on(match, nullptr).innings;
  EXPECT_EQ(first.balls, 290);
  EXPECT_EQ(first.runs_after.size(), 50U) << "nought, 48 overs and a part of one";
  EXPECT_EQ(first.runs_after.front(), 0);
  EXPECT_EQ(first.runs_after.back(), 261);
  EXPECT_EQ(second.runs_after.size(), 24U);
  EXPECT_EQ(second.runs_after[7], 31) << "when the first wicket fell";
  EXPECT_EQ(second.runs_after.back(), 131);
}

TEST_F(MatchReport, AMilestoneIsTheHighestOfThoseCongratulated) {
  match.five_wicket_list[1] = "J.Abara";
  match.first_bowling_card[10].wickets = 5;
  const match_report report = report_on(match, nullptr);
  std::vector<std::string> lines;
  for (const reported_milestone& one : report.milestones) {
    lines.push_back(one.player + "|" + one.side + "|" + one.what + "|" + one.figures);
  }
  EXPECT_THAT(lines, ElementsAre("A.Harrow|Northland|Hundred|123 (131)", "C.Vanterpool|South Isles|Hundred|102* (101)",
                                 "J.Abara|South Isles|Five wickets|10.0-3-30-5"));
}

TEST_F(MatchReport, OfTwoMenOfOneNameTheRunsTellWhoseMilestoneItIs) {
  match.first_batting_card[8].name = "C.Vanterpool";  // 5 runs
  const match_report report = report_on(match, nullptr);
  ASSERT_EQ(report.milestones.size(), 2U);
  EXPECT_EQ(report.milestones[1].side, "South Isles");
}

TEST_F(MatchReport, IntoEmptyListsEveryFigureGoes) {
  const record_lists none = {};
  const std::vector<std::string> lines = record_lines({});
  for (const reported_record& line : report_on(match, &none).records) {
    const bool of_a_man = line.list != "Highest totals" && line.list != "Lowest totals";
    EXPECT_EQ(line.player, of_a_man ? line.who.substr(0, line.who.find(" &&")) : "") << record_line(line);
    EXPECT_EQ(line.team.empty(), false) << record_line(line);
  }
  EXPECT_THAT(lines, ::testing::Contains("Highest scores|1|A.Harrow|123 (131)"));
  EXPECT_THAT(lines, ::testing::Contains("Highest scores|2|C.Vanterpool|102* (101)"));
  EXPECT_THAT(lines, ::testing::Contains("Highest totals|1|Northland|261/10 (48.2)"));
  EXPECT_THAT(lines, ::testing::Contains("Lowest totals|1|South Isles|131/3 (22.5)"));
  EXPECT_THAT(lines, ::testing::Contains("Partnerships|3|C.Vanterpool && D.Sealing|68 (77)"));
}

TEST_F(MatchReport, OnlyTheLinesThatTheMatchTakesAreTold) {
  record_lists before;
  for (int i = 1; i <= 15; ++i) {
    before.top_scores[i].player = before.top_bowling[i].player = "O.Old";
    before.top_scores[i].runs = i <= 3 ? 150 : 110;
    before.top_bowling[i].wickets = 6;
    before.highest_totals[i].team = before.lowest_totals[i].team = "Alba";
    before.highest_totals[i].total = 300;
    before.lowest_totals[i].total = 90;
  }
  for (int wicket = 1; wicket <= 10; ++wicket) {
    top_partnership_rec& stand = before.partnerships[wicket];
    stand.partner_runs = wicket == 5 ? 40 : 200;
    stand.batsman_a = "O.Old";
  }
  EXPECT_THAT(record_lines(before),
              ElementsAre("Highest scores|4|A.Harrow|123 (131)", "Partnerships|5|A.Harrow && F.Aldous|48 (47)"));
  EXPECT_TRUE(report_on(match, &before).records_known);
}

TEST_F(MatchReport, TheUnbrokenStandIsAmongTheRecords) {
  record_lists before;
  for (int wicket = 1; wicket <= 10; ++wicket) {
    before.partnerships[wicket].partner_runs = 25;
    before.partnerships[wicket].batsman_a = "O.Old";
  }
  EXPECT_THAT(record_lines(before), ::testing::Contains(::testing::StartsWith("Partnerships|4|")));
  EXPECT_FALSE(match.last_stand_closed) << "the match itself is left as it stands";
}

TEST_F(MatchReport, ATieHasNoWinner) {
  match.result_winner.clear();
  match.result_margin = "Match tied.";
  const match_report report = report_on(match, nullptr);
  EXPECT_EQ(report.winner, "");
  EXPECT_EQ(report.result, "Match tied.");
}

}  // namespace
}  // namespace velorin
