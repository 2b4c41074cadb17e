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

double meter_of(const match_state& match, int position) {
  const batting_card_rec& card = match.batting_card[position];
  // In halves, which are whole numbers: five times the sum of twice his runs and half his balls.
  return std::min(2 * full_meter, 5 * (4 * card.runs + card.balls)) / 2.0;
}

void refresh_batsmen(match_state& match) {
  match.settled_meter[0] = meter_of(match, match.lower_batsman());
  match.settled_meter[1] = meter_of(match, match.higher_batsman());
}

void refresh_batsman(match_state& match, int position) {
  match.settled_meter[position == match.lower_batsman() ? 0 : 1] = meter_of(match, position);
}

void refresh_bowling_card(match_state& match) {
  // The row of the ball before is hardly ever another man's.
  auto row = match.bowler_list.begin() + match.bowler_row_in_use;
  if (row->position != match.bowler) [[unlikely]] {
    row = match.bowler_list.begin() + 1;
    while (row != match.bowler_list.end() && row->position != 0 && row->position != match.bowler) ++row;
    if (row == match.bowler_list.end()) return;
    match.bowler_row_in_use = static_cast<int>(row - match.bowler_list.begin());
  }
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
  match.bowler_row_in_use = 1;
  match.score_runs = 0;
  match.score_wickets = 0;
}

}  // namespace velorin
