// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ball_odds.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "console/console_figures.h"
#include "model/match_state.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

std::optional<ball_odds> answer(const contest& met) {
  try {
    return odds_of(met);
  } catch (const run_time_error&) {
    return std::nullopt;
  }
}

bool has_pair(const match_state& match) { return match.striker != 0 && match.bowler != 0; }

/// A man of the batting eleven, in a slot, against a bowler.
contest meeting_of(const match_state& match, int man, double meter, int slot, int bowler, int bowling_slot) {
  const auto at = [](int place) { return static_cast<std::size_t>(place); };
  return {.batsman = match.batting_xi[at(man)],
          .bowler = match.bowling_xi[at(bowler)],
          .conditions = match.ground.pitch_surface + match.ground.pitch_bounce + match.weather + match.outfield,
          .batting_aggression = match.batsman_aggression[at(slot)],
          .bowling_aggression = match.bowling_aggression[at(bowling_slot)],
          .settled_meter = meter,
          .higher_slot = slot == 1};
}

/// The batsman in a slot against a bowler, as they stand.
contest meeting(const match_state& match, int slot, int bowler, int bowling_slot) {
  const int position = slot == 0 ? match.lower_batsman() : match.higher_batsman();
  return meeting_of(match, position, meter_of(match, position), slot, bowler, bowling_slot);
}

}  // namespace

outcome_draws draws_of(const std::array<double, 10>& windows) {
  outcome_draws draws{};
  double end = 0;
  double reached = 0;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    end += windows[i];
    const double upto = std::min(std::floor(end), double{draw_scale});
    if (upto <= reached) continue;
    draws[static_cast<std::size_t>(window_outcomes[i])] = static_cast<int>(upto - reached);
    reached = upto;
  }
  draws[dot_ball] = draw_scale - static_cast<int>(reached);
  return draws;
}

ball_odds odds_of(const outcome_draws& draws) {
  const int again = draws[no_ball] + draws[wide_ball];
  const int balls = draw_scale - again;
  if (balls == 0) return {};
  double runs = mean_body_extras * (draws[leg_byes] + draws[byes]);
  for (const int off_the_bat : {one_run, two_runs, three_runs, four_runs, six_runs}) {
    runs += off_the_bat * draws[static_cast<std::size_t>(off_the_bat)];
  }
  ball_odds odds;
  odds.runs_an_over = balls_of_over * runs / balls;
  if (draws[wicket] > 0) odds.balls_a_wicket = static_cast<double>(balls) / draws[wicket];
  return odds;
}

ball_odds odds_of(const contest& met) { return odds_of(draws_of(delivery_windows(expect_ball(met)))); }

aggression_odds batting_odds(const match_state& match, int slot) {
  aggression_odds all;
  if (!has_pair(match)) return all;
  contest met = meeting(match, slot, match.bowler, 0);
  for (int level = least_aggression; level <= most_aggression; ++level) {
    met.batting_aggression = level;
    all[static_cast<std::size_t>(level - least_aggression)] = answer(met);
  }
  return all;
}

aggression_odds bowling_odds(const match_state& match, int slot) {
  aggression_odds all;
  const int bowler = slot == 0 ? match.bowler : match.next_bowler;
  if (!has_pair(match) || bowler == 0) return all;
  contest met = meeting(match, match.striker_slot(), bowler, slot);
  for (int level = least_aggression; level <= most_aggression; ++level) {
    met.bowling_aggression = level;
    all[static_cast<std::size_t>(level - least_aggression)] = answer(met);
  }
  return all;
}

aggression_odds newcomer_odds(const match_state& match, int man) {
  aggression_odds all;
  if (!has_pair(match)) return all;
  contest met = meeting_of(match, man, 0, 1, match.bowler, 0);
  for (int level = least_aggression; level <= most_aggression; ++level) {
    met.batting_aggression = level;
    all[static_cast<std::size_t>(level - least_aggression)] = answer(met);
  }
  return all;
}

std::optional<double> meter_worth(const match_state& match, int slot) {
  if (!has_pair(match)) return std::nullopt;
  contest met = meeting(match, slot, match.bowler, 0);
  const auto settled = answer(met);
  met.settled_meter = 0;
  const auto fresh = answer(met);
  if (!settled || !fresh) return std::nullopt;
  return settled->runs_an_over - fresh->runs_an_over;
}

}  // namespace velorin
