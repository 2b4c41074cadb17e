// SPDX-License-Identifier: GPL-3.0-or-later
// Every limit of the career and the record file: what just fits is written, what is one too many is refused, with both
// files as they were.
#include <fmt/format.h>

#include <functional>
#include <limits>
#include <optional>

#include "database/database_fixture.h"
#include "database/records.h"
#include "database/saveavgs.h"
#include "database/slots.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::error_of;
using testing::write_bytes;

/// Alba's finished match against Tamar, and what an update makes of it.
class Limits : public testing::database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    testing::set_up_finished_match();
  }

  /// The message of an update that is refused. Both files must stay, byte for byte, and nothing may be left behind.
  std::string refusal(const std::function<void()>& update, failure kind = failure::overflow) const {
    const auto names = testing::names_in(folder);
    const std::optional<std::string> rec = read_file(files.rec);
    const std::optional<std::string> ptr = read_file(files.ptr);
    const run_time_error error = error_of(update);
    EXPECT_EQ(error.kind(), kind);
    EXPECT_TRUE(read_file(files.rec) == rec) << "the careers have changed";
    EXPECT_TRUE(read_file(files.ptr) == ptr) << "the records have changed";
    EXPECT_EQ(testing::names_in(folder), names);
    return error.what();
  }
};

/// A figure of a career, the record of his team and a man whose match adds to it.
struct career_figure {
  const char* name;
  std::int32_t career_rec::*figure;
  int team;
  int player;
};

const std::vector<career_figure> career_figures = {
    {"matches", &career_rec::matches, 1, 1},
    {"innings", &career_rec::innings, 1, 1},
    {"runs", &career_rec::runs, 1, 1},
    {"balls_faced", &career_rec::balls_faced, 2, 3},
    {"fours", &career_rec::fours, 2, 2},
    {"sixes", &career_rec::sixes, 2, 2},
    {"twos", &career_rec::twos, 1, 11},
    {"threes", &career_rec::threes, 1, 11},
    {"singles", &career_rec::singles, 1, 5},
    {"dots", &career_rec::dots, 2, 3},
    {"wickets", &career_rec::wickets, 2, 9},
    {"catches", &career_rec::catches, 1, 3},
    {"catches", &career_rec::catches, 1, 10},
    {"stumpings", &career_rec::stumpings, 2, 7},
    {"balls_bowled", &career_rec::balls_bowled, 1, 9},
    {"maidens", &career_rec::maidens, 2, 9},
    {"runs_given", &career_rec::runs_given, 1, 11},
    {"hundreds", &career_rec::hundreds, 2, 2},
    {"fifties", &career_rec::fifties, 1, 1},
    {"five_wickets", &career_rec::five_wickets, 2, 9},
    {"not_outs", &career_rec::not_outs, 1, 1},
};

TEST_F(Limits, EveryCareerFigure) {
  update_career();
  for (const career_figure& tried : career_figures) {
    const career_table before = read_career_table();
    career_table full = before;
    career_rec& man = full.teams[tried.team].players[tried.player];
    const std::int32_t gain = man.*tried.figure;  // the match was the only one so far
    ASSERT_GT(gain, 0) << tried.name;
    man.*tried.figure = std::numeric_limits<std::int32_t>::max() - gain + 1;
    write_career_table(full);
    EXPECT_EQ(
        refusal(update_career),
        fmt::format("Overflow: a career figure does not fit 32 bits (file base.rec, record {}, field {}, at \"{}\")",
                    tried.team + 1, tried.name, man.name));
    man.*tried.figure = std::numeric_limits<std::int32_t>::max() - gain;
    write_career_table(full);
    update_career();
    EXPECT_EQ(read_career_table().teams[tried.team].players[tried.player].*tried.figure,
              std::numeric_limits<std::int32_t>::max());
    write_career_table(before);
  }
}

TEST_F(Limits, ATwentyFirstTeamWithCareers) {
  career_table table;
  table.career_team_count = 19;
  for (int t = 1; t <= 19; ++t) table.teams[t].team_name = fmt::format("Team {}", t);
  write_career_table(table);
  EXPECT_EQ(refusal(update_career, failure::subscript),
            "Subscript out of range: more than 20 teams with careers (file base.rec, record 22, field team_name, "
            "at \"Alba\")");
  match.team2_name = "Team 19";
  update_career();
  EXPECT_EQ(read_career_table().career_team_count, 20);
  match.team1_name = "Corran";
  EXPECT_EQ(refusal(update_career, failure::subscript),
            "Subscript out of range: more than 20 teams with careers (file base.rec, record 22, field team_name, "
            "at \"Corran\")");
}

TEST_F(Limits, ATwentyFirstPlayerOfEitherSide) {
  update_career();
  const career_table first = read_career_table();
  for (const int team : {1, 2}) {
    career_table table = first;
    career_team_rec& men = table.teams[team];
    for (int p = 12; p <= 20; ++p) men.players[p].name = fmt::format("Old {}", p);
    men.player_count = 20;
    write_career_table(table);
    update_career();
    EXPECT_EQ(read_career_table().teams[team].player_count, 20) << "known men need no place";
    bowling_card_table& card = team == 1 ? match.first_bowling_card : match.bowling_card;
    const std::string known = card[11].name;
    card[11].name = "New";
    EXPECT_EQ(
        refusal(update_career, failure::subscript),
        fmt::format("Subscript out of range: more than 20 players of {0} with careers (file base.rec, record {1}, "
                    "field players, at \"New\")",
                    team == 1 ? "Tamar" : "Alba", team + 1));
    card[11].name = known;
  }
}

TEST_F(Limits, ACareerSlotUpToItsLastByte) {
  update_career();
  const std::size_t size = encoded(read_career_table().teams[1]).size();
  std::filesystem::remove(files.rec);
  match.first_bowling_card[4].name += std::string(career_slot - size, 'x');
  match.batting_card[4].name = match.first_bowling_card[4].name;
  update_career();
  const career_team_rec full = read_career_table().teams[1];
  EXPECT_EQ(encoded(full).size(), career_slot);
  EXPECT_EQ(full.players[4].runs, 12);
  EXPECT_EQ(bytes_of(files.rec).size(), 3 * career_slot);
  EXPECT_EQ(read_career_table().teams[2].team_name, "Alba") << "the next slot";

  // Another hundred, against a side whose name has a letter more.
  match.batting_card[1].runs = 100;
  match.team2_name = "Albas";
  EXPECT_EQ(refusal(update_career),
            "Overflow: a record of 5501 bytes in a slot of 5500 (file base.rec, record 2, at \"Tamar\")");
  match.team2_name = "Alba";
  update_career();
  EXPECT_EQ(read_career_table().teams[1].players[1].high_score, 100);
}

TEST_F(Limits, ANameWhoseLengthHasNoPlace) {
  match.bowling_card[2].name = std::string(70000, 'x');
  EXPECT_EQ(refusal(update_career),
            "Overflow: a record of 72380 bytes in a slot of 5500 (file base.rec, record 3, at \"Alba\")");
}

TEST_F(Limits, FilesOfZeroLengthAreNewOnes) {
  update_career();
  update_records();
  const std::string rec = bytes_of(files.rec);
  const std::string ptr = bytes_of(files.ptr);
  write_bytes(files.rec, "");
  write_bytes(files.ptr, "");
  update_career();
  update_records();
  EXPECT_EQ(bytes_of(files.rec), rec);
  EXPECT_EQ(bytes_of(files.ptr), ptr);
  EXPECT_EQ(read_career_table().teams[1].players[1].matches, 1);
  EXPECT_EQ(read_record_lists().lowest_totals[3].total, 1000) << "the lines of 0 were freed";
}

void bat(batting_card_rec& line) {
  line.name = "Man";
  line.runs = 1;
}

void bowl(bowling_card_rec& line) {
  line.name = "Man";
  line.balls = 6;
  line.wickets = 1;
}

void stand(fall_of_wicket_rec& fall) {
  fall.partner_runs = 1;
  fall.batsman_a = "one";
  fall.batsman_b = "two";
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
     [] { stand(match.fall_of_wicket[1]); }},
    {"last stand", 70, 24 + 3 + 3 + 4 + 5, "one", [](record_lists& lists) { lists.partnerships[10] = {}; },
     [] { stand(match.first_fall_of_wicket[10]); }},
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

TEST_F(Limits, EverySlotOfTheRecordListsUpToItsLastByte) {
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
    write_record_lists(lists);
    play(room + 1);
    EXPECT_EQ(refusal(update_records),
              fmt::format("Overflow: a record of 2501 bytes in a slot of 2500 (file base.ptr, record {}, at \"{}\")",
                          list.record, list.at))
        << list.what;
    play(room);
    update_records();
    const std::string slot = bytes_of(files.ptr).substr((list.record - 1) * records_slot, records_slot);
    EXPECT_NE(slot.find(match.ground.ground_name), std::string::npos) << list.what;
  }
}

TEST_F(Limits, AFieldOfTheTeamTableUpToItsLastByte) {
  record_lists lists = unbeatable();
  lists.teams[1].high_for = {98.0};
  write_record_lists(lists);
  set_up_bare_match(2497);
  EXPECT_EQ(refusal(update_records),
            "Overflow: a record of 2501 bytes in a slot of 2500 (file base.ptr, record 80, field high_for_venue, "
            "at \"Tamar\")");
  set_up_bare_match(2496);
  update_records();
  EXPECT_EQ(read_record_lists().teams[1].high_for_venue.text().size(), 2496U);
}

TEST_F(Limits, ATwentySixthTeamInTheTable) {
  record_lists lists = unbeatable();
  for (int t = 3; t <= 24; ++t) {
    lists.teams[t] = lists.teams[1];
    lists.teams[t].team_name = {fmt::format("Team {}", t)};
  }
  lists.table_team_count = 24;
  write_record_lists(lists);
  set_up_bare_match(5);
  match.team1_name = "Corran";
  match.team2_name = "Dessa";
  EXPECT_EQ(refusal(update_records, failure::subscript),
            "Subscript out of range: more than 25 teams in the team table (file base.ptr, record 565, field team_name, "
            "at \"Dessa\")");
  match.team2_name = "Alba";
  update_records();
  EXPECT_EQ(read_record_lists().table_team_count, 25);
  EXPECT_EQ(read_record_lists().teams[25].team_name.text(), "Corran");
  EXPECT_EQ(bytes_of(files.ptr).size(), 546 * records_slot);
}

TEST_F(Limits, ATotalOfTheSecondInnings) {
  update_records();
  match.score_runs = 32768;
  EXPECT_EQ(refusal(update_records),
            "Overflow: 32768 does not fit a 16-bit figure (file base.ptr, record 31, field total, at \"Tamar\")");
  match.score_runs = 32767;
  match.first_total = 32767;
  update_records();
  const record_lists lists = read_record_lists();
  EXPECT_EQ(lists.highest_totals[1].total, 32767);
  EXPECT_EQ(lists.highest_totals[2].total, 32767);
  EXPECT_EQ(lists.teams[1].high_for, tagged{std::string("32767")});
  EXPECT_EQ(lists.teams[1].high_against, tagged{integer(32767)});
}

TEST_F(Limits, ACounterPassesTheWidthOfAnInteger) {
  update_records();
  record_lists lists = read_record_lists();
  lists.teams[2].home_won = {integer(32767)};
  lists.teams[1].away_lost = {std::int32_t{2147483647}};
  write_record_lists(lists);
  update_records();
  lists = read_record_lists();
  EXPECT_EQ(lists.teams[2].home_won, tagged{32768.0});
  EXPECT_EQ(lists.teams[1].away_lost, tagged{2147483648.0});
}

}  // namespace
}  // namespace velorin
