// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/match_line.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "model/match_state.h"

namespace velorin {

namespace {

man_impact& impact_of(std::vector<man_impact>& all, const std::string& man, bool of_first) {
  const auto known = std::find_if(all.begin(), all.end(), [&](const man_impact& impact) {
    return impact.man == man && impact.of_first == of_first;
  });
  if (known != all.end()) return *known;
  return all.emplace_back(man_impact{.man = man, .of_first = of_first});
}

}  // namespace

match_line::match_line(const match_state& before, const forecast_options& options) : options_(options) {
  const forecast_answer answer = forecast_rest(before, options_);
  first_ = answer.first;
  second_ = answer.second;
  before_ = answer.win_first;
}

void match_line::add(const match_state& after) {
  // The change of innings has laid the balls of the first one aside.
  const bool changed = after.deliveries.empty();
  const delivery_list& balls = changed ? after.first_deliveries : after.deliveries;
  if (balls.empty()) return;
  const std::size_t so_far = after.first_deliveries.size() + after.deliveries.size();
  if (so_far <= points_.size()) return;
  const delivery& ball = balls.back();
  const auto& batting = changed ? after.bowling_xi : after.batting_xi;
  const auto& bowling = changed ? after.batting_xi : after.bowling_xi;
  const forecast_answer answer = forecast_rest(after, options_);
  line_point point;
  point.ball = ball;
  point.first_bats = ball.innings % 2 == 1;
  point.striker = batting[ball.striker].name;
  point.bowler = bowling[ball.bowler].name;
  point.win_first = answer.win_first;
  point.swing = answer.win_first - (points_.empty() ? before_ : points_.back().win_first);
  points_.push_back(std::move(point));
}

std::vector<line_point> match_line::turning_points(std::size_t count) const {
  std::vector<line_point> turns = points_;
  std::stable_sort(turns.begin(), turns.end(),
                   [](const line_point& a, const line_point& b) { return std::abs(a.swing) > std::abs(b.swing); });
  if (turns.size() > count) turns.resize(count);
  return turns;
}

std::vector<man_impact> match_line::impacts() const {
  std::vector<man_impact> all;
  for (const line_point& point : points_) {
    const double for_batting_side = point.first_bats ? point.swing : -point.swing;
    impact_of(all, point.striker, point.first_bats).with_bat += for_batting_side;
    if (point.ball.how == dismissal::run_out) continue;
    impact_of(all, point.bowler, !point.first_bats).with_ball -= for_batting_side;
  }
  std::stable_sort(all.begin(), all.end(),
                   [](const man_impact& a, const man_impact& b) { return a.total() > b.total(); });
  return all;
}

}  // namespace velorin
