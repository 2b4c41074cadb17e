// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_profile.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/captain_answer.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

/// As an answer holds it. Requires no negative number.
std::uint32_t number_of(int value) { return static_cast<std::uint32_t>(value); }

}  // namespace

bool console_form::closed() const { return !play_.match.console_open; }

void console_form::bowl_ball_on_record() {
  match_state& match = play_.match;
  const bool awaited = match.next_step == play_step::between_overs || match.next_step == play_step::ball_bowled;
  if (match.practice && awaited) history_.note(match, play_.chance);
  bowl_next_ball(play_);
  if (match.next_step == play_step::closed) history_.clear(play_.chance);
}

void console_form::bowl_ball() {
  play_.user.about_to_bowl(*this);
  play_.user.answered({answer_kind::next_ball});
  bowl_ball_on_record();
  play_.user.over_bowled();
}

void console_form::bowl_next_over() {
  play_.user.about_to_bowl(*this);
  play_.user.answered({has_over_in_play() ? answer_kind::go_on : answer_kind::next_over});
  if (play_.match.practice) {
    do bowl_ball_on_record();
    while (has_over_in_play());
  } else {
    next_over(play_);
  }
  play_.user.over_bowled();
}

void console_form::play_to(skip_target target) {
  if (play_.match.next_step == play_step::closed || !is_ahead(play_.match, target)) return;
  const skip on_way = skip_from(play_.match, target);
  stop_asked_ = false;
  do bowl_ball();
  while (!stop_asked_ && !is_reached(play_.match, on_way));
}

void console_form::stop() { stop_asked_ = true; }

bool console_form::has_over_in_play() const {
  return play_.match.next_step != play_step::between_overs && play_.match.next_step != play_step::closed;
}

bool console_form::can_take_back() const { return play_.match.practice && history_.can_take_back(); }

void console_form::take_back(taken_back how_far, luck wanted) {
  if (!can_take_back()) return;
  play_.user.answered(
      {answer_kind::take_back, number_of(static_cast<int>(how_far)), number_of(static_cast<int>(wanted))});
  history_.go_back(play_.match, play_.chance, how_far, wanted);
}

void console_form::show_scorecard() { play_.user.open(report::scorecard); }

void console_form::change_bowler() {
  if (play_.match.computer_bowls || has_over_in_play()) return;
  play_.user.answered({answer_kind::change_bowler});
  bowler_choice_form form(play_.match, bowler_choice_form::use::change, "Change Bowler");
  play_.user.show(form);
}

void console_form::change_batsman_aggression(int slot) {
  if (play_.match.computer_bats) return;
  play_.user.answered({answer_kind::change_batsman_aggression, number_of(slot)});
  aggression_form form = aggression_form::of_batsman(play_.match, slot);
  play_.user.show(form);
}

void console_form::change_bowler_aggression(int slot) {
  if (play_.match.computer_bowls) return;
  play_.user.answered({answer_kind::change_bowler_aggression, number_of(slot)});
  aggression_form form = aggression_form::of_bowler(play_.match, slot);
  play_.user.show(form);
}

void console_form::set_batsman_aggression(int slot, int level) {
  if (play_.match.computer_bats || level < least_aggression || level > most_aggression) return;
  play_.user.answered({answer_kind::set_batsman_aggression, number_of(slot), number_of(level)});
  aggression_form form = aggression_form::of_batsman(play_.match, slot);
  form.aggression = level;
  form.accept();
}

void console_form::set_bowler_aggression(int slot, int level) {
  if (play_.match.computer_bowls || level < least_aggression || level > most_aggression) return;
  play_.user.answered({answer_kind::set_bowler_aggression, number_of(slot), number_of(level)});
  aggression_form form = aggression_form::of_bowler(play_.match, slot);
  form.aggression = level;
  form.accept();
}

void console_form::choose_bowler(int position) {
  if (play_.match.computer_bowls || has_over_in_play() || position < 1 || position > men_in_eleven) return;
  if (play_.match.bowling_card[static_cast<std::size_t>(position)].balls >= balls_of_quota) return;
  play_.user.answered({answer_kind::choose_bowler, number_of(position)});
  bowler_choice_form form(play_.match, bowler_choice_form::use::change, "Change Bowler");
  form.choose(position);
  form.accept();
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

void console_form::show_profile_of_batsman(int position) {
  show_profile(play_.user, play_.data, play_.match.team1_name,
               play_.match.batting_xi[static_cast<std::size_t>(position)].name);
}

void console_form::show_profile_of_bowler(int position) {
  show_profile(play_.user, play_.data, play_.match.team2_name,
               play_.match.bowling_xi[static_cast<std::size_t>(position)].name);
}

void console_form::show_overs_graph() { play_.user.open(report::overs_graph); }

void console_form::browse_over(int over) {
  if (over < 1 || over > play_.match.browser_maximum) return;
  play_.user.answered({answer_kind::browse_over, number_of(over)});
  show_past_over(play_.match, over);
}

void show_past_over(match_state& match, int over) {
  if (over < 1 || over > match.browser_maximum) return;
  match.browsed_over = over;
  match.over_on_show = {over, false, false};
}

}  // namespace velorin
