// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_profile.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "ui/front_end.h"

namespace velorin {

bool console_form::closed() const { return !match.console_open; }

void console_form::bowl_next_over() { next_over(); }

void console_form::show_scorecard() { user().open(report::scorecard); }

void console_form::change_bowler() {
  if (match.computer_bowls) return;
  bowler_choice_form form(bowler_choice_form::use::change, "Change Bowler");
  user().show(form);
}

void console_form::change_batsman_aggression(int slot) {
  if (match.computer_bats) return;
  aggression_form form = aggression_form::of_batsman(slot);
  user().show(form);
}

void console_form::change_bowler_aggression(int slot) {
  if (match.computer_bowls) return;
  aggression_form form = aggression_form::of_bowler(slot);
  user().show(form);
}

void console_form::show_worm() { user().open(report::worm_graph); }

void console_form::show_bowler_profile() { show_profile(match.team2_name, match.bowling_card[match.bowler].name); }

void console_form::show_lower_batsman_profile() {
  show_profile(match.team1_name, match.batting_card[match.lower_batsman()].name);
}

void console_form::show_next_bowler_profile() {
  show_profile(match.team2_name, match.bowling_card[match.next_bowler].name);
}

void console_form::show_higher_batsman_profile() {
  show_profile(match.team1_name, match.batting_card[match.higher_batsman()].name);
}

void console_form::show_overs_graph() { user().open(report::overs_graph); }

void console_form::browse_over(int over) {
  if (over < 1 || over > match.browser_maximum) return;
  match.browsed_over = over;
  for (int slot = 1; slot <= balls_of_over; ++slot) match.over_symbols[slot - 1] = match.ball_log[over][slot];
}

}  // namespace velorin
