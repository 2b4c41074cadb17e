// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/toss.h"

#include <utility>

#include "captain/aicomp.h"
#include "engine/driver.h"
#include "model/random.h"
#include "model/teams.h"
#include "setup/elevens_in_play.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

void toss_unattended() {
  toss form;
  form.label2 = match.team1_name;
  form.label3 = match.team2_name;
  reseed();
  if (coin() == 1) {
    form.command2_click();
  } else {
    form.command3_click();
  }
}

/// False if the user leaves the match.
bool hold_toss() {
  if (!match.human_involved()) {
    toss_unattended();
    return true;
  }
  toss form;
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

void toss::open() {
  *this = toss();
  label1 = match.team1_name + " to call...";
}

void toss::open_decided() {
  *this = toss();
  toss_outcome outcome = decide_toss();
  label1 = std::move(outcome.headline);
  label2 = std::move(outcome.deciding_line);
  label3 = std::move(outcome.other_line);
  command2_enabled = outcome.bat_enabled;
  command3_enabled = outcome.bowl_enabled;
  coin_visible = false;
}

void toss::command1_click(int) {
  reseed();
  const bool first_wins = coin() == 1;
  const bool second_decides = !first_wins && !match.computer_bowls;
  label1 = (first_wins ? match.team1_name : match.team2_name) + " have won the toss";
  label2 = second_decides ? match.team2_name : match.team1_name;
  label3 = second_decides ? match.team1_name : match.team2_name;
  if (first_wins || second_decides) {
    label1 += ".";
  } else if (coin() == 1) {
    label1 += " and have elected to field first.";
    command3_enabled = false;
  } else {
    label1 += " and have elected to bat first.";
    command2_enabled = false;
  }
  coin_visible = false;
}

void toss::command2_click() {
  if (label3 == match.team1_name) swap_teams();
  closed = true;
}

void toss::command3_click() {
  if (label2 == match.team1_name) swap_teams();
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
    main_console console;
    user().show(console);
  }
  match.console_open = false;
  return true;
}

}  // namespace velorin
