// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/overs_graph.h"

#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "reports/scorecard.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

void fill_bars(overs_graph_form& screen, int half, const delivery_list& deliveries) {
  const innings_log log = log_of(deliveries);
  for (int over = 1; over <= overs_of_innings; ++over) {
    const int runs = log[over].runs();
    const int place = overs_graph_form::place(half, over);
    const int height = runs * overs_graph_form::units_a_run;
    screen.bars[place] = {height, overs_graph_form::base_line[half] - height, runs > 0};
    screen.wicket_marks[place] = log[over].wickets() > 0;
    if (log[over].is_begun()) screen.overs[half] = over;
  }
}

void fill_half(overs_graph_form& screen, int half, const std::string& team, int total, int wickets, double rate) {
  screen.rate[half] = rate;
  screen.rate_line_heights[half] = overs_graph_form::base_line[half] - rate * overs_graph_form::units_a_run;
  screen.captions[half] = team + "   ( " + number_text(total) + "/" + number_text(wickets) + " )";
}

}  // namespace

void overs_graph_form::open() {
  static_cast<overs_graph_screen&>(*this) = {};
  const double current_rate = match_.innings_balls != 0 ? runs_per_over(match_.score_runs, match_.innings_balls) : 0;
  fill_half(*this, 0, match_.team1_name, match_.score_runs, match_.score_wickets, current_rate);
  fill_bars(*this, 0, match_.deliveries);

  const bool has_first = match_.first_total != 0 && match_.first_balls != 0;
  const double first_rate = has_first ? runs_per_over(match_.first_total, match_.first_balls) : 0;
  fill_half(*this, 1, match_.team2_name, match_.first_total, match_.first_wickets, first_rate);
  fill_bars(*this, 1, match_.first_deliveries);
  side = {chart_place(match_, match_.team1_name), chart_place(match_, match_.team2_name)};
  teams[static_cast<std::size_t>(side[0])] = match_.team1_name;
  teams[static_cast<std::size_t>(1 - side[0])] = match_.team2_name;
}

}  // namespace velorin
