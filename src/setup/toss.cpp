// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/toss.h"

#include <utility>

#include "captain/computer_captain.h"
#include "model/captain_answer.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/elevens_in_play.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

void toss_form::open() {
  static_cast<toss_fields&>(*this) = {};
  headline = play_.match.team1_name + " to call...";
  play_.match.toss = *this;
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
  play_.match.toss = *this;
}

void toss_form::open_unattended() {
  static_cast<toss_fields&>(*this) = {};
  deciding_line = play_.match.team1_name;
  other_line = play_.match.team2_name;
  bat_enabled = draw_unattended_toss(play_.chance);
  bowl_enabled = !bat_enabled;
  coin_visible = false;
  play_.match.toss = *this;
}

void toss_form::open_again() {
  static_cast<toss_fields&>(*this) = {};
  static_cast<toss_screen&>(*this) = play_.match.toss;
}

void toss_form::call_coin(int index) {
  play_.user.answered({answer_kind::toss_call, static_cast<std::uint32_t>(index)});
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
  play_.match.toss = *this;
}

void toss_form::choose_to_bat() {
  if (play_.match.human_involved()) play_.user.answered({answer_kind::toss_bat});
  if (other_line == play_.match.team1_name) swap_teams(play_);
  closed = true;
}

void toss_form::choose_to_bowl() {
  if (play_.match.human_involved()) play_.user.answered({answer_kind::toss_bowl});
  if (deciding_line == play_.match.team1_name) swap_teams(play_);
  closed = true;
}

bool draw_unattended_toss(random_source& chance) {
  chance.reseed();
  return coin(chance) == 1;
}

void swap_teams(const match_play& play) {
  exchange_elevens(play);
  std::swap(play.match.team1_name, play.match.team2_name);
  std::swap(play.match.computer_bats, play.match.computer_bowls);
}

void begin_toss(const match_play& play) {
  toss_form form(play);
  if (!play.match.human_involved()) {
    form.open_unattended();
  } else if (play.match.computer_bats) {
    play.chance.reseed();
    play.match.toss_call = play.match.team1_name + (coin(play.chance) == 1 ? " have taken Heads" : " have taken Tails");
    play.match.step = match_step::toss_call;
    return;
  } else {
    form.open();
  }
  play.match.step = match_step::toss;
}

void go_on_to_toss(const match_play& play) {
  toss_form(play).open_decided();
  play.match.step = match_step::toss;
}

bool hold_toss(const match_play& play) {
  toss_form form(play);
  form.open_again();
  if (play.match.human_involved()) {
    play.user.show(form);
    if (form.left) return false;
  } else if (form.bat_enabled) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
  take_elevens(play.match, play.data);
  play.match.console_open = false;
  play.match.step = match_step::play;
  return true;
}

}  // namespace velorin
