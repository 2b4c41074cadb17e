// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "model/match_records.h"

// The lasting figures: careers (<base>.rec), record lists and the team table (<base>.ptr). Arrays that start at 1 keep
// their unused element 0. Flags are -1 or 0.

namespace velorin {

struct open_database;

class slot_file;

inline constexpr int team_limit = 20;         ///< teams of a database
inline constexpr int career_team_limit = 20;  ///< teams with careers
inline constexpr int player_limit = 20;       ///< players of a squad, and of a team with careers
inline constexpr int table_team_limit = 25;   ///< teams of the team table
inline constexpr int no_total_yet = 1000;     ///< marks a lowest total that nobody has made yet

/// A value together with its type, as the update had it in hand.
struct tagged {
  std::variant<std::monostate, integer, std::int32_t, double, std::string> value;

  bool is_empty() const { return value.index() == 0; }
  /// The value as a number, 0 if empty. Raises run_time_error (type) for a text or a Double that is no number.
  double number() const;
  /// The value as a text, "" if empty.
  std::string text() const;
  bool operator==(const tagged&) const = default;
};

/// The career of one player.
struct career_rec {
  std::string name;
  std::int32_t matches = 0;
  std::int32_t innings = 0;
  std::int32_t runs = 0;
  std::int32_t balls_faced = 0;
  std::int32_t fours = 0;
  std::int32_t sixes = 0;
  std::int32_t twos = 0;
  std::int32_t threes = 0;
  std::int32_t singles = 0;
  std::int32_t dots = 0;  ///< balls faced without a run
  std::int32_t wickets = 0;
  std::int32_t catches = 0;
  std::int32_t stumpings = 0;
  std::int32_t balls_bowled = 0;
  std::int32_t maidens = 0;
  std::int32_t runs_given = 0;
  std::string career_reserved_1;
  std::int32_t hundreds = 0;      ///< innings of 100 or more
  std::int32_t fifties = 0;       ///< innings of 50 to 99
  std::int32_t five_wickets = 0;  ///< matches with 5 wickets or more in the innings
  std::int32_t not_outs = 0;
  std::int32_t best_wickets = 0;  ///< best bowling
  std::int32_t best_runs = 0;
  std::int32_t high_score = 0;
  integer high_not_out;      ///< flag
  std::string high_against;  ///< opponent of the highest score
  std::string best_against;  ///< opponent of the best bowling
  std::array<std::uint8_t, 8> career_reserved_2{};
  std::string career_reserved_3;
  std::string career_reserved_4;
};

/// The careers of one team, a record of the career file.
struct career_team_rec {
  std::array<career_rec, player_limit + 1> players;  ///< places 1 to player_count
  std::string team_name;
  integer player_count;  ///< 0 to 20
};

/// The career file in memory.
struct career_table {
  int career_team_count = 0;                                                                 ///< 0 to 20
  std::vector<career_team_rec> teams = std::vector<career_team_rec>(career_team_limit + 1);  ///< 1 to the count
};

/// A line of the highest individual scores; a free one has no player.
struct top_score_rec {
  std::string player;
  integer runs;
  integer balls;  ///< faced
  std::string team;
  std::string against;
  std::string venue;
  integer not_out;  ///< flag

  bool operator==(const top_score_rec&) const = default;
};

/// A line of the best bowling figures; a free one has no player.
struct top_bowling_rec {
  std::string player;
  integer runs;   ///< conceded
  integer balls;  ///< bowled
  integer wickets;
  std::string team;
  std::string against;
  std::string venue;

  bool operator==(const top_bowling_rec&) const = default;
};

/// A line of the highest or the lowest totals; a free one has no team.
struct top_total_rec {
  integer total;  ///< 0 or, on the lowest list, 1000 on a free line
  integer balls;
  integer wickets;
  std::string team;
  std::string against;
  std::string venue;

  bool operator==(const top_total_rec&) const = default;
};

/// The record stand for one wicket; a free line has no batsman_a. Fields 1 to 7 as in fall_of_wicket_rec.
struct top_partnership_rec {
  integer score;
  std::string overs_text;
  integer partner_runs;
  integer partner_balls;
  integer balls;
  std::string batsman_a;
  std::string batsman_b;
  std::array<std::uint8_t, 4> partnership_reserved{};
  std::string team;
  std::string against;
  std::string venue;

  bool operator==(const top_partnership_rec&) const = default;
};

/// One team's row of the team table. A value keeps its tag until a match sets it.
struct team_table {
  tagged away_won;
  tagged away_tied;
  tagged away_lost;
  tagged home_won;
  tagged home_tied;
  tagged home_lost;
  tagged high_for;  ///< the team's highest total
  tagged high_for_against;
  tagged high_for_venue;
  tagged high_against;  ///< the highest total made against it
  tagged high_against_by;
  tagged high_against_venue;
  tagged low_for;  ///< its lowest total when all out; 1000 none yet
  tagged low_for_against;
  tagged low_for_venue;
  tagged low_against;  ///< the lowest all-out total against it; 1000 none yet
  tagged low_against_by;
  tagged low_against_venue;
  tagged team_name;
};

using top_score_list = std::array<top_score_rec, 16>;              // 1..15
using top_bowling_list = std::array<top_bowling_rec, 16>;          // 1..15
using top_total_list = std::array<top_total_rec, 16>;              // 1..15
using top_partnership_list = std::array<top_partnership_rec, 11>;  // 1..10, by wicket

/// The file of record lists and team table in memory.
struct record_lists {
  top_score_list top_scores;      ///< best first
  top_bowling_list top_bowling;   ///< best first
  top_total_list highest_totals;  ///< highest first
  top_total_list lowest_totals;   ///< lowest first
  top_partnership_list partnerships;
  int table_team_count = 0;                                                       ///< 0 to 25
  std::vector<team_table> teams = std::vector<team_table>(table_team_limit + 1);  ///< 1 to the count
};

/// The careers of the database in use, in the order in which the teams first played. A missing file is empty; while
/// files.updates is true it is created. Raises run_time_error: unreadable (file), more than 20 teams or players
/// (subscript), a text beyond its slot, an unknown tag or a count below 0 (type).
career_table read_career_table(const open_database& data);
/// Replaces the career file of the database in use by one with these careers; bytes that belong to no field stay.
/// Requires the lock of the folder. Raises run_time_error: a record beyond its slot (overflow), the file (file); the
/// old file is whole then.
void write_career_table(const open_database& data, const career_table& table);

/// The record lists and the team table of the database in use. Creates and raises likewise (25 teams; a count or total
/// that is no number: type).
record_lists read_record_lists(const open_database& data);
/// Replaces their file. Requires and raises as for the careers.
void write_record_lists(const open_database& data, const record_lists& lists);

/// The same for any file; nothing is created.
career_table read_career_table(const std::filesystem::path& career_file);
record_lists read_record_lists(const std::filesystem::path& record_file);

/// Careers and lists out of files in memory, and back into them. Raise as above, but for the file itself.
career_table careers_in(const slot_file& file);
record_lists records_in(const slot_file& file);
void put_careers(slot_file& file, const career_table& table);
void put_records(slot_file& file, const record_lists& lists);

}  // namespace velorin
