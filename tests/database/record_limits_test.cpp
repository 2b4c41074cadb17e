// SPDX-License-Identifier: GPL-3.0-or-later
// Every limit of the record lists and the team table: what just fits is written, what is one too many is refused, and
// the files stay.
#include <fmt/format.h>

#include <functional>

#include "database/career_update.h"
#include "database/lasting_records.h"
#include "database/limits_fixture.h"
#include "database/slots.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;

class RecordLimits : public testing::limits_fixture {};

void bat(batting_card_rec& line) {
  line.name = "Man";
  line.runs = 1;
}

void bowl(bowling_card_rec& line) {
  line.name = "Man";
  line.balls = 6;
  line.wickets = 1;
}

void stand(delivery_list& deliveries, batting_card_table& card) {
  add_stand(deliveries, {1, 2, 1, 2});
  card[1].name = "one";
  card[2].name = "two";
}

/// A list of the record file with room for one line, what makes that line, and its message.
struct full_list {
  const char* what;
  long record;
  std::size_t fixed;  ///< bytes of the line but for the name of the ground
  const char* at;
  std::function<void(record_lists&)> make_room;
  std::function<void()> score;
};

const std::vector<full_list> full_lists = {
    {"first score", 1, 14 + 3 + 5 + 4, "Man", [](record_lists& lists) { lists.top_scores = {}; },
     [] { bat(match.batting_card[4]); }},
    {"last score", 15, 14 + 3 + 4 + 5, "Man", [](record_lists& lists) { lists.top_scores[15] = {}; },
     [] { bat(match.first_batting_card[11]); }},
    {"first bowling", 16, 14 + 3 + 4 + 5, "Man", [](record_lists& lists) { lists.top_bowling = {}; },
     [] { bowl(match.bowling_card[9]); }},
    {"last bowling", 30, 14 + 3 + 5 + 4, "Man", [](record_lists& lists) { lists.top_bowling[15] = {}; },
     [] { bowl(match.first_bowling_card[9]); }},
    {"highest total", 31, 12 + 4 + 5, "Alba", [](record_lists& lists) { lists.highest_totals[1].total = 99; }, [] {}},
    {"last of the highest totals", 45, 12 + 4 + 5, "Alba",
     [](record_lists& lists) { lists.highest_totals[15].total = 99; }, [] {}},
    {"last of the lowest totals", 60, 12 + 4 + 5, "Alba",
     [](record_lists& lists) { lists.lowest_totals[15].total = 101; }, [] {}},
    {"first stand", 61, 24 + 3 + 3 + 5 + 4, "one", [](record_lists& lists) { lists.partnerships[1] = {}; },
     [] {
       stand(match.deliveries, match.batting_card);
       match.score_wickets = 1;
     }},
    {"last stand", 70, 24 + 3 + 3 + 4 + 5, "one", [](record_lists& lists) { lists.partnerships[10] = {}; },
     [] {
       for (int i = 1; i <= 9; ++i) add_stand(match.first_deliveries, {0, 1, 1, 2});
       stand(match.first_deliveries, match.first_batting_card);
       match.first_wickets = 10;
     }},
};

/// Record lists that no match enters, with room for two teams that no total betters.
record_lists unbeatable() {
  record_lists lists;
  for (std::size_t i = 1; i <= 15; ++i) {
    lists.top_scores[i].runs = 32767;
    lists.top_bowling[i].wickets = 32767;
    lists.highest_totals[i].total = 32767;
    lists.lowest_totals[i].total = 1;
  }
  for (top_partnership_rec& line : lists.partnerships) line.partner_runs = 32767;
  lists.table_team_count = 2;
  const char* names[] = {"", "Tamar", "Alba"};
  for (int t = 1; t <= 2; ++t) {
    team_table& team = lists.teams[t];
    team.team_name = {std::string(names[t])};
    team.high_for = team.high_against = {std::int32_t{100000}};
    team.low_for = team.low_against = {0.0};
  }
  return lists;
}

/// Tamar's reply of 100 to Alba's 100; nobody did anything else.
void set_up_bare_match(std::size_t letters_of_ground) {
  match = match_state();
  match.team1_name = "Tamar";
  match.team2_name = "Alba";
  match.ground.ground_name = std::string(letters_of_ground, 'g');
  match.first_total = 100;
  match.score_runs = 99;
}

TEST_F(RecordLimits, EverySlotOfTheRecordListsUpToItsLastByte) {
  for (const full_list& list : full_lists) {
    record_lists lists = unbeatable();
    list.make_room(lists);
    // The reply must not enter where the first innings does.
    const auto play = [&](std::size_t letters) {
      set_up_bare_match(letters);
      if (list.record == 60) match.score_runs = 101;
      list.score();
    };
    const std::size_t room = records_slot - list.fixed;
    write_record_lists(data, lists);
    play(room + 1);
    EXPECT_EQ(refusal([] { update_records(match, data); }),
              fmt::format("Overflow: a record of 2501 bytes in a slot of 2500 (file base.ptr, record {}, at \"{}\")",
                          list.record, list.at))
        << list.what;
    play(room);
    update_records(match, data);
    const std::string slot = bytes_of(data.files.record_file).substr((list.record - 1) * records_slot, records_slot);
    EXPECT_NE(slot.find(match.ground.ground_name), std::string::npos) << list.what;
  }
}

TEST_F(RecordLimits, AFieldOfTheTeamTableUpToItsLastByte) {
  record_lists lists = unbeatable();
  lists.teams[1].high_for = {98.0};
  write_record_lists(data, lists);
  set_up_bare_match(2497);
  EXPECT_EQ(refusal([] { update_records(match, data); }),
            "Overflow: a record of 2501 bytes in a slot of 2500 (file base.ptr, record 80, field high_for_venue, "
            "at \"Tamar\")");
  set_up_bare_match(2496);
  update_records(match, data);
  EXPECT_EQ(read_record_lists(data).teams[1].high_for_venue.text().size(), 2496U);
}

TEST_F(RecordLimits, ATwentySixthTeamInTheTable) {
  record_lists lists = unbeatable();
  for (int t = 3; t <= 24; ++t) {
    lists.teams[t] = lists.teams[1];
    lists.teams[t].team_name = {fmt::format("Team {}", t)};
  }
  lists.table_team_count = 24;
  write_record_lists(data, lists);
  set_up_bare_match(5);
  match.team1_name = "Corran";
  match.team2_name = "Dessa";
  EXPECT_EQ(refusal([] { update_records(match, data); }, failure::subscript),
            "Subscript out of range: more than 25 teams in the team table (file base.ptr, record 565, field team_name, "
            "at \"Dessa\")");
  match.team2_name = "Alba";
  update_records(match, data);
  EXPECT_EQ(read_record_lists(data).table_team_count, 25);
  EXPECT_EQ(read_record_lists(data).teams[25].team_name.text(), "Corran");
  EXPECT_EQ(bytes_of(data.files.record_file).size(), 546 * records_slot);
}

TEST_F(RecordLimits, ATotalOfTheSecondInnings) {
  update_records(match, data);
  match.score_runs = 32768;
  EXPECT_EQ(refusal([] { update_records(match, data); }),
            "Overflow: 32768 does not fit a 16-bit figure (file base.ptr, record 31, field total, at \"Tamar\")");
  match.score_runs = 32767;
  match.first_total = 32767;
  update_records(match, data);
  const record_lists lists = read_record_lists(data);
  EXPECT_EQ(lists.highest_totals[1].total, 32767);
  EXPECT_EQ(lists.highest_totals[2].total, 32767);
  EXPECT_EQ(lists.teams[1].high_for, tagged{std::string("32767")});
  EXPECT_EQ(lists.teams[1].high_against, tagged{integer(32767)});
}

TEST_F(RecordLimits, ACounterPassesTheWidthOfAnInteger) {
  update_records(match, data);
  record_lists lists = read_record_lists(data);
  lists.teams[2].home_won = {integer(32767)};
  lists.teams[1].away_lost = {std::int32_t{2147483647}};
  write_record_lists(data, lists);
  update_records(match, data);
  lists = read_record_lists(data);
  EXPECT_EQ(lists.teams[2].home_won, tagged{32768.0});
  EXPECT_EQ(lists.teams[1].away_lost, tagged{2147483648.0});
}

}  // namespace
}  // namespace velorin
