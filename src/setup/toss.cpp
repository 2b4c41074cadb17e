// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/toss.h"

#include <utility>

#include "captain/computer_captain.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/elevens_in_play.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

void toss_unattended(const match_play& play) {
  toss_form form(play);
  form.deciding_line = play.match.team1_name;
  form.other_line = play.match.team2_name;
  play.chance.reseed();
  if (coin(play.chance) == 1) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
}

/// False if the user leaves the match.
bool hold_toss(const match_play& play) {
  if (!play.match.human_involved()) {
    toss_unattended(play);
    return true;
  }
  toss_form form(play);
  if (play.match.computer_bats) {
    play.chance.reseed();
    const char* call = coin(play.chance) == 1 ? " have taken Heads" : " have taken Tails";
    play.user.show(message_box{"The toss", play.match.team1_name + call});
    form.open_decided();
  } else {
    form.open();
  }
  play.user.show(form);
  return !form.left;
}

}  // namespace

void toss_form::open() {
  static_cast<toss_fields&>(*this) = {};
  headline = play_.match.team1_name + " to call...";
}

void toss_form::open_decided() {
  static_cast<toss_fields&>(*this) = {};
  toss_outcome outcome = decide_toss(play_.match, play_.chance);
  headline = std::move(outcome.headline);
  deciding_line = std::move(outcome.deciding_line);
  other_line = std::move(outcome.other_line);
  bat_enabled = outcome.bat_enabled;
  bowl_enabled = outcome.bowl_enabled;
  coin_visible = false;
}

void toss_form::call_coin(int) {
  play_.chance.reseed();
  const bool first_wins = coin(play_.chance) == 1;
  const bool second_decides = !first_wins && !play_.match.computer_bowls;
  headline = (first_wins ? play_.match.team1_name : play_.match.team2_name) + " have won the toss";
  deciding_line = second_decides ? play_.match.team2_name : play_.match.team1_name;
  other_line = second_decides ? play_.match.team1_name : play_.match.team2_name;
  if (first_wins || second_decides) {
    headline += ".";
  } else if (coin(play_.chance) == 1) {
    headline += " and have elected to field first.";
    bowl_enabled = false;
  } else {
    headline += " and have elected to bat first.";
    bat_enabled = false;
  }
  coin_visible = false;
}

void toss_form::choose_to_bat() {
  if (other_line == play_.match.team1_name) swap_teams(play_);
  closed = true;
}

void toss_form::choose_to_bowl() {
  if (deciding_line == play_.match.team1_name) swap_teams(play_);
  closed = true;
}

void swap_teams(const match_play& play) {
  exchange_elevens(play);
  std::swap(play.match.team1_name, play.match.team2_name);
  std::swap(play.match.computer_bats, play.match.computer_bowls);
}

bool toss_and_play(const match_play& play) {
  if (!hold_toss(play)) return false;
  take_elevens(play.match, play.data);
  open_console(play);
  if (play.match.console_open && play.match.human_involved()) {
    console_form console(play);
    play.user.show(console);
  }
  play.match.console_open = false;
  return true;
}

}  // namespace velorin
