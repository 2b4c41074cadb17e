// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/world_cup_form.h"

#include <algorithm>
#include <utility>

#include "competitions/next_match.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

void show_tables(front_end& user, world_cup_record& world_cup) {
  world_cup_tables_form form(world_cup);
  form.open();
  user.show(form);
}

void show_fixtures(front_end& user, world_cup_record& world_cup) {
  world_cup_fixtures_form form(user, world_cup);
  form.open();
  user.show(form);
}

int place_of(const cup_group& group, const std::string& name) {
  int place = 0;
  for (int i = 1; i <= cup_group_teams; ++i) {
    if (group[i].team == name) place = i;
  }
  if (place != 0) return place;
  throw run_time_error(failure::subscript, "Subscript out of range: no such team in the group",
                       {.file = {}, .record = 0, .field = "team", .player = name});
}

league_row& cell_against(cup_group_team& team, const std::string& name) {
  int place = 0;
  for (int i = 1; i <= cup_group_teams; ++i) {
    if (team.versus[i].team == name) place = i;
  }
  if (place != 0) return team.versus[place];
  throw run_time_error(failure::subscript, "Subscript out of range: no such opponent in the group",
                       {.file = {}, .record = 0, .field = "versus", .player = name});
}

bool run_group_match(const match_play& play, cup_group& group, const entered_side& first, const entered_side& second,
                     const std::string& venue) {
  if (!enter_match(play, first, second, venue)) return false;
  cup_group_team& a = group[place_of(group, first.team)];
  cup_group_team& b = group[place_of(group, second.team)];
  league_row& cell_a = cell_against(a, second.team);
  league_row& cell_b = cell_against(b, first.team);
  book_played(cell_a, first.team);
  book_played(cell_b, second.team);
  book_outcome(play.match, cell_a, cell_b, first.team, second.team);
  const bool a_first = play.match.rate_first.team == a.team;
  cell_a.net_run_rate += a_first ? play.match.rate_first.delta : play.match.rate_second.delta;
  cell_b.net_run_rate += a_first ? play.match.rate_second.delta : play.match.rate_first.delta;
  return true;
}

/// After a match of the list: its result, then the tables and the list. One that the user has left is still to be
/// played, and the list alone is shown.
void close_fixture(match_state& match, front_end& user, world_cup_record& world_cup, int place, bool played) {
  if (!played) {
    show_fixtures(user, world_cup);
    return;
  }
  cup_fixture& fixture = world_cup.fixtures[place];
  fixture.result = match.result_winner.empty() ? "Match Tied" : match.result_winner + " " + match.result_margin;
  clear_result(match);
  world_cup.next_match = place + 1;
  show_tables(user, world_cup);
  show_fixtures(user, world_cup);
}

/// Plays the fixture that comes next.
void play_fixture(const match_play& play, world_cup_record& world_cup) {
  const coming_match coming = *next_match(world_cup);
  const auto& [first, second] = *coming.sides;
  auto* run = run_super_six_match;
  if (coming.stage == match_stage::cup_groups) {
    run = world_cup.fixtures[coming.number].stage == "A" ? run_group_a_match : run_group_b_match;
  }
  close_fixture(play.match, play.user, world_cup, coming.number, run(play, world_cup, first, second, *coming.ground));
}

void pair_semifinals(world_cup_record& world_cup) {
  sort_super_six(world_cup.super_six, world_cup.super_six_human);
  for (int i = 1; i <= cup_semi_finals; ++i) {
    const auto [a, b] = semi_final_sides(world_cup.super_six, world_cup.super_six_human, i);
    cup_knockout& semi = world_cup.semi_finals[i];
    semi.team_a = a.team;
    semi.team_b = b.team;
    semi.human_a = a.human;
    semi.human_b = b.human;
  }
}

/// False if the user leaves the match.
bool play_knockout(const match_play& play, world_cup_record& world_cup, cup_knockout& tie) {
  clear_result(play.match);
  const std::string venue = draw_ground(play.chance, world_cup.grounds);
  if (!enter_match(play, {tie.team_a, tie.human_a}, {tie.team_b, tie.human_b}, venue)) return false;
  tie.winner = play.match.result_winner;
  tie.margin = play.match.result_margin;
  clear_result(play.match);
  return true;
}

/// Ends the tournament if the user has asked for it, and clears his request.
bool quits(world_cup_record& world_cup) { return std::exchange(world_cup.quit_requested, false); }

/// Plays a tie, 1 to 3 of the knock-out. While the user leaves it, it is still to be played: the tables from which it
/// was entered, before the first tie the list, are shown again, and the list, where he may quit. False if he does.
bool play_tie(const match_play& play, world_cup_record& world_cup, int number, cup_knockout& tie) {
  world_cup.next_match = number;
  while (!play_knockout(play, world_cup, tie)) {
    world_cup.next_match = number - 1;
    if (number > 1) show_tables(play.user, world_cup);
    show_fixtures(play.user, world_cup);
    if (quits(world_cup)) return false;
    world_cup.next_match = number;
  }
  return true;
}

/// The stages from the first showing of the fixture list on. True if the form is to close: the user has quit.
bool play_stages(const match_play& play, world_cup_record& world_cup) {
  if (quits(world_cup)) return true;
  world_cup.stage = cup_stage::group_matches;
  for (world_cup.next_match = 1; world_cup.next_match <= cup_group_matches;) {
    play_fixture(play, world_cup);
    if (quits(world_cup)) return true;
  }
  world_cup.stage = cup_stage::super_six_draw;
  build_super_six(world_cup);
  show_tables(play.user, world_cup);
  draw_super_six_fixtures(play.chance, world_cup);
  show_fixtures(play.user, world_cup);
  if (quits(world_cup)) return true;
  world_cup.stage = cup_stage::super_six_matches;
  for (world_cup.next_match = cup_first_super_six; world_cup.next_match <= cup_last_fixture;) {
    play_fixture(play, world_cup);
    // Here the request stays set and the form loaded: the next tournament will end at its first list.
    if (world_cup.quit_requested) return false;
  }
  world_cup.stage = cup_stage::knock_out;
  pair_semifinals(world_cup);
  return !run_semifinal(play, world_cup);
}

}  // namespace

bool run_group_a_match(const match_play& play, world_cup_record& world_cup, const entered_side& first,
                       const entered_side& second, const std::string& venue) {
  return run_group_match(play, world_cup.group_a, first, second, venue);
}

bool run_group_b_match(const match_play& play, world_cup_record& world_cup, const entered_side& first,
                       const entered_side& second, const std::string& venue) {
  return run_group_match(play, world_cup.group_b, first, second, venue);
}

bool run_super_six_match(const match_play& play, world_cup_record& world_cup, const entered_side& first,
                         const entered_side& second, const std::string& venue) {
  if (!enter_match(play, first, second, venue)) return false;
  book_league_match(play.match, &world_cup.super_six[1], cup_super_six_places, first.team, second.team);
  return true;
}

bool run_semifinal(const match_play& play, world_cup_record& world_cup) {
  for (int number = 1; number <= cup_semi_finals; ++number) {
    if (!play_tie(play, world_cup, number, world_cup.semi_finals[number])) return false;
    show_tables(play.user, world_cup);
  }
  const auto [one, other] = final_sides(world_cup);
  cup_knockout final = {one.team, other.team, {}, {}, one.human, other.human};
  if (!play_tie(play, world_cup, cup_knock_outs, final)) return false;
  world_cup.grand_final = final;
  show_tables(play.user, world_cup);
  return true;
}

void world_cup_form::show_again() {
  const std::vector<team_entry> now = list_teams(play_.data);
  const auto same = [](const team_entry& a, const team_entry& b) { return a.name == b.name; };
  const bool loaded = !closed && !teams.empty();
  if (loaded && std::equal(teams.begin(), teams.end(), now.begin(), now.end(), same)) {
    hidden = false;
    return;
  }
  static_cast<world_cup_fields&>(*this) = {};
  open();
}

bool world_cup_form::ready() const {
  const auto chosen = [](int index) { return index >= 0; };
  return std::all_of(group_a_index.begin(), group_a_index.end(), chosen) &&
         std::all_of(group_b_index.begin(), group_b_index.end(), chosen);
}

std::vector<std::string> world_cup_form::hosts() const {
  std::vector<std::string> names;
  for (const int index : host_index) names.push_back(entry_text(teams, index));
  return names;
}

void world_cup_form::open() {
  teams = list_teams(play_.data);
  if (teams.size() < 2 * cup_group_teams) {
    play_.user.show(message_box{"Error", "Not enough teams in current database to play the World cup"});
    closed = true;
    return;
  }
  for (int i = 0; i < cup_group_teams; ++i) {
    group_a_index[i] = i;
    group_b_index[i] = i + cup_group_teams;
  }
  host_index = {0, -1, -1};
}

void world_cup_form::accept() {
  play_.chance.reseed();
  world_cup_.grounds = list_grounds(play_.data, hosts());
  for (std::size_t i = 0; i < cup_group_teams; ++i) {
    world_cup_.chosen_a[i] = entry_text(teams, group_a_index[i]);
    world_cup_.chosen_b[i] = entry_text(teams, group_b_index[i]);
  }
  world_cup_.human_a = human_a;
  world_cup_.human_b = human_b;
  hidden = true;
  world_cup_.stage = cup_stage::drawn;
  world_cup_.next_match = 0;
  draw_group_fixtures(play_.chance, world_cup_);
  show_fixtures(play_.user, world_cup_);
  closed = play_stages(play_, world_cup_);
  world_cup_.stage = cup_stage::over;
}

}  // namespace velorin
