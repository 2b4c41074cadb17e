// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_profile.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "ui/front_end.h"

namespace velorin {

bool console_form::closed() const { return !play_.match.console_open; }

void console_form::bowl_next_over() { next_over(play_); }

void console_form::show_scorecard() { play_.user.open(report::scorecard); }

void console_form::change_bowler() {
  if (play_.match.computer_bowls) return;
  bowler_choice_form form(play_.match, bowler_choice_form::use::change, "Change Bowler");
  play_.user.show(form);
}

void console_form::change_batsman_aggression(int slot) {
  if (play_.match.computer_bats) return;
  aggression_form form = aggression_form::of_batsman(play_.match, slot);
  play_.user.show(form);
}

void console_form::change_bowler_aggression(int slot) {
  if (play_.match.computer_bowls) return;
  aggression_form form = aggression_form::of_bowler(play_.match, slot);
  play_.user.show(form);
}

void console_form::show_worm() { play_.user.open(report::worm_graph); }

void console_form::show_bowler_profile() {
  show_profile(play_.user, play_.data, play_.match.team2_name, play_.match.bowling_card[play_.match.bowler].name);
}

void console_form::show_lower_batsman_profile() {
  show_profile(play_.user, play_.data, play_.match.team1_name,
               play_.match.batting_card[play_.match.lower_batsman()].name);
}

void console_form::show_next_bowler_profile() {
  show_profile(play_.user, play_.data, play_.match.team2_name, play_.match.bowling_card[play_.match.next_bowler].name);
}

void console_form::show_higher_batsman_profile() {
  show_profile(play_.user, play_.data, play_.match.team1_name,
               play_.match.batting_card[play_.match.higher_batsman()].name);
}

void console_form::show_overs_graph() { play_.user.open(report::overs_graph); }

void console_form::browse_over(int over) {
  if (over < 1 || over > play_.match.browser_maximum) return;
  play_.match.browsed_over = over;
  for (int slot = 1; slot <= balls_of_over; ++slot)
    play_.match.over_symbols[slot - 1] = play_.match.ball_log[over][slot];
}

}  // namespace velorin
