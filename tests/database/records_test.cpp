// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/records.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "database/database_fixture.h"
#include "database/saveavgs.h"
#include "database/slots.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::error_of;
using ::testing::HasSubstr;
using testing::write_bytes;

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

class Records : public testing::database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    testing::set_up_finished_match();
  }

  static record_lists updated() {
    update_records();
    return read_record_lists();
  }

  /// A match in which nobody does anything and nobody wins.
  static void set_up_quiet_match() {
    const ground_rec ground = match.ground;
    match = match_state();
    match.team1_name = "Tamar";
    match.team2_name = "Alba";
    match.ground = ground;
  }

  static team_table row_of(const std::string& team) {
    const record_lists lists = read_record_lists();
    for (int t = 1; t <= lists.table_team_count; ++t) {
      if (lists.teams[t].team_name.text() == team) return lists.teams[t];
    }
    ADD_FAILURE() << "no row of " << team;
    return {};
  }

  static void finish(const std::string& winner, const std::string& loser) {
    match.result_winner = winner;
    match.result_loser = loser;
    update_records();
  }
};

TEST_F(Records, TheHighestScoresAreSorted) {
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

TEST_F(Records, TheFifteenthLineDropsOutAndItsEqualDoesNotEnter) {
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

TEST_F(Records, AScoreOfZeroEntersNoList) {
  set_up_quiet_match();
  match.batting_card[1].name = "Nought";
  const record_lists lists = updated();
  EXPECT_EQ(lists.top_scores[1].player, "");
  EXPECT_EQ(lists.top_bowling[1].player, "");
}

TEST_F(Records, TheBestBowlingIsSorted) {
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

TEST_F(Records, EqualFiguresStandInTheOrderOfTheirEntry) {
  set_up_quiet_match();
  bowl(match.bowling_card[1], "First", 2, 20);
  bowl(match.bowling_card[2], "Second", 2, 20);
  bowl(match.first_bowling_card[1], "Dearer", 2, 21);
  const record_lists lists = updated();
  EXPECT_EQ(lists.top_bowling[1].player, "First");
  EXPECT_EQ(lists.top_bowling[2].player, "Second");
  EXPECT_EQ(lists.top_bowling[3].player, "Dearer");
}

TEST_F(Records, TheHighestTotals) {
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

TEST_F(Records, OfEqualTotalsTheFewerWicketsRankHigherOnBothLists) {
  update_records();
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

TEST_F(Records, APlaceGoesByTheWicketsOfTheInningsTotals) {
  match.score_runs = 231;
  match.innings_wickets = 2;
  match.score_wickets = 9;
  const record_lists lists = updated();
  EXPECT_EQ(lists.highest_totals[1].team, "Tamar");
  EXPECT_EQ(lists.highest_totals[1].wickets, 9);
}

TEST_F(Records, TheFirstUpdateFreesTheLowestList) {
  const record_lists lists = updated();
  const auto& list = lists.lowest_totals;
  EXPECT_EQ(list[1].total, 174);
  EXPECT_EQ(list[1].team, "Tamar");
  EXPECT_EQ(list[2].total, 231) << "not all out, and yet a low total";
  for (int i = 3; i <= 15; ++i) EXPECT_EQ(list[i].total, 1000);
}

TEST_F(Records, ATotalOfZeroBecomesAFreeLine) {
  match.first_total = 0;
  EXPECT_EQ(updated().lowest_totals[1].total, 0);
  set_up_quiet_match();
  match.first_total = 900;
  match.score_runs = 901;
  const record_lists lists = updated();
  EXPECT_EQ(lists.lowest_totals[1].total, 900) << "the line of 0 was free";
}

TEST_F(Records, TheBestStandOfEachWicket) {
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
  EXPECT_EQ(list[2].batsman_a, "");
  EXPECT_EQ(list[4].batsman_b, "A.Man5 * ");
}

TEST_F(Records, AnEqualStandOfMoreBallsReplacesTheRecord) {
  update_records();
  set_up_quiet_match();
  match.fall_of_wicket[1] = {.score = 150,
                             .overs_text = {},
                             .partner_runs = 150,
                             .partner_balls = 180,
                             .balls = 180,
                             .batsman_a = "New",
                             .batsman_b = "Pair"};
  EXPECT_EQ(updated().partnerships[1].batsman_a, "A.Man1");
  match.fall_of_wicket[1].partner_balls = 182;
  const record_lists lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "New");
  EXPECT_EQ(lists.partnerships[1].team, "Tamar");
  EXPECT_EQ(lists.partnerships[1].against, "Alba");
}

TEST_F(Records, TheSecondInningsComesFirstAmongTheStands) {
  match.fall_of_wicket[1] = match.first_fall_of_wicket[1];
  match.fall_of_wicket[1].batsman_a = "T.Man1";
  const record_lists lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "T.Man1");
  EXPECT_EQ(lists.partnerships[1].team, "Tamar");
}

TEST_F(Records, TheReservedBytesOfAStandStay) {
  record_lists lists = read_record_lists();
  lists.partnerships[1].partnership_reserved = {1, 2, 3, 4};
  write_record_lists(lists);
  lists = updated();
  EXPECT_EQ(lists.partnerships[1].batsman_a, "A.Man1");
  EXPECT_EQ(lists.partnerships[1].partnership_reserved[3], 4);
}

TEST_F(Records, ANewTeamHasEmptyCounters) {
  update_records();
  const team_table alba = row_of("Alba");
  EXPECT_EQ(alba.home_won, tagged{1.0});
  EXPECT_TRUE(alba.home_lost.is_empty());
  EXPECT_TRUE(alba.home_tied.is_empty());
  EXPECT_TRUE(alba.away_won.is_empty());
  EXPECT_EQ(alba.team_name, tagged{std::string("Alba")});
  const team_table tamar = row_of("Tamar");
  EXPECT_EQ(tamar.away_lost, tagged{1.0});
  EXPECT_TRUE(tamar.home_lost.is_empty());
  EXPECT_EQ(read_record_lists().teams[1].team_name.text(), "Tamar") << "the side that batted second comes first";
}

TEST_F(Records, TotalsHaveTheTypesOfTheirSources) {
  update_records();
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

TEST_F(Records, EqualTotalsChangeNothing) {
  update_records();
  match.ground.ground_name = "Elsewhere";
  update_records();
  EXPECT_EQ(row_of("Alba").high_for_venue.text(), "Harbour Park");
  EXPECT_EQ(row_of("Alba").low_against_venue.text(), "Harbour Park");
  EXPECT_EQ(row_of("Tamar").low_for_venue.text(), "Harbour Park");
}

TEST_F(Records, TotalsAreComparedAsNumbers) {
  update_records();
  match.score_runs = 99;
  update_records();
  EXPECT_EQ(row_of("Tamar").high_for.text(), "174") << "\"99\" is the greater text";
  EXPECT_EQ(row_of("Tamar").low_for.text(), "99");
}

TEST_F(Records, AFirstInningsAllOutIsALowestTotal) {
  match.first_wickets = 10;
  update_records();
  EXPECT_EQ(row_of("Alba").low_for, tagged{integer(231)});
  EXPECT_EQ(row_of("Tamar").low_against, tagged{integer(231)});
  EXPECT_EQ(row_of("Tamar").low_against_by, tagged{std::string("Alba")});
}

TEST_F(Records, ResultsCountAtHomeAndAway) {
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

TEST_F(Records, ATieCountsForBoth) {
  finish("", "");
  EXPECT_EQ(row_of("Alba").home_tied, tagged{1.0});
  EXPECT_EQ(row_of("Tamar").away_tied, tagged{1.0});
  EXPECT_TRUE(row_of("Alba").home_won.is_empty());
}

TEST_F(Records, ANeutralGroundIsAwayForBoth) {
  match.ground.country = "Neutral";
  update_records();
  EXPECT_EQ(row_of("Alba").away_won, tagged{1.0});
  EXPECT_EQ(row_of("Tamar").away_lost, tagged{1.0});
}

TEST_F(Records, AValueKeepsItsTagUntilAMatchSetsIt) {
  update_records();
  record_lists lists = read_record_lists();
  lists.teams[1].away_won = {integer(4)};
  lists.teams[1].away_lost = {std::string("6")};
  lists.teams[1].high_against = {std::int32_t{500}};
  write_record_lists(lists);
  update_records();
  const team_table tamar = row_of("Tamar");
  EXPECT_EQ(tamar.away_won, tagged{integer(4)});
  EXPECT_EQ(tamar.away_lost, tagged{7.0});
  EXPECT_EQ(tamar.high_against, tagged{std::int32_t{500}});
}

TEST_F(Records, TheFileHasItsRecordsWhereTheyBelong) {
  update_records();
  const std::string bytes = bytes_of(files.ptr);
  EXPECT_EQ(bytes.size(), (71 + 2 * 19) * records_slot);
  EXPECT_EQ(bytes.substr(70 * records_slot, 4), testing::hex("02 00 02 00"));
  EXPECT_EQ(bytes.substr(71 * records_slot, 2), testing::hex("00 00")) << "Tamar's away_won";
  EXPECT_EQ(bytes.substr((71 + 19 + 3) * records_slot, 10), testing::hex("05 00 00 00 00 00 00 00 F0 3F"))
      << "Alba's home_won";
}

TEST_F(Records, ATwentySixthTeamIsASubscriptError) {
  set_up_quiet_match();
  for (int i = 0; i < 25; ++i) {
    match.team1_name = fmt::format("Team {}", i);
    match.team2_name = "Team 0";
    update_records();
  }
  EXPECT_EQ(read_record_lists().table_team_count, 25);
  EXPECT_EQ(bytes_of(files.ptr).size(), (71 + 25 * 19) * records_slot);
  const std::string before = bytes_of(files.ptr);
  match.team2_name = "Team 25";
  const auto error = error_of([] { update_records(); });
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_EQ(error.place().file, "base.ptr");
  EXPECT_EQ(error.place().player, "Team 25");
  EXPECT_EQ(bytes_of(files.ptr), before);
}

TEST_F(Records, AScoreBeyond16BitsIsAnOverflow) {
  update_records();
  const std::string before = bytes_of(files.ptr);
  match.score_runs = 32768;
  EXPECT_EQ(error_of([] { update_records(); }).kind(), failure::overflow);
  EXPECT_EQ(bytes_of(files.ptr), before);
}

TEST_F(Records, ALineBeyondItsSlotIsRefused) {
  update_records();
  const std::string before = bytes_of(files.ptr);
  match.ground.ground_name = std::string(2500, 'x');
  match.batting_card[1].runs = 200;
  const auto error = error_of([] { update_records(); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_THAT(error.what(), HasSubstr("(file base.ptr, record 1, at \"T.Man1\")"));
  EXPECT_EQ(bytes_of(files.ptr), before);
}

TEST_F(Records, AFieldOfTheTeamTableBeyondItsSlotNamesTheTeam) {
  set_up_quiet_match();
  match.ground.ground_name = std::string(2497, 'x');
  match.first_total = 0;
  match.score_runs = 1;
  // 2497 characters fill a Tagged slot by one too many, and a line of the totals by far.
  EXPECT_EQ(error_of([] { update_records(); }).kind(), failure::overflow);
  record_lists lists;
  lists.table_team_count = 1;
  lists.teams[1].team_name = {std::string("Alba")};
  lists.teams[1].high_for_venue = {std::string(2497, 'x')};
  const auto error = error_of([&] { write_record_lists(lists); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_EQ(error.place().record, 80);
  EXPECT_EQ(error.place().field, "high_for_venue");
  EXPECT_EQ(error.place().player, "Alba");
  lists.teams[1].high_for_venue = {std::string(2496, 'x')};
  write_record_lists(lists);
  EXPECT_EQ(read_record_lists().teams[1].high_for_venue.text().size(), 2496U);
}

TEST_F(Records, ACounterThatIsNoNumberIsATypeMismatch) {
  update_records();
  record_lists lists = read_record_lists();
  lists.teams[2].home_won = {std::string("many")};
  write_record_lists(lists);
  const auto error = error_of([] { read_record_lists(); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_THAT(error.what(), HasSubstr("\"many\" is no number (file base.ptr, record 94, field home_won)"));
}

TEST_F(Records, CountsOutOfRange) {
  const auto kind_of = [&](const tagged& count) {
    slot_file file({}, records_slot, "x");
    file.put(table_count_record, encoded_field(count), {});
    write_bytes(files.ptr, file.bytes());
    return error_of([] { read_record_lists(); }).kind();
  };
  EXPECT_EQ(kind_of({integer(-1)}), failure::type);
  EXPECT_EQ(kind_of({integer(26)}), failure::subscript);
  EXPECT_EQ(kind_of({std::string("x")}), failure::type);
}

TEST_F(Records, ATextBeyondItsSlotIsATypeMismatch) {
  update_records();
  std::string bytes = bytes_of(files.ptr);
  bytes[16 * records_slot + 1] = '\x7F';
  write_bytes(files.ptr, bytes);
  const auto error = error_of([] { read_record_lists(); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_EQ(error.place().record, 17);
  EXPECT_EQ(error.place().field, "player");
}

}  // namespace
}  // namespace velorin
