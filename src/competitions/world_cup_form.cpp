// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/world_cup_form.h"

#include <algorithm>

#include "competitions/next_match.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "setup/match_steps.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

void show_tables(front_end& user, const world_cup_record& world_cup) {
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

/// The match that is to be entered, its ground known.
coming_match take_next(match_state& match, random_source& chance, world_cup_record& world_cup) {
  coming_match coming = *next_match(world_cup);
  if (world_cup.stage == cup_stage::knock_out) {
    world_cup.next_match += 1;
    clear_result(match);
    coming.ground = draw_ground(chance, world_cup.grounds);
  }
  return coming;
}

void enter_next(const match_play& play, world_cup_record& world_cup) {
  const coming_match coming = take_next(play.match, play.chance, world_cup);
  enter_match(play, coming.sides->front(), coming.sides->back(), *coming.ground);
  play.match.occasion = occasion_of(coming);
  world_cup.step = cup_step::match;
}

/// Books the fixture just played, with its result.
void book_fixture(match_state& match, world_cup_record& world_cup) {
  cup_fixture& fixture = world_cup.fixtures[world_cup.next_match];
  if (world_cup.stage == cup_stage::super_six_matches) {
    book_league_match(match, &world_cup.super_six[1], cup_super_six_places, fixture.team_a, fixture.team_b);
  } else {
    book_group_match(match, fixture.stage == "A" ? world_cup.group_a : world_cup.group_b, fixture.team_a,
                     fixture.team_b);
  }
  fixture.result = match.result_winner.empty() ? "Match Tied" : match.result_winner + " " + match.result_margin;
  clear_result(match);
  world_cup.next_match += 1;
}

/// Books the tie just played.
void book_tie(match_state& match, world_cup_record& world_cup) {
  const bool is_final = world_cup.next_match == cup_knock_outs;
  if (is_final) {
    const auto [one, other] = final_sides(world_cup);
    world_cup.grand_final = {one.team, other.team, {}, {}, one.human, other.human};
  }
  cup_knockout& tie = is_final ? world_cup.grand_final : world_cup.semi_finals[world_cup.next_match];
  tie.winner = match.result_winner;
  tie.margin = match.result_margin;
  clear_result(match);
}

void book_match(match_state& match, world_cup_record& world_cup) {
  if (world_cup.stage == cup_stage::knock_out) {
    book_tie(match, world_cup);
  } else {
    book_fixture(match, world_cup);
  }
  world_cup.step = cup_step::tables;
}

/// A match of the list that the user leaves is followed by the list alone; a tie by the tables from which it was
/// entered, before the first tie by the list.
void play_entered(const match_play& play, world_cup_record& world_cup) {
  const bool played = resume_match(play);
  if (played) return book_match(play.match, world_cup);
  const bool is_tie = world_cup.stage == cup_stage::knock_out;
  if (is_tie) world_cup.next_match -= 1;
  world_cup.step = is_tie && world_cup.next_match > 0 ? cup_step::tables_again : cup_step::list;
}

void leave_tables(random_source& chance, world_cup_record& world_cup) {
  if (world_cup.stage == cup_stage::knock_out && world_cup.step == cup_step::tables) {
    world_cup.step = world_cup.next_match < cup_knock_outs ? cup_step::entering : cup_step::none;
    return;
  }
  if (world_cup.stage == cup_stage::super_six_draw) draw_super_six_fixtures(chance, world_cup);
  world_cup.step = cup_step::list;
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

/// From the list to the match that comes next, into the next stage where this one is over.
void go_on_from_list(world_cup_record& world_cup) {
  world_cup.step = cup_step::entering;
  switch (world_cup.stage) {
    case cup_stage::drawn:
      world_cup.stage = cup_stage::group_matches;
      world_cup.next_match = 1;
      break;
    case cup_stage::group_matches:
      if (world_cup.next_match <= cup_group_matches) break;
      world_cup.stage = cup_stage::super_six_draw;
      build_super_six(world_cup);
      world_cup.step = cup_step::tables;
      break;
    case cup_stage::super_six_draw:
      world_cup.stage = cup_stage::super_six_matches;
      world_cup.next_match = cup_first_super_six;
      break;
    case cup_stage::super_six_matches:
      if (world_cup.next_match <= cup_last_fixture) break;
      world_cup.stage = cup_stage::knock_out;
      world_cup.next_match = 0;
      pair_semifinals(world_cup);
      break;
    case cup_stage::knock_out:
    case cup_stage::over:
      break;
  }
}

/// True if the user quits the tournament, and his request is cleared.
bool leave_list(world_cup_record& world_cup) {
  if (!world_cup.quit_requested) {
    go_on_from_list(world_cup);
    return false;
  }
  world_cup.step = cup_step::none;
  // Here the request stays set and the form loaded: the next tournament will end at its first list.
  if (world_cup.stage == cup_stage::super_six_matches) return false;
  world_cup.quit_requested = false;
  return true;
}

/// True if the user quits.
bool take_step(const match_play& play, world_cup_record& world_cup) {
  switch (world_cup.step) {
    case cup_step::entering:
      enter_next(play, world_cup);
      break;
    case cup_step::match:
      play_entered(play, world_cup);
      break;
    case cup_step::tables:
    case cup_step::tables_again:
      show_tables(play.user, world_cup);
      leave_tables(play.chance, world_cup);
      break;
    case cup_step::list:
      show_fixtures(play.user, world_cup);
      return leave_list(world_cup);
    case cup_step::none:
      break;
  }
  return false;
}

}  // namespace

bool resume_world_cup(const match_play& play, world_cup_record& world_cup) {
  bool quit = false;
  try {
    while (world_cup.step != cup_step::none) quit = take_step(play, world_cup);
  } catch (const run_time_error&) {
    world_cup.step = cup_step::none;
    throw;
  }
  world_cup.stage = cup_stage::over;
  return quit;
}

void finish_world_cup(match_state& match, random_source& chance, world_cup_record& world_cup, const match_maker& play) {
  while (world_cup.step != cup_step::none) {
    switch (world_cup.step) {
      case cup_step::entering: {
        const coming_match coming = take_next(match, chance, world_cup);
        static_cast<match_result&>(match) = {};
        play(coming.sides->front(), coming.sides->back(), *coming.ground);
        world_cup.step = cup_step::match;
        break;
      }
      case cup_step::match:
        book_match(match, world_cup);
        break;
      case cup_step::tables:
      case cup_step::tables_again:
        leave_tables(chance, world_cup);
        break;
      case cup_step::list:
        go_on_from_list(world_cup);
        break;
      case cup_step::none:
        break;
    }
  }
  world_cup.stage = cup_stage::over;
}

void book_group_match(const match_state& match, cup_group& group, const std::string& first, const std::string& second) {
  cup_group_team& a = group[place_of(group, first)];
  cup_group_team& b = group[place_of(group, second)];
  league_row& cell_a = cell_against(a, second);
  league_row& cell_b = cell_against(b, first);
  book_played(cell_a, first);
  book_played(cell_b, second);
  book_outcome(match, cell_a, cell_b, first, second);
  const bool a_first = match.rate_first.team == a.team;
  cell_a.net_run_rate += a_first ? match.rate_first.delta : match.rate_second.delta;
  cell_b.net_run_rate += a_first ? match.rate_second.delta : match.rate_first.delta;
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
    play_.user.show(message_box{"Error", too_few_teams});
    closed = true;
    return;
  }
  for (int i = 0; i < cup_group_teams; ++i) {
    group_a_index[i] = i;
    group_b_index[i] = i + cup_group_teams;
  }
  host_index = {0, -1, -1};
}

void world_cup_form::begin() {
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
  world_cup_.step = cup_step::list;
}

entered_game world_cup_form::entered() const {
  entered_game entered{.kind = game_kind::world_cup, .teams = {}, .ground = {}, .number = 0, .hosts = hosts()};
  for (std::size_t i = 0; i < cup_group_teams; ++i) {
    entered.teams.push_back(entered_team_of(teams, group_a_index[i], human_a[i]));
  }
  for (std::size_t i = 0; i < cup_group_teams; ++i) {
    entered.teams.push_back(entered_team_of(teams, group_b_index[i], human_b[i]));
  }
  return entered;
}

void world_cup_form::accept() {
  play_.user.game_begins(entered());
  begin();
  closed = resume_world_cup(play_, world_cup_);
}

}  // namespace velorin
