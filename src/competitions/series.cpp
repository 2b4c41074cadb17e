// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/series.h"

#include <utility>

#include "competitions/next_match.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "setup/match_steps.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

void show_results(match_state& match, front_end& user, series_record& series) {
  series_results_form form(match, series);
  form.open();
  user.show(form);
}

void enter_next(const match_play& play, series_record& series) {
  const coming_match coming = *next_match(series);
  series.ground_before = std::move(series.drawn_ground);
  series.match_no = coming.number;
  series.drawn_ground = draw_ground(play.chance, series.grounds);
  enter_match(play, coming.sides->front(), coming.sides->back(), series.drawn_ground);
  play.match.occasion = occasion_of(coming);
  series.step = series_step::match;
}

void book_match(match_state& match, series_record& series) {
  series.series_winner[series.match_no] = match.result_winner;
  series.series_margin[series.match_no] = match.result_margin;
  series.series_ground[series.match_no] = match.result_ground;
  match.result_winner.clear();
  match.result_margin.clear();
  match.result_ground.clear();
  series.series_over = !next_match(series);
  series.before = {};
}

/// False if the user leaves the match before any is over.
bool play_entered(const match_play& play, series_record& series) {
  if (resume_match(play)) {
    book_match(play.match, series);
  } else {
    series.match_no -= 1;
    series.drawn_ground = std::move(series.ground_before);
    if (series.match_no == 0) return false;
  }
  series.step = series_step::results;
  return true;
}

/// False if the user leaves the match before any is over.
bool take_step(const match_play& play, series_record& series) {
  switch (series.step) {
    case series_step::entering:
      enter_next(play, series);
      break;
    case series_step::match:
      return play_entered(play, series);
    case series_step::results:
      show_results(play.match, play.user, series);
      series.step = next_match(series) ? series_step::entering : series_step::over;
      break;
    case series_step::over:
      break;
  }
  return true;
}

std::string ordinal(int i) {
  const char* ending = i == 1 ? "st" : i == 2 ? "nd" : i == 3 ? "rd" : "th";
  return number_text(i) + ending;
}

std::string standing(const series_record& series, const std::string& team, int won, int lost) {
  const char* words = series.series_over ? " wins the series " : " leads the series ";
  return team + words + number_text(won) + " - " + number_text(lost);
}

}  // namespace

bool resume_series(const match_play& play, series_record& series) {
  try {
    while (series.step != series_step::over) {
      if (take_step(play, series)) continue;
      series_standing before = std::move(series.before);
      series = {};
      static_cast<series_standing&>(series) = std::move(before);
      return false;
    }
  } catch (const run_time_error&) {
    series.step = series_step::over;
    throw;
  }
  return true;
}

void series_form::open() {
  teams = list_teams(play_.data);
  home_team_index = teams.size() > 1 ? 1 : -1;
  away_team_index = teams.size() > 2 ? 2 : -1;
  rebuild_grounds();
}

void series_form::rebuild_grounds() {
  grounds = list_grounds(play_.data, {entry_text(teams, home_team_index)});
  ground_index = grounds.size() > 1 ? 1 : -1;
}

void series_form::choose_home(int index) {
  home_team_index = index;
  rebuild_grounds();
}

void series_form::choose_away(int index) {
  away_team_index = index;
  rebuild_grounds();
}

void series_form::set_matches(int value) { typed_matches = number_text(value); }

void series_form::accept() {
  const int matches = typed_number(typed_matches, most_series_matches, "Text1");
  play_.user.game_begins({.kind = game_kind::series,
                          .teams = {entered_team_of(teams, home_team_index, !computer_captains_home),
                                    entered_team_of(teams, away_team_index, !computer_captains_away)},
                          .ground = {},
                          .number = matches,
                          .hosts = {}});
  play_.chance.reseed();
  series_standing before = std::move(series_);
  series_ = {};
  series_.before = std::move(before);
  series_.home = {entry_text(teams, home_team_index), !computer_captains_home};
  series_.away = {entry_text(teams, away_team_index), !computer_captains_away};
  series_.grounds = grounds;
  series_.matches = matches;
  series_.step = series_step::entering;
  closed = resume_series(play_, series_);
}

void series_results_form::open() {
  team_a = series_.home.team;
  team_b = series_.away.team;
  heading = team_a + " vs " + team_b + " Series Result:";
  for (int i = 1; !series_.series_winner[i].empty(); ++i) {
    const std::string& winner = series_.series_winner[i];
    rows.push_back({ordinal(i) + " ODI - " + series_.series_ground[i], winner + series_.series_margin[i]});
    if (winner == team_a) {
      ++won_a;
    } else if (winner == team_b) {
      ++won_b;
    }
  }
  if (won_a > won_b) {
    standing_line = standing(series_, team_a, won_a, won_b);
  } else if (won_b > won_a) {
    standing_line = standing(series_, team_b, won_b, won_a);
  } else {
    standing_line = "The series is tied " + number_text(won_a) + " - " + number_text(won_b);
  }
}

void series_results_form::accept() {
  if (series_.series_over) {
    for (int i = 1; i <= most_series_matches; ++i) {
      series_.series_ground[i].clear();
      series_.series_winner[i].clear();
      series_.series_margin[i].clear();
    }
    match_.result_ground.clear();
    match_.result_winner.clear();
    match_.result_margin.clear();
    series_.series_over = false;
  }
  closed = true;
}

}  // namespace velorin
