// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/toss.h"

#include <utility>

#include "captain/computer_captain.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/elevens_in_play.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

void toss_unattended() {
  toss_form form;
  form.deciding_line = match.team1_name;
  form.other_line = match.team2_name;
  reseed();
  if (coin() == 1) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
}

/// False if the user leaves the match.
bool hold_toss() {
  if (!match.human_involved()) {
    toss_unattended();
    return true;
  }
  toss_form form;
  if (match.computer_bats) {
    reseed();
    const char* call = coin() == 1 ? " have taken Heads" : " have taken Tails";
    user().show(message_box{"The toss", match.team1_name + call});
    form.open_decided();
  } else {
    form.open();
  }
  user().show(form);
  return !form.left;
}

}  // namespace

void toss_form::open() {
  *this = toss_form();
  headline = match.team1_name + " to call...";
}

void toss_form::open_decided() {
  *this = toss_form();
  toss_outcome outcome = decide_toss();
  headline = std::move(outcome.headline);
  deciding_line = std::move(outcome.deciding_line);
  other_line = std::move(outcome.other_line);
  bat_enabled = outcome.bat_enabled;
  bowl_enabled = outcome.bowl_enabled;
  coin_visible = false;
}

void toss_form::call_coin(int) {
  reseed();
  const bool first_wins = coin() == 1;
  const bool second_decides = !first_wins && !match.computer_bowls;
  headline = (first_wins ? match.team1_name : match.team2_name) + " have won the toss";
  deciding_line = second_decides ? match.team2_name : match.team1_name;
  other_line = second_decides ? match.team1_name : match.team2_name;
  if (first_wins || second_decides) {
    headline += ".";
  } else if (coin() == 1) {
    headline += " and have elected to field first.";
    bowl_enabled = false;
  } else {
    headline += " and have elected to bat first.";
    bat_enabled = false;
  }
  coin_visible = false;
}

void toss_form::choose_to_bat() {
  if (other_line == match.team1_name) swap_teams();
  closed = true;
}

void toss_form::choose_to_bowl() {
  if (deciding_line == match.team1_name) swap_teams();
  closed = true;
}

void swap_teams() {
  exchange_elevens();
  std::swap(match.team1_name, match.team2_name);
  std::swap(match.computer_bats, match.computer_bowls);
}

bool toss_and_play() {
  if (!hold_toss()) return false;
  take_elevens();
  open_console();
  if (match.console_open && match.human_involved()) {
    console_form console;
    user().show(console);
  }
  match.console_open = false;
  return true;
}

}  // namespace velorin
