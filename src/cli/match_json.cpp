// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_json.h"

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "console/console_view.h"
#include "model/code_page.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/stands.h"
#include "model/texts.h"

namespace velorin::cli {

namespace {

json text(const std::string& bytes) { return to_utf8(bytes); }
json number(int value) { return value; }

template <class List>
json texts(const List& list) {
  json array = json::array();
  for (const auto& line : list) array.push_back(to_utf8(line));
  return array;
}

/// The text of an object, written member by member, so that never more than one of them stands as a value.
class object_text {
 public:
  void add(const char* name, const json& value) {
    text_ += text_.empty() ? '{' : ',';
    text_.append(1, '"').append(name).append("\":").append(value.dump());
  }
  std::string closed() && { return std::move(text_) + '}'; }

 private:
  std::string text_;
};

/// The entries from 1 up to the first empty one.
json filled(std::span<const std::string> list) {
  json array = json::array();
  for (std::size_t i = 1; i < list.size() && !list[i].empty(); ++i) array.push_back(text(list[i]));
  return array;
}

json man_json(const player_rec& man) {
  return {{"name", text(man.name)},
          {"bat_skill", number(man.bat_skill)},
          {"bowl_sr", shown_value(man.bowl_sr)},
          {"econ", shown_value(man.econ)},
          {"is_keeper", man.is_keeper != 0},
          {"bat_type", text(man.bat_type)},
          {"bowler_type", text(man.bowler_type)}};
}

json batting_json(const batting_card_rec& card) {
  return {{"name", text(card.name)},       {"runs", number(card.runs)},       {"balls", number(card.balls)},
          {"fours", number(card.fours)},   {"sixes", number(card.sixes)},     {"twos", number(card.twos)},
          {"threes", number(card.threes)}, {"singles", number(card.singles)}, {"dots", number(card.dots)},
          {"how_out", text(card.how_out)}, {"fielder", text(card.fielder)}};
}

json bowling_json(const bowling_card_rec& card) {
  return {{"name", text(card.name)},
          {"balls", number(card.balls)},
          {"maidens", number(card.maidens)},
          {"runs", number(card.runs)},
          {"wickets", number(card.wickets)}};
}

json fall_json(const fall_of_wicket_rec& fall) {
  return {{"score", number(fall.score)},
          {"overs_text", text(fall.overs_text)},
          {"partner_runs", number(fall.partner_runs)},
          {"partner_balls", number(fall.partner_balls)},
          {"balls", number(fall.balls)},
          {"batsman_a", text(fall.batsman_a)},
          {"batsman_b", text(fall.batsman_b)}};
}

json pool_json(const bowler_pool_rec& man) {
  return {{"name", text(man.name)},
          {"rating", man.rating},
          {"position", number(man.position)},
          {"econ_class", number(man.econ_class)},
          {"bowler_type", text(man.bowler_type)}};
}

/// The entries of a table from `first` on, each as `as` writes it.
template <class Table, class Writer>
json rows(const Table& table, std::size_t first, Writer as) {
  json array = json::array();
  for (std::size_t i = first; i < table.size(); ++i) array.push_back(as(table[i]));
  return array;
}

/// Fifty overs: the entries of six balls, and the bowler's name once the over has come to its end.
json log_json(const told_innings& innings) {
  const innings_log log = log_of(innings.deliveries);
  json overs = json::array();
  for (int over = 1; over <= overs_of_innings; ++over) {
    json slots = json::array();
    for (int ball = 1; ball <= balls_of_over; ++ball) slots.push_back(log[over].balls[ball].text());
    const auto balls = deliveries_of_over(innings.deliveries, over);
    const bool closed = !balls.empty() && over <= innings.overs_closed;
    slots.push_back(closed ? text(innings.bowling[balls.front().bowler].name) : json(""));
    overs.push_back(std::move(slots));
  }
  return overs;
}

void add_position(const match_state& match, object_text& state) {
  state.add("team1_name", text(match.team1_name));
  state.add("team2_name", text(match.team2_name));
  state.add("computer_bats", match.computer_bats);
  state.add("computer_bowls", match.computer_bowls);
  state.add("over_no", number(match.over_no));
  state.add("bowler", number(match.bowler));
  state.add("next_bowler", number(match.next_bowler));
  state.add("striker", number(match.striker));
  state.add("non_striker", number(match.non_striker));
  state.add("next_batsman_slot", number(match.next_batsman_slot));
  state.add("maiden_flag", match.maiden_flag);
  state.add("clock_minutes", number(match.clock_minutes));
  state.add("score_runs", match.score_runs);
  state.add("score_wickets", match.score_wickets);
  state.add("overs_text", match.overs_text());
  state.add("over_symbols", texts(over_symbols(match)));
}

void add_totals(const match_state& match, object_text& state) {
  state.add("innings_total", number(match.innings_total));
  state.add("innings_balls", number(match.innings_balls));
  state.add("innings_wickets", number(match.innings_wickets));
  state.add("innings_no_balls", number(match.innings_no_balls));
  state.add("innings_wides", number(match.innings_wides));
  state.add("innings_byes", number(match.innings_byes));
  state.add("innings_leg_byes", number(match.innings_leg_byes));
  state.add("first_total", number(match.first_total));
  state.add("first_balls", number(match.first_balls));
  state.add("first_wickets", number(match.first_wickets));
  state.add("first_no_balls", number(match.first_no_balls));
  state.add("first_wides", number(match.first_wides));
  state.add("first_byes", number(match.first_byes));
  state.add("first_leg_byes", number(match.first_leg_byes));
}

void add_books(const match_state& match, object_text& state) {
  state.add("batting_xi", rows(match.batting_xi, 1, man_json));
  state.add("bowling_xi", rows(match.bowling_xi, 1, man_json));
  state.add("batting_card", rows(match.batting_card, 1, batting_json));
  state.add("first_batting_card", rows(match.first_batting_card, 1, batting_json));
  state.add("bowling_card", rows(match.bowling_card, 1, bowling_json));
  state.add("first_bowling_card", rows(match.first_bowling_card, 1, bowling_json));
  state.add("fall_of_wicket", rows(falls_in_play(match), 0, fall_json));
  state.add("first_fall_of_wicket", rows(falls_before(match), 0, fall_json));
  state.add("ball_log", log_json(innings_in_play(match)));
  state.add("first_ball_log", log_json(innings_before(match)));
  state.add("ball_commentary", texts(commentary_lines(match)));
  state.add("commentary_store", texts(stored_commentary_lines(match)));
}

void add_achievements(const match_state& match, object_text& state) {
  state.add("fifty_list", filled(match.fifty_list));
  state.add("hundred_list", filled(match.hundred_list));
  state.add("century_and_half_list", filled(match.century_and_half_list));
  state.add("double_century_list", filled(match.double_century_list));
  state.add("five_wicket_list", filled(match.five_wicket_list));
  state.add("stand50_list", filled(match.stand50_list));
  state.add("stand100_list", filled(match.stand100_list));
  state.add("stand150_list", filled(match.stand150_list));
  state.add("stand200_list", filled(match.stand200_list));
  state.add("stand250_list", filled(match.stand250_list));
  state.add("stand300_list", filled(match.stand300_list));
}

void add_console(const match_state& match, object_text& state) {
  state.add("weather", number(match.weather));
  state.add("pitch_surface", number(match.ground.pitch_surface));
  state.add("pitch_bounce", number(match.ground.pitch_bounce));
  state.add("outfield", number(match.outfield));
  state.add("venue_name", text(match.venue_name()));
  state.add("start_time", match.ground.start_time);
  state.add("batsman_aggression", match.batsman_aggression);
  state.add("bowling_aggression", match.bowling_aggression);
  state.add("settled_meter", match.settled_meter);
  state.add("first_innings_projection", match.first_innings_projection.text());
  state.add("bowler_pool", rows(match.bowler_pool, 1, pool_json));
  state.add("opening_bowlers", {number(match.opening_bowlers[0]), number(match.opening_bowlers[1])});
  json names = json::array();
  for (const bowler_line& line : view_bowler_list(match)) names.push_back(text(line.name));
  state.add("bowler_list", names);
}

json rate_json(const rate_entry& entry) { return {{"team", text(entry.team)}, {"delta", entry.delta}}; }

}  // namespace

std::string state_text(const match_state& match) {
  object_text state;
  add_position(match, state);
  add_totals(match, state);
  add_books(match, state);
  add_achievements(match, state);
  add_console(match, state);
  return std::move(state).closed();
}

json result_json(const match_result& result) {
  return {{"result_ground", text(result.result_ground)}, {"result_winner", text(result.result_winner)},
          {"result_loser", text(result.result_loser)},   {"result_margin", text(result.result_margin)},
          {"rate_first", rate_json(result.rate_first)},  {"rate_second", rate_json(result.rate_second)}};
}

}  // namespace velorin::cli
