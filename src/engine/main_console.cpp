// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/sqdet.h"
#include "console/captain_forms.h"
#include "engine/driver.h"
#include "model/rules.h"
#include "model/teams.h"
#include "ui/front_end.h"

namespace velorin {

bool main_console::closed() const { return !match.console_open; }

void main_console::command1_click() { next_over(); }

void main_console::command2_click() { user().open(report::scorecard); }

void main_console::command3_click() {
  if (match.computer_bowls) return;
  chgbowler form(chgbowler::use::change, "Change Bowler");
  user().show(form);
}

void main_console::command4_click(int slot) {
  if (match.computer_bats) return;
  aggr form = aggr::of_batsman(slot);
  user().show(form);
}

void main_console::command5_click(int slot) {
  if (match.computer_bowls) return;
  aggr form = aggr::of_bowler(slot);
  user().show(form);
}

void main_console::command6_click() { user().open(report::worms); }

void main_console::command7_click() { show_profile(match.team2_name, match.bowling_card[match.bowler].name); }

void main_console::command8_click() { show_profile(match.team1_name, match.batting_card[match.lower_batsman()].name); }

void main_console::command9_click() { show_profile(match.team2_name, match.bowling_card[match.next_bowler].name); }

void main_console::command10_click() {
  show_profile(match.team1_name, match.batting_card[match.higher_batsman()].name);
}

void main_console::command11_click() { user().open(report::graphs); }

void main_console::vscroll1_change(int over) {
  if (over < 1 || over > match.browser_maximum) return;
  match.browsed_over = over;
  for (int slot = 1; slot <= balls_of_over; ++slot) match.over_symbols[slot - 1] = match.ball_log[over][slot];
}

}  // namespace velorin
