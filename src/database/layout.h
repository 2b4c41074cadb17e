// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <type_traits>

#include "database/lasting_records.h"

// The layout of each record on disk, once: visit_fields() calls visit(name, field) for the fields in their order in the
// slot. The reader, the writer, the checker and the dumper all walk these lists. Fields follow one another without a
// gap from the first byte of the slot:
//
//   integer        2 bytes, signed        std::string     2 bytes length, then its characters
//   std::int32_t   4 bytes, signed        tagged          2 bytes tag, then the value
//   float          4 bytes, IEEE 754      array of uint8  its bytes
//   array of records: elements 1 to the last, field by field
//
// All numbers are little-endian.

namespace velorin {

inline constexpr std::size_t team_slot = 1500;  ///< also of the ground file
inline constexpr std::size_t career_slot = 5500;
inline constexpr std::size_t records_slot = 2500;
inline constexpr std::size_t eleven_slot = 125;

inline constexpr long top_scores_record = 1;  ///< record of line 1 of each list
inline constexpr long top_bowling_record = 16;
inline constexpr long highest_totals_record = 31;
inline constexpr long lowest_totals_record = 46;
inline constexpr long partnerships_record = 61;
inline constexpr long table_count_record = 71;
inline constexpr long team_table_record = 72;  ///< field 0 of table team 1
inline constexpr long team_table_fields = 19;
/// The record of field 0 of a table team, by its place from 1.
constexpr long table_record(int team) { return team_table_record + (team - 1) * team_table_fields; }

template <typename R, typename Record>
concept record_of = std::same_as<std::remove_const_t<R>, Record>;

template <record_of<player_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("name", rec.name);
  visit("bat_skill", rec.bat_skill);
  visit("bowl_sr", rec.bowl_sr);
  visit("econ", rec.econ);
  visit("is_keeper", rec.is_keeper);
  visit("bat_type", rec.bat_type);
  visit("bowler_type", rec.bowler_type);
  visit("reserved_1", rec.reserved[0]);
  visit("reserved_2", rec.reserved[1]);
  visit("reserved_3", rec.reserved[2]);
  visit("reserved_4", rec.reserved[3]);
  visit("reserved_5", rec.reserved[4]);
  visit("reserved_6", rec.reserved[5]);
  if constexpr (!std::is_const_v<R>) rec.reserved.settle();
}

template <record_of<team_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("team_name", rec.team_name);
  visit("team_flag", rec.team_flag);
  visit("squad", rec.squad);
}

template <record_of<ground_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("country", rec.country);
  visit("ground_name", rec.ground_name);
  visit("ground_reserved_1", rec.reserved[0]);
  visit("ground_reserved_2", rec.reserved[1]);
  visit("ground_reserved_3", rec.reserved[2]);
  visit("pitch_bounce", rec.pitch_bounce);
  visit("pitch_surface", rec.pitch_surface);
  visit("start_time", rec.start_time);
}

template <record_of<career_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("name", rec.name);
  visit("matches", rec.matches);
  visit("innings", rec.innings);
  visit("runs", rec.runs);
  visit("balls_faced", rec.balls_faced);
  visit("fours", rec.fours);
  visit("sixes", rec.sixes);
  visit("twos", rec.twos);
  visit("threes", rec.threes);
  visit("singles", rec.singles);
  visit("dots", rec.dots);
  visit("wickets", rec.wickets);
  visit("catches", rec.catches);
  visit("stumpings", rec.stumpings);
  visit("balls_bowled", rec.balls_bowled);
  visit("maidens", rec.maidens);
  visit("runs_given", rec.runs_given);
  visit("career_reserved_1", rec.career_reserved_1);
  visit("hundreds", rec.hundreds);
  visit("fifties", rec.fifties);
  visit("five_wickets", rec.five_wickets);
  visit("not_outs", rec.not_outs);
  visit("best_wickets", rec.best_wickets);
  visit("best_runs", rec.best_runs);
  visit("high_score", rec.high_score);
  visit("high_not_out", rec.high_not_out);
  visit("high_against", rec.high_against);
  visit("best_against", rec.best_against);
  visit("career_reserved_2", rec.career_reserved_2);
  visit("career_reserved_3", rec.career_reserved_3);
  visit("career_reserved_4", rec.career_reserved_4);
}

template <record_of<career_team_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("players", rec.players);
  visit("team_name", rec.team_name);
  visit("player_count", rec.player_count);
}

template <record_of<top_score_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("player", rec.player);
  visit("runs", rec.runs);
  visit("balls", rec.balls);
  visit("team", rec.team);
  visit("against", rec.against);
  visit("venue", rec.venue);
  visit("not_out", rec.not_out);
}

template <record_of<top_bowling_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("player", rec.player);
  visit("runs", rec.runs);
  visit("balls", rec.balls);
  visit("wickets", rec.wickets);
  visit("team", rec.team);
  visit("against", rec.against);
  visit("venue", rec.venue);
}

template <record_of<top_total_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("total", rec.total);
  visit("balls", rec.balls);
  visit("wickets", rec.wickets);
  visit("team", rec.team);
  visit("against", rec.against);
  visit("venue", rec.venue);
}

template <record_of<top_partnership_rec> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  visit("score", rec.score);
  visit("overs_text", rec.overs_text);
  visit("partner_runs", rec.partner_runs);
  visit("partner_balls", rec.partner_balls);
  visit("balls", rec.balls);
  visit("batsman_a", rec.batsman_a);
  visit("batsman_b", rec.batsman_b);
  visit("partnership_reserved", rec.partnership_reserved);
  visit("team", rec.team);
  visit("against", rec.against);
  visit("venue", rec.venue);
}

/// The team table stands apart: each of its fields has a record of its own. The first argument tells what the field's
/// value must convert to.
enum class table_value { number, text };

template <record_of<team_table> R, typename Visitor>
void visit_fields(R& rec, Visitor&& visit) {
  using enum table_value;
  visit(number, "away_won", rec.away_won);
  visit(number, "away_tied", rec.away_tied);
  visit(number, "away_lost", rec.away_lost);
  visit(number, "home_won", rec.home_won);
  visit(number, "home_tied", rec.home_tied);
  visit(number, "home_lost", rec.home_lost);
  visit(number, "high_for", rec.high_for);
  visit(text, "high_for_against", rec.high_for_against);
  visit(text, "high_for_venue", rec.high_for_venue);
  visit(number, "high_against", rec.high_against);
  visit(text, "high_against_by", rec.high_against_by);
  visit(text, "high_against_venue", rec.high_against_venue);
  visit(number, "low_for", rec.low_for);
  visit(text, "low_for_against", rec.low_for_against);
  visit(text, "low_for_venue", rec.low_for_venue);
  visit(number, "low_against", rec.low_against);
  visit(text, "low_against_by", rec.low_against_by);
  visit(text, "low_against_venue", rec.low_against_venue);
  visit(text, "team_name", rec.team_name);
}

}  // namespace velorin
