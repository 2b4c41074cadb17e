// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/delivery_model.h"

#include <algorithm>

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

void add_batting_aggression(const contest& met, contest_terms& terms, double adjusted_skill) {
  const int aggression = met.batting_aggression;
  if (aggression < least_aggression || aggression > most_aggression) return;
  // On the lowest aggression the meter protects the man of the higher position half as much again.
  terms.meter_a_ball = aggression == least_aggression && met.higher_slot ? meter_a_protected_ball : meter_a_ball;
  const batting_weight& weight = batting_weights[aggression - least_aggression];
  terms.balls_per_wicket += weight.skill_share * adjusted_skill;
  terms.runs_per_over += weight.runs;
}

void add_bowling_aggression(const contest& met, contest_terms& terms) {
  const player_rec& bowler = met.bowler;
  const int aggression = met.bowling_aggression;
  if (aggression < least_aggression || aggression > most_aggression || aggression == even_aggression) return;
  const double economy = static_cast<double>(bowler.econ);
  if (economy == 0) raise_division("econ", bowler.name);
  const bowling_weight& weight = bowling_weights[aggression - least_aggression];
  terms.balls_by_bowler = weight.strike_share * static_cast<double>(bowler.bowl_sr);
  terms.runs_by_bowler = round_to(weight.economy_parts / economy, 3);
}

/// Each ball of a match goes through these two; they are worth being written out where they are used.
[[gnu::always_inline]] inline contest_terms reckoned_terms(const contest& met) {
  const player_rec& batsman = met.batsman;
  const player_rec& bowler = met.bowler;
  const double condition_factor =
      (conditions_weight.rise * met.conditions + conditions_weight.start) / conditions_weight.whole;
  const double skill = batsman.bat_skill;
  const double adjusted_skill = round_half_even(skill / condition_factor);
  if (adjusted_skill == 0) raise_division("bat_skill", batsman.name);
  const double base_rate = (skill / adjusted_skill) * balls_of_over;
  contest_terms terms;
  terms.balls_per_wicket = (adjusted_skill + static_cast<double>(bowler.bowl_sr)) / 2;
  terms.runs_per_over = (static_cast<double>(bowler.econ) + base_rate) / 2;
  add_batting_aggression(met, terms, adjusted_skill);
  add_bowling_aggression(met, terms);
  return terms;
}

[[gnu::always_inline]] inline expectations expectations_of(const contest_terms& terms, double settled_meter,
                                                           const std::string& batsman) {
  expectations expected{terms.balls_per_wicket, terms.runs_per_over};
  if (terms.meter_a_ball != 0) {
    expected.balls_per_wicket += single(settled_meter / terms.meter_a_ball);
    expected.runs_per_over += single(settled_meter / meter_a_run);
  }
  expected.balls_per_wicket += terms.balls_by_bowler;
  expected.runs_per_over += terms.runs_by_bowler;
  if (expected.balls_per_wicket == 0) raise_division("balls_per_wicket", batsman);
  return expected;
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

contest_terms terms_of(const contest& met) { return reckoned_terms(met); }

expectations expect_ball(const contest_terms& terms, double settled_meter, const std::string& batsman) {
  return expectations_of(terms, settled_meter, batsman);
}

expectations expect_ball(const contest& met) {
  return expectations_of(reckoned_terms(met), met.settled_meter, met.batsman.name);
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

int classify(int draw, const expectations& expected) {
  // Where no window is below 0 the ends rise, and the outcome is told by how many of them a draw lies beyond.
  constexpr double most_runs = 1e6;
  const bool rises =
      expected.balls_per_wicket >= 1e-3 && expected.runs_per_over >= 0 && expected.runs_per_over < most_runs;
  if (!rises) [[unlikely]] {
    return classify(draw, delivery_windows(expected));
  }
  const int wicket_end = static_cast<int>(round_half_even((1 / expected.balls_per_wicket) * draw_scale));
  std::array<int, run_weights.size()> sizes;
  for (std::size_t i = 0; i < sizes.size(); ++i)
    sizes[i] = small_round_half_even(run_weights[i] * expected.runs_per_over);
  int end = wicket_end;
  int beyond = static_cast<int>(draw > end);
  for (const int size : sizes) {
    end += size;
    beyond += static_cast<int>(draw > end);
  }
  constexpr std::array<int, window_outcomes.size() + 1> outcomes = [] {
    std::array<int, window_outcomes.size() + 1> all{};
    std::copy(window_outcomes.begin(), window_outcomes.end(), all.begin());
    all.back() = dot_ball;
    return all;
  }();
  return outcomes[static_cast<std::size_t>(beyond)];
}

void deliver_ball(match_state& match, random_source& chance, known_contests& known) {
  const int slot = match.striker_slot();
  const contest_key key{.innings = match.innings_number,
                        .striker = match.striker,
                        .bowler = match.bowler,
                        .slot = slot,
                        .batting_aggression = match.batsman_aggression[slot],
                        .bowling_aggression = match.bowling_aggression[0]};
  chance.reseed();
  const int draw = die(chance, draw_scale);
  known_contest& contest = known.at(slot);
  if (contest.key != key) contest = {key, terms_of(contest_in_play(match))};
  const expectations expected =
      expect_ball(contest.terms, match.settled_meter[slot], match.batting_xi[match.striker].name);
  match.ball_outcome = classify(draw, expected);
}

void deliver_ball(match_state& match, random_source& chance) {
  chance.reseed();
  const int draw = die(chance, draw_scale);
  match.ball_outcome = classify(draw, delivery_windows(expect_delivery(match)));
}

}  // namespace velorin
