// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "competitions/wc_fix.h"
#include "competitions/wcsstab.h"
#include "competitions/world_cup.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

world_cup_record world_cup;

namespace {

std::vector<league_texts> sorted_group(const wc_group& group) {
  league_table5 table = group_table(group);
  sort_league(table, 5, [](int) {});
  std::vector<league_texts> rows;
  for (int place = 1; place <= 5; ++place) rows.push_back(shown_row(table[place]));
  return rows;
}

std::string pairing(const wc_knockout& tie) {
  if (tie.team_a.empty()) return {};
  return tie.team_a + " vs " + tie.team_b + " - " + tie.winner + " " + tie.margin;
}

}  // namespace

std::string standing_cup() {
  if (world_cup.wc_group_a[1].team.empty()) return {};
  return "The tallies and results of the World Cup before stand, and this one adds to them.";
}

void start_cup_afresh() { world_cup = {}; }

league_table5 group_table(const wc_group& group) {
  league_table5 table;
  for (int place = 1; place <= 5; ++place) {
    league_row& row = table[place];
    row.team = group[place].team;
    for (int other = 1; other <= 5; ++other) {
      add_row(row, group[place].versus[other]);
    }
  }
  return table;
}

void wcsstab::open() {
  group_a = sorted_group(world_cup.wc_group_a);
  group_b = sorted_group(world_cup.wc_group_b);
  super_six.clear();
  if (!world_cup.wc_super_six[1].team.empty()) {
    league_table6 table = world_cup.wc_super_six;
    sort_league(table, 6, [](int) {});
    for (int place = 1; place <= 6; ++place) super_six.push_back(shown_row(table[place]));
  }
  label1_22 = pairing(world_cup.wc_semi[1]);
  label1_23 = pairing(world_cup.wc_semi[2]);
  label1_24 = pairing(world_cup.wc_final);
  label8 = "World Cup winners : " + world_cup.wc_final.winner;
}

wc_fix::row wc_fix::row_of(int place) const {
  row shown;
  if (place > fixtures) return shown;
  const wc_fixture& fixture = world_cup.wc_fixtures[place];
  shown.label6 = "Gr " + fixture.stage + " Mt " + number_text(int(fixture.match_no));
  shown.label1 = fixture.team_a;
  shown.label8 = "vs";
  shown.label2 = fixture.team_b;
  shown.label7 = "@";
  shown.label3 = fixture.venue;
  shown.label4 = fixture.result;
  shown.is_next = place == next_fixture;
  return shown;
}

void wc_fix::open() {
  fixtures = 0;
  while (fixtures < 50 && !world_cup.wc_fixtures[fixtures + 1].team_a.empty()) ++fixtures;
  next_fixture = 0;
  for (int place = fixtures; place >= 1; --place) {
    if (world_cup.wc_fixtures[place].result.empty()) next_fixture = place;
  }
  scroll_maximum = std::max(1, fixtures - 9);
  vscroll_change(1);
  if (next_fixture >= 11 && next_fixture != 21 && next_fixture != 30) vscroll_change(next_fixture - 9);
}

void wc_fix::vscroll_change(int value) {
  scroll = std::clamp(value, 1, scroll_maximum);
  for (int line = 0; line < 10; ++line) rows[line] = row_of(scroll + line);
}

void wc_fix::command2_click() {
  wcsstab form;
  form.open();
  user().show(form);
}

void wc_fix::command3_click() {
  world_cup.quit_requested = true;
  closed = true;
}

}  // namespace velorin
