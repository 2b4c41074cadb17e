// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/console_figures.h"

#include <algorithm>
#include <utility>

#include "model/booking.h"
#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// The sum of the numeric symbols of an over.
int over_runs(const match_state& match, int over) {
  int sum = 0;
  for (int slot = 1; slot <= balls_of_over; ++slot) {
    sum += std::max(0, symbol_number(match.ball_log[over][slot]));
  }
  return sum;
}

}  // namespace

double meter_of(const match_state& match, int position) {
  const batting_card_rec& card = match.batting_card[position];
  // In halves, which are whole numbers: five times the sum of twice his runs and half his balls.
  return std::min(2 * full_meter, 5 * (4 * card.runs + card.balls)) / 2.0;
}

void refresh_batsmen(match_state& match) {
  match.settled_meter[0] = meter_of(match, match.lower_batsman());
  match.settled_meter[1] = meter_of(match, match.higher_batsman());
}

void refresh_bowling_card(match_state& match) {
  auto row = match.bowler_list.begin() + 1;
  while (row != match.bowler_list.end() && row->position != 0 && row->position != match.bowler) ++row;
  if (row == match.bowler_list.end()) return;
  const bowling_card_rec& card = match.bowling_card[match.bowler];
  *row = {match.bowler, card.balls, card.maidens, card.runs, card.wickets};
}

void refresh_rates(match_state& match) {
  std::swap(match.bowling_aggression[0], match.bowling_aggression[1]);
  rate_figures& rates = match.rates;
  rates.score_runs = match.score_runs;
  rates.score_wickets = match.score_wickets;
  rates.innings_balls = match.innings_balls;
  rates.over_no = match.over_no;
  rates.of_innings_before = false;
  const int left = balls_of_innings - match.innings_balls;
  if (match.first_total != 0 && left > 0) {
    rates.required_rate = round_to((match.first_total + 1 - match.score_runs) * double{balls_of_over} / left, 2);
    rates.required_rate_shown = true;
  }
}

void log_over(match_state& match) {
  const int lower = match.lower_batsman();
  const int higher = match.higher_batsman();
  const bowling_card_rec& bowling = match.bowling_card[match.bowler];
  over_note note;
  note.over_no = match.over_no;
  note.over_runs = over_runs(match, match.over_no);
  note.score_runs = match.score_runs;
  note.score_wickets = match.score_wickets;
  note.innings_balls = match.innings_balls;
  note.first_batsman = lower;
  note.first_runs = match.batting_card[lower].runs;
  note.first_balls = match.batting_card[lower].balls;
  note.second_batsman = higher;
  note.second_runs = match.batting_card[higher].runs;
  note.second_balls = match.batting_card[higher].balls;
  note.bowler = match.bowler;
  note.bowler_balls = bowling.balls;
  note.bowler_maidens = bowling.maidens;
  note.bowler_runs = bowling.runs;
  note.bowler_wickets = bowling.wickets;
  match.ball_commentary.add_over(note);
}

void advance_clock(match_state& match) {
  book(match.clock_minutes, minutes_of_over, "clock_minutes", match.venue_name());
}

void prepare_chase_display(match_state& match) {
  const rate_figures& rates = match.rates;
  projection_text& projection = match.first_innings_projection;
  if (rates.of_innings_before) {
    projection = {};
  } else if (rates.innings_balls == 0) {
    projection = {projection_text::kind::dash, 0};
  } else {
    projection = {projection_text::kind::number, rates.score_runs + balls_of_innings - rates.innings_balls};
  }
  match.rates.of_innings_before = true;
  match.bowler_list = {};
  match.ball_commentary.clear();
  match.score_runs = 0;
  match.score_wickets = 0;
}

}  // namespace velorin
