// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/overs_graph.h"

#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "reports/scorecard.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

/// What one over brought.
struct over_sum {
  int runs = 0;  ///< of the numeric symbols
  bool wicket = false;
  bool bowled = false;  ///< a ball of it is on record
};

over_sum sum_of(const ball_log_table::value_type& balls) {
  over_sum sum;
  for (int b = 1; b <= balls_of_over; ++b) {
    if (!balls[b].empty()) sum.bowled = true;
    if (balls[b] == "W") sum.wicket = true;
    if (const int runs = symbol_number(balls[b]); runs > 0) sum.runs += runs;
  }
  return sum;
}

void fill_bars(overs_graph_form& screen, int half, const ball_log_table& log) {
  for (int over = 1; over <= overs_of_innings; ++over) {
    const over_sum sum = sum_of(log[over]);
    const int place = overs_graph_form::place(half, over);
    const int height = sum.runs * overs_graph_form::units_a_run;
    screen.bars[place] = {height, overs_graph_form::base_line[half] - height, sum.runs > 0};
    screen.wicket_marks[place] = sum.wicket;
    if (sum.bowled) screen.overs[half] = over;
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
  fill_bars(*this, 0, match_.ball_log);

  const bool has_first = match_.first_total != 0 && match_.first_balls != 0;
  const double first_rate = has_first ? runs_per_over(match_.first_total, match_.first_balls) : 0;
  fill_half(*this, 1, match_.team2_name, match_.first_total, match_.first_wickets, first_rate);
  fill_bars(*this, 1, match_.first_ball_log);
  side = {chart_place(match_, match_.team1_name), chart_place(match_, match_.team2_name)};
}

}  // namespace velorin
