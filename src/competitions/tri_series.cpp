// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/tri_series.h"

#include <utility>

#include "model/match_state.h"
#include "model/random.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

tri_record tri;

namespace {

/// The pairs of a round, by the teams' places.
constexpr std::array<std::pair<int, int>, 3> round_pairs = {{{1, 2}, {1, 3}, {2, 3}}};

/// Sponsors by the host's name.
constexpr std::array<std::pair<const char*, const char*>, 8> sponsors = {{{"Australia", "Orange"},
                                                                          {"England", "NatWest"},
                                                                          {"South Africa", "Standard Bank"},
                                                                          {"India", "Coco Cola"},
                                                                          {"West Indies", "Cable and Wireless"},
                                                                          {"Sri Lanka", "Singer"},
                                                                          {"Pakistan", "Pepsi"},
                                                                          {"New Zealand", "National Bank"}}};

std::string sponsor_of(const std::string& host) {
  for (const auto& [name, sponsor] : sponsors) {
    if (host == name) return sponsor;
  }
  return "Pepsi";
}

void show_table() {
  clear_result();
  tri_series_table_form form;
  form.open();
  user().show(form);
}

/// Enters the next match. False if the user leaves it.
bool enter_on_drawn_ground(const entered_side& first, const entered_side& second) {
  std::string ground_before = std::exchange(tri.drawn_ground, draw_ground(tri.grounds));
  if (enter_match(first, second, tri.drawn_ground)) return true;
  tri.drawn_ground = std::move(ground_before);
  return false;
}

/// False if the user leaves the match: it is still to be played.
bool play_league_match() {
  const auto [first, second] = round_pairs[static_cast<std::size_t>(tri.matches_played) % 3];
  const entered_side& one = tri.sides[first];
  const entered_side& other = tri.sides[second];
  if (!run_tri_match(one.team, other.team, one.human, other.human)) return false;
  tri.matches_played += 1;
  return true;
}

/// The finalist of this name, with the captain of the first team so called.
entered_side finalist(const std::string& name) {
  for (int i = 1; i <= 3; ++i) {
    if (tri.sides[i].team == name) return tri.sides[i];
  }
  return {name, false};
}

/// Likewise.
bool play_final() {
  const entered_side first = finalist(tri.tri_table[1].note);
  const entered_side second = finalist(tri.tri_table[2].note);
  if (!enter_on_drawn_ground(first, second)) return false;
  tri.tri_table[3].note = match.result_winner + " " + match.result_margin;
  tri.final_played = true;
  return true;
}

}  // namespace

bool run_tri_match(const std::string& first_team, const std::string& second_team, bool first_human, bool second_human) {
  if (!enter_on_drawn_ground({first_team, first_human}, {second_team, second_human})) return false;
  book_league_match(&tri.tri_table[1], 3, first_team, second_team);
  return true;
}

void tri_series_form::open() {
  teams = list_teams();
  for (int box = 0; box < 3; ++box) team_index[box] = static_cast<int>(teams.size()) > box + 1 ? box + 1 : -1;
  rebuild_grounds();
}

void tri_series_form::rebuild_grounds() {
  grounds = list_grounds({entry_text(teams, team_index[0])});
  ground_index = grounds.size() > 1 ? 1 : -1;
}

void tri_series_form::choose_team(int box, int index) {
  team_index[box] = index;
  rebuild_grounds();
}

void tri_series_form::set_rounds(int value) { typed_rounds = number_text(value); }

void tri_series_form::accept() {
  const int rounds = typed_number(typed_rounds, 5, "Text1");
  reseed();
  const tri_record before = tri;
  tri = tri_record();
  for (int i = 1; i <= 3; ++i) {
    tri.sides[i] = {entry_text(teams, team_index[i - 1]), !computer_captains[i - 1]};
    tri.tri_table[i].team = tri.sides[i].team;
  }
  tri.grounds = grounds;
  tri.rounds = rounds;
  while (!tri.final_played) {
    const bool played = tri.matches_played < 3 * tri.rounds ? play_league_match() : play_final();
    if (!played && tri.matches_played == 0) {
      tri = before;
      return;
    }
    show_table();
  }
  tri.tri_table = {};
  closed = true;
}

void tri_series_table_form::open() {
  std::array<league_row, 4> table = tri.tri_table;
  sort_league(table, 3, [](int) {});
  for (int i = 1; i <= 3; ++i) rows[i - 1] = shown_row(table[i]);
  title = sponsor_of(tri.tri_table[1].team) + " Tri Series";
  heading = title + " - Table";
  tri.tri_table[1].note = table[1].team;
  tri.tri_table[2].note = table[2].team;
  final_line = "Final (from above table) - " + table[1].team + " vs " + table[2].team;
  final_result = tri.tri_table[3].note;
}

}  // namespace velorin
