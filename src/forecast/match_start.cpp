// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/match_start.h"

#include <cstddef>
#include <utility>

#include "engine/over_play.h"

namespace velorin {

namespace {

bool is_tossing(const match_state& match) {
  return match.step == match_step::toss_call || match.step == match_step::toss;
}

/// The men without their names, which no rule reads.
eleven without_names(eleven men) {
  for (player_rec& man : men) {
    man.name.clear();
    man.reserved = {};
  }
  return men;
}

match_sides sides_of(const eleven& batting, const eleven& bowling) {
  match_sides sides;
  sides.batting_xi = without_names(batting);
  sides.bowling_xi = without_names(bowling);
  return sides;
}

card_figures figures_of(const batting_card_table& card) {
  card_figures figures;
  for (std::size_t i = 1; i < card.size(); ++i) {
    figures.runs[i] = card[i].runs;
    figures.balls[i] = card[i].balls;
  }
  return figures;
}

card_figures figures_of(const bowling_card_table& card) {
  card_figures figures;
  for (std::size_t i = 1; i < card.size(); ++i) {
    figures.runs[i] = card[i].runs;
    figures.balls[i] = card[i].balls;
    figures.wickets[i] = card[i].wickets;
  }
  return figures;
}

/// What tells of what has happened is passed over: the step that comes after.
play_step step_behind_messages(play_step step) {
  switch (step) {
    case play_step::opening_bowlers_named:
      return play_step::openers;
    case play_step::over_told:
      return play_step::over_begins;
    case play_step::wicket_told:
      return play_step::next_batsman;
    case play_step::innings_end_told:
      return play_step::innings_over;
    case play_step::innings_card_shown:
      return play_step::innings_changes;
    case play_step::milestones:
    case play_step::milestone_told:
      return play_step::ball_over;
    case play_step::change_told:
      return play_step::bowler_reviewed;
    case play_step::match_end_told:
    case play_step::match_card_shown:
    case play_step::last_stand:
    case play_step::match_saved:
    case play_step::match_closed:
      return play_step::match_reported;
    default:
      return step;
  }
}

void take_play(match_start& start, const match_state& match) {
  start.sides[0] = sides_of(match.batting_xi, match.bowling_xi);
  start.position = match;
  start.place = match;
  start.place.next_step = step_behind_messages(match.next_step);
  start.place.attended = start.place.update_added = false;
  start.place.announcements.clear();
  start.totals = match;
  start.cards = {figures_of(match.batting_card), figures_of(match.bowling_card), figures_of(match.first_batting_card),
                 figures_of(match.first_bowling_card)};
  start.deliveries = match.deliveries;
  start.known_aggressions = match;
  start.pool = match;
  for (bowler_pool_rec& man : start.pool.bowler_pool) man.name.clear();
  start.console = match;
}

void hand_over(match_state& match) {
  set_captain(match, match_side::batting, true);
  set_captain(match, match_side::bowling, true);
}

}  // namespace

bool can_be_forecast(const match_state& match) {
  return match.next_step != play_step::closed || match.step == match_step::play || is_tossing(match);
}

match_start start_before_toss(const std::string& first, const std::string& second, const eleven& first_men,
                              const eleven& second_men, const match_conditions& conditions) {
  match_start start;
  start.first = first;
  start.second = second;
  start.sides = {sides_of(first_men, second_men), sides_of(second_men, first_men)};
  start.toss_open = start.to_begin = true;
  start.conditions = conditions;
  return start;
}

match_start with_toss_decided(const match_start& before_toss, forecast_side bats) {
  match_start start = before_toss;
  start.toss_open = false;
  start.batting_first = bats;
  if (bats == forecast_side::second) std::swap(start.sides[0], start.sides[1]);
  return start;
}

match_start start_at(const match_state& match) {
  if (match.next_step == play_step::closed && is_tossing(match)) {
    // A captain who has won the toss has yet to decide: the computer in his place tosses a coin.
    match_start start = start_before_toss(match.team1_name, match.team2_name, match.selected[0], match.selected[1],
                                          static_cast<const match_conditions&>(match));
    start.unattended = !match.human_involved();
    const toss_screen& toss = match.toss;
    const bool decided = match.human_involved() && match.step == match_step::toss && !toss.coin_visible &&
                         toss.bat_enabled != toss.bowl_enabled;
    if (!decided) return start;
    const bool first_decided = toss.deciding_line == match.team1_name;
    return with_toss_decided(start, first_decided == toss.bat_enabled ? forecast_side::first : forecast_side::second);
  }
  match_start start;
  start.conditions = match;
  if (match.next_step == play_step::closed) {
    start.first = match.team1_name;
    start.second = match.team2_name;
    start.sides[0] = sides_of(match.batting_xi, match.bowling_xi);
    start.to_begin = true;
    start.unattended = !match.human_involved();
    return start;
  }
  const bool first_bats = match.innings_number % 2 == 1;
  start.first = first_bats ? match.team1_name : match.team2_name;
  start.second = first_bats ? match.team2_name : match.team1_name;
  start.unattended = !match.attended;
  match_state led = match;
  hand_over(led);
  take_play(start, led);
  return start;
}

}  // namespace velorin
