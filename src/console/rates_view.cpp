// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "console/console_view.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Runs and wickets that the log of an innings holds for some overs.
struct logged {
  int runs = 0;
  int wickets = 0;
};

logged count_overs(const delivery_list& deliveries, int from, int to) {
  logged sum;
  for (int over = from; over <= to; ++over) {
    const over_entries entries = entries_of_over(deliveries, over);
    sum.runs += entries.runs();
    sum.wickets += entries.wickets();
  }
  return sum;
}

/// What the panel is written from: the figures of the last refresh, and none before the first of an innings. The rates
/// of the match keep those of the innings before until then, since the projection is frozen from them.
rate_figures figures_of_this_innings(const match_state& match) {
  return match.rates.of_innings_before ? rate_figures{} : match.rates;
}

std::string last_five(const match_state& match, const rate_figures& rates) {
  const int overs = rates.innings_balls / balls_of_over;
  if (overs - 4 <= 0) return " - ";
  // Only overs that were complete at the refresh; the one in progress was still empty then.
  const int last = overs < rates.over_no ? overs : rates.over_no - 1;
  return number_text(round_to(count_overs(match.deliveries, overs - 4, last).runs / 5.0, 2));
}

std::vector<rate_cell> projections(const rate_figures& rates) {
  std::vector<rate_cell> cells = {
      {"Current RR", "-"}, {"4 per over", "-"}, {"6 per over", "-"}, {"8 per over", "-"}, {"10 per over", "-"}};
  if (rates.innings_balls == 0) return cells;
  const double runs = rates.score_runs;
  const double balls = rates.innings_balls;
  const double left = balls_of_innings - balls;
  cells[0].text = number_text(runs + round_half_even(runs / balls * left));
  cells[1].text = number_text(runs + round_half_even(4.0 / balls_of_over * left));
  cells[2].text = number_text(runs + round_half_even(left));
  cells[3].text = number_text(runs + round_half_even(8.0 / balls_of_over * left));
  cells[4].text = number_text(runs + round_half_even(10.0 / balls_of_over * left));
  return cells;
}

int runs_needed(const match_state& match, const rate_figures& rates) {
  return match.first_total + 1 - rates.score_runs;
}

std::vector<rate_cell> chase_cells(const match_state& match, const rate_figures& rates) {
  std::vector<rate_cell> cells = {{"Runs Reqd.", ""},   {"Overs rem.", ""}, {"RR Reqd.", ""},  {"Current RR", ""},
                                  {"Wkts in hand", ""}, {"Target", ""},     {"Initial RR", ""}};
  const int target = match.first_total + 1;
  const int left = balls_of_innings - rates.innings_balls;
  if (runs_needed(match, rates) > 0) {
    cells[0].text = number_text(runs_needed(match, rates));
    if (rates.required_rate_shown) cells[2].text = number_text(rates.required_rate);
  }
  cells[1].text = fmt::format("{} ({}b)", overs_from_balls(left), left);
  if (rates.innings_balls > 0) {
    cells[3].text =
        number_text(round_to(static_cast<double>(rates.score_runs) / rates.innings_balls * balls_of_over, 2));
  }
  cells[4].text = number_text(wickets_of_innings - rates.score_wickets);
  cells[5].text = number_text(target);
  cells[6].text = number_text(round_to(target * double{balls_of_over} / balls_of_innings, 2));
  return cells;
}

void add_comparison(const match_state& match, rates_view& view, const rate_figures& rates) {
  const std::string us = short_name(match.team1_name);
  const std::string them = short_name(match.team2_name);
  view.first_innings = fmt::format("{} {}/{}", them, int(match.first_total), int(match.first_wickets));
  view.first_innings_overs = overs_from_balls(match.first_balls) + " Overs";
  if (runs_needed(match, rates) > 0) view.chase_headline = "To win " + us + " need...";
  const logged stage = count_overs(match.first_deliveries, 1, rates.innings_balls / balls_of_over);
  if (rates.innings_balls > 0) view.stage_overs = overs_from_balls(rates.innings_balls) + " Overs";
  view.score_now = fmt::format("{} are {}/{}", us, rates.score_runs, rates.score_wickets);
  view.score_then = fmt::format("{} were {}/{}", them, stage.runs, stage.wickets);
}

}  // namespace

rates_view view_rates(const match_state& match) {
  const rate_figures rates = figures_of_this_innings(match);
  rates_view view;
  view.last_five_overs = last_five(match, rates);
  view.chase = match.first_total != 0;
  if (match.innings_balls != rates.innings_balls) view.told_after = overs_from_balls(rates.innings_balls);
  view.cells = view.chase ? chase_cells(match, rates) : projections(rates);
  if (view.chase) add_comparison(match, view, rates);
  return view;
}

}  // namespace velorin
