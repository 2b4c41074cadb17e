// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "competitions/world_cup.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

std::vector<league_texts> sorted_group(const cup_group& group) {
  group_league table = group_table(group);
  sort_league(table, cup_group_teams, [](int) {});
  std::vector<league_texts> rows;
  for (int place = 1; place <= cup_group_teams; ++place) rows.push_back(shown_row(table[place]));
  return rows;
}

std::string pairing(const cup_knockout& tie) {
  if (tie.team_a.empty()) return {};
  return tie.team_a + " vs " + tie.team_b + " - " + tie.winner + " " + tie.margin;
}

}  // namespace

std::string standing_cup(const world_cup_record& world_cup) {
  if (world_cup.group_a[1].team.empty()) return {};
  return "The tallies and results of the World Cup before stand, and this one adds to them.";
}

void start_cup_afresh(world_cup_record& world_cup) { world_cup = {}; }

group_league group_table(const cup_group& group) {
  group_league table;
  for (int place = 1; place <= cup_group_teams; ++place) {
    league_row& row = table[place];
    row.team = group[place].team;
    for (int other = 1; other <= cup_group_teams; ++other) {
      add_row(row, group[place].versus[other]);
    }
  }
  return table;
}

void world_cup_tables_form::open() {
  group_a = sorted_group(world_cup_.group_a);
  group_b = sorted_group(world_cup_.group_b);
  super_six.clear();
  if (!world_cup_.super_six[1].team.empty()) {
    super_six_league table = world_cup_.super_six;
    sort_league(table, cup_super_six_places, [](int) {});
    for (int place = 1; place <= cup_super_six_places; ++place) super_six.push_back(shown_row(table[place]));
  }
  first_semi_final = pairing(world_cup_.semi_finals[1]);
  second_semi_final = pairing(world_cup_.semi_finals[2]);
  grand_final = pairing(world_cup_.grand_final);
  winners_line = "World Cup winners : " + world_cup_.grand_final.winner;
}

world_cup_fixtures_form::row world_cup_fixtures_form::row_of(int place) const {
  row shown;
  if (place > fixtures) return shown;
  const cup_fixture& fixture = world_cup_.fixtures[place];
  shown.match_number = "Gr " + fixture.stage + " Mt " + number_text(int(fixture.match_no));
  shown.team_a = fixture.team_a;
  shown.versus = "vs";
  shown.team_b = fixture.team_b;
  shown.at = "@";
  shown.venue = fixture.venue;
  shown.result = fixture.result;
  shown.is_next = place == next_fixture;
  return shown;
}

void world_cup_fixtures_form::open() {
  fixtures = 0;
  while (fixtures < cup_fixture_places && !world_cup_.fixtures[fixtures + 1].team_a.empty()) ++fixtures;
  next_fixture = 0;
  for (int place = fixtures; place >= 1; --place) {
    if (world_cup_.fixtures[place].result.empty()) next_fixture = place;
  }
  scroll_maximum = std::max(1, fixtures - cup_list_rows + 1);
  scroll_to(1);
  // At the first of a stage the list stands at its top.
  if (next_fixture > cup_list_rows && next_fixture != cup_first_super_six && next_fixture != cup_last_fixture + 1) {
    scroll_to(next_fixture - cup_list_rows + 1);
  }
}

void world_cup_fixtures_form::scroll_to(int value) {
  scroll = std::clamp(value, 1, scroll_maximum);
  for (int line = 0; line < cup_list_rows; ++line) rows[line] = row_of(scroll + line);
}

void world_cup_fixtures_form::open_tables() {
  world_cup_tables_form form(world_cup_);
  form.open();
  user_.show(form);
}

void world_cup_fixtures_form::quit() {
  world_cup_.quit_requested = true;
  closed = true;
}

}  // namespace velorin
