// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/delivery_model.h"

#include "model/match_state.h"
#include "model/random.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// Conditions of 1 to 4 each, by their sum: skill is divided by (rise * sum + start) / whole.
struct conditions_weights {
  double rise;
  double start;
  double whole;
};
constexpr conditions_weights conditions_weight = {7, 180, 300};

/// The settled meter: it adds its part of balls to the balls per wicket, and its part of runs to the over.
constexpr double meter_a_ball = 150;
constexpr double meter_a_protected_ball = 100;
constexpr double meter_a_run = 1000;

/// What an aggression of 1 to 5 (index 0 to 4) adds: a share of the rating to the balls per wicket, runs to the over.
struct batting_weight {
  double skill_share;
  double runs;
};
constexpr std::array<batting_weight, 5> batting_weights = {
    {{0.5, -1.75}, {0.25, -1}, {0, 0}, {-0.15, 0.75}, {-0.4, 1}}};

/// The bowler's: a share of his strike rate to the balls per wicket, and so many parts of 1 / econ to the over.
struct bowling_weight {
  double strike_share;
  double economy_parts;
};
constexpr std::array<bowling_weight, 5> bowling_weights = {{{0.25, -3}, {0.15, -1}, {0, 0}, {-0.15, 1}, {-0.25, 3}}};

/// Window sizes in parts of the runs per over, in the order of the scale behind the wicket's.
constexpr std::array<double, 9> run_weights = {63.33, 15.333, 3.8666, 12.6666, 1.4666, 1.6666, 1.8666, 1, 0.6666};

[[noreturn]] void raise_division(const char* field, const std::string& player) {
  throw run_time_error(failure::division, "Division by zero in the delivery model",
                       {.file = {}, .record = 0, .field = field, .player = player});
}

/// A quotient of the settled meter, rounded to single precision. It goes through memory, since g++ 12 forgets the
/// rounding where it works on the two quotients of a delivery at once (-O2 and up).
double single(double quotient) {
  const volatile float rounded = static_cast<float>(quotient);
  return static_cast<double>(rounded);
}

void add_batting_aggression(const contest& met, expectations& expected, double adjusted_skill) {
  const int aggression = met.batting_aggression;
  if (aggression < least_aggression || aggression > most_aggression) return;
  const double meter = met.settled_meter;
  // On the lowest aggression the meter protects the man of the higher position half as much again.
  const double divisor = aggression == least_aggression && met.higher_slot ? meter_a_protected_ball : meter_a_ball;
  const batting_weight& weight = batting_weights[aggression - least_aggression];
  expected.balls_per_wicket = expected.balls_per_wicket + weight.skill_share * adjusted_skill + single(meter / divisor);
  expected.runs_per_over = expected.runs_per_over + weight.runs + single(meter / meter_a_run);
}

void add_bowling_aggression(const contest& met, expectations& expected) {
  const player_rec& bowler = met.bowler;
  const int aggression = met.bowling_aggression;
  if (aggression < least_aggression || aggression > most_aggression || aggression == even_aggression) return;
  const double economy = static_cast<double>(bowler.econ);
  if (economy == 0) raise_division("econ", bowler.name);
  const bowling_weight& weight = bowling_weights[aggression - least_aggression];
  expected.balls_per_wicket += weight.strike_share * static_cast<double>(bowler.bowl_sr);
  expected.runs_per_over += round_to(weight.economy_parts / economy, 3);
}

}  // namespace

contest contest_in_play(const match_state& match) {
  const int slot = match.striker_slot();
  return {.batsman = match.batting_xi[match.striker],
          .bowler = match.bowling_xi[match.bowler],
          .conditions = match.ground.pitch_surface + match.ground.pitch_bounce + match.weather + match.outfield,
          .batting_aggression = match.batsman_aggression[slot],
          .bowling_aggression = match.bowling_aggression[0],
          .settled_meter = match.settled_meter[slot],
          .higher_slot = slot == 1};
}

expectations expect_ball(const contest& met) {
  const player_rec& batsman = met.batsman;
  const player_rec& bowler = met.bowler;
  const double condition_factor =
      (conditions_weight.rise * met.conditions + conditions_weight.start) / conditions_weight.whole;
  const double skill = batsman.bat_skill;
  const double adjusted_skill = round_half_even(skill / condition_factor);
  if (adjusted_skill == 0) raise_division("bat_skill", batsman.name);
  const double base_rate = (skill / adjusted_skill) * balls_of_over;
  expectations expected;
  expected.balls_per_wicket = (adjusted_skill + static_cast<double>(bowler.bowl_sr)) / 2;
  expected.runs_per_over = (static_cast<double>(bowler.econ) + base_rate) / 2;
  add_batting_aggression(met, expected, adjusted_skill);
  add_bowling_aggression(met, expected);
  if (expected.balls_per_wicket == 0) raise_division("balls_per_wicket", batsman.name);
  return expected;
}

expectations expect_delivery(const match_state& match) { return expect_ball(contest_in_play(match)); }

std::array<double, 10> delivery_windows(const expectations& expected) {
  std::array<double, 10> windows{};
  windows[0] = round_half_even((1 / expected.balls_per_wicket) * draw_scale);
  for (std::size_t i = 0; i < run_weights.size(); ++i) {
    windows[i + 1] = round_half_even(run_weights[i] * expected.runs_per_over);
  }
  return windows;
}

int classify(int draw, const std::array<double, 10>& windows) {
  double end = 0;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    end += windows[i];
    if (draw <= end) return window_outcomes[i];
  }
  return dot_ball;
}

void deliver_ball(match_state& match, random_source& chance) {
  chance.reseed();
  const int draw = die(chance, draw_scale);
  match.ball_outcome = classify(draw, delivery_windows(expect_delivery(match)));
}

}  // namespace velorin
