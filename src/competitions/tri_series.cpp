// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/tri_series.h"

#include <utility>

#include "competitions/next_match.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/texts.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

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

void show_table(match_state& match, front_end& user, tri_record& tri) {
  clear_result(match);
  tri_series_table_form form(tri);
  form.open();
  user.show(form);
}

/// Enters the next match. False if the user leaves it.
bool enter_on_drawn_ground(const match_play& play, tri_record& tri, const entered_side& first,
                           const entered_side& second) {
  std::string ground_before = std::exchange(tri.drawn_ground, draw_ground(play.chance, tri.grounds));
  if (enter_match(play, first, second, tri.drawn_ground)) return true;
  tri.drawn_ground = std::move(ground_before);
  return false;
}

/// Plays the match that comes next. False if the user leaves it: it is still to be played.
bool play_match(const match_play& play, tri_record& tri, const coming_match& coming) {
  const auto& [one, other] = *coming.sides;
  if (coming.stage == match_stage::tri_league) {
    if (!run_tri_match(play, tri, one.team, other.team, one.human, other.human)) return false;
    tri.matches_played += 1;
  } else {
    if (!enter_on_drawn_ground(play, tri, one, other)) return false;
    tri.tri_table[3].note = play.match.result_winner + " " + play.match.result_margin;
    tri.final_played = true;
  }
  return true;
}

}  // namespace

bool run_tri_match(const match_play& play, tri_record& tri, const std::string& first_team,
                   const std::string& second_team, bool first_human, bool second_human) {
  if (!enter_on_drawn_ground(play, tri, {first_team, first_human}, {second_team, second_human})) return false;
  book_league_match(play.match, &tri.tri_table[1], tri_teams, first_team, second_team);
  return true;
}

void tri_series_form::open() {
  teams = list_teams(play_.data);
  for (int box = 0; box < tri_teams; ++box) team_index[box] = static_cast<int>(teams.size()) > box + 1 ? box + 1 : -1;
  rebuild_grounds();
}

void tri_series_form::rebuild_grounds() {
  grounds = list_grounds(play_.data, {entry_text(teams, team_index[0])});
  ground_index = grounds.size() > 1 ? 1 : -1;
}

void tri_series_form::choose_team(int box, int index) {
  team_index[box] = index;
  rebuild_grounds();
}

void tri_series_form::set_rounds(int value) { typed_rounds = number_text(value); }

void tri_series_form::accept() {
  const int rounds = typed_number(typed_rounds, most_tri_rounds, "Text1");
  play_.chance.reseed();
  const tri_record before = tri_;
  tri_ = tri_record();
  for (int i = 1; i <= tri_teams; ++i) {
    tri_.sides[i] = {entry_text(teams, team_index[i - 1]), !computer_captains[i - 1]};
    tri_.tri_table[i].team = tri_.sides[i].team;
  }
  tri_.grounds = grounds;
  tri_.rounds = rounds;
  while (const auto coming = next_match(tri_)) {
    if (!play_match(play_, tri_, *coming) && tri_.matches_played == 0) {
      tri_ = before;
      return;
    }
    show_table(play_.match, play_.user, tri_);
  }
  tri_.tri_table = {};
  closed = true;
}

void tri_series_table_form::open() {
  std::array<league_row, tri_teams + 1> table = tri_.tri_table;
  sort_league(table, tri_teams, [](int) {});
  for (int i = 1; i <= tri_teams; ++i) rows[i - 1] = shown_row(table[i]);
  title = sponsor_of(tri_.tri_table[1].team) + " Tri Series";
  heading = title + " - Table";
  tri_.tri_table[1].note = table[1].team;
  tri_.tri_table[2].note = table[2].team;
  final_line = "Final (from above table) - " + table[1].team + " vs " + table[2].team;
  final_result = tri_.tri_table[3].note;
}

}  // namespace velorin
