// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/tri_series.h"

#include <utility>

#include "competitions/next_match.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "setup/match_steps.h"
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

/// The next match; its ground is drawn.
coming_match take_next(random_source& chance, tri_record& tri) {
  coming_match coming = *next_match(tri);
  tri.ground_before = std::exchange(tri.drawn_ground, draw_ground(chance, tri.grounds));
  return coming;
}

void enter_next(const match_play& play, tri_record& tri) {
  const coming_match coming = take_next(play.chance, tri);
  enter_match(play, coming.sides->front(), coming.sides->back(), tri.drawn_ground);
  play.match.occasion = occasion_of(coming);
  tri.step = tri_step::match;
}

void book_match(const match_state& match, tri_record& tri) {
  const coming_match played = *next_match(tri);
  if (played.stage == match_stage::tri_league) {
    const auto& [one, other] = *played.sides;
    book_league_match(match, &tri.tri_table[1], tri_teams, one.team, other.team);
    tri.matches_played += 1;
  } else {
    tri.tri_table[3].note = match.result_winner + " " + match.result_margin;
    tri.final_played = true;
  }
  tri.before = {};
}

/// False if the user leaves the match before any is over.
bool play_entered(const match_play& play, tri_record& tri) {
  if (resume_match(play)) {
    book_match(play.match, tri);
  } else {
    tri.drawn_ground = std::move(tri.ground_before);
    if (tri.matches_played == 0) return false;
  }
  tri.step = tri_step::table;
  return true;
}

void end_series(tri_record& tri) {
  tri.tri_table = {};
  tri.step = tri_step::over;
}

/// False if the user leaves the match before any is over.
bool take_step(const match_play& play, tri_record& tri) {
  switch (tri.step) {
    case tri_step::entering:
      enter_next(play, tri);
      break;
    case tri_step::match:
      return play_entered(play, tri);
    case tri_step::table:
      show_table(play.match, play.user, tri);
      if (next_match(tri)) {
        tri.step = tri_step::entering;
      } else {
        end_series(tri);
      }
      break;
    case tri_step::over:
      break;
  }
  return true;
}

}  // namespace

bool resume_tri_series(const match_play& play, tri_record& tri) {
  try {
    while (tri.step != tri_step::over) {
      if (take_step(play, tri)) continue;
      tri_standing before = std::move(tri.before);
      tri = {};
      static_cast<tri_standing&>(tri) = std::move(before);
      return false;
    }
  } catch (const run_time_error&) {
    tri.step = tri_step::over;
    throw;
  }
  return true;
}

void finish_tri_series(match_state& match, random_source& chance, tri_record& tri, const match_maker& play) {
  for (;;) {
    if (tri.step == tri_step::match) {
      book_match(match, tri);
      tri.step = tri_step::table;
    }
    // Opening the table names the finalists.
    if (tri.step == tri_step::table) tri_series_table_form(tri).open();
    if (tri.step == tri_step::over || !next_match(tri)) break;
    const coming_match coming = take_next(chance, tri);
    clear_result(match);
    play(coming.sides->front(), coming.sides->back(), tri.drawn_ground);
    tri.step = tri_step::match;
  }
  tri.step = tri_step::over;
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
  entered_game entered{.kind = game_kind::tri_series, .teams = {}, .ground = {}, .number = rounds, .hosts = {}};
  for (std::size_t i = 0; i < tri_teams; ++i) {
    entered.teams.push_back(entered_team_of(teams, team_index[i], !computer_captains[i]));
  }
  play_.user.game_begins(entered);
  play_.chance.reseed();
  tri_standing before = std::move(tri_);
  tri_ = {};
  tri_.before = std::move(before);
  for (int i = 1; i <= tri_teams; ++i) {
    tri_.sides[i] = {entry_text(teams, team_index[i - 1]), !computer_captains[i - 1]};
    tri_.tri_table[i].team = tri_.sides[i].team;
  }
  tri_.grounds = grounds;
  tri_.rounds = rounds;
  tri_.step = tri_step::entering;
  closed = resume_tri_series(play_, tri_);
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
