// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string_view>

#include "captain/computer_captain.h"
#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

// What the captains weigh is a sum of steps of aggression; `..._a_step` is how much of a thing makes one.

constexpr double base_at_start = 2;  ///< of both captains, before the first ball

/// A batsman's standing in the innings, in halves.
int form_in_halves(const match_state& match, int position) {
  const batting_card_rec& card = match.batting_card[position];
  return 4 * card.runs + card.balls + 2;
}

double form_of(const match_state& match, int position) { return form_in_halves(match, position) / 2.0; }

int clamp_aggression(double value) {
  return static_cast<int>(std::min(double{most_aggression}, std::max(double{least_aggression}, value)));
}

/// The part of the batting aggression that both batsmen share.
double batting_base(const match_state& match) {
  const int balls = match.innings_balls;
  const int in_hand = wickets_of_innings - match.score_wickets;
  if (balls == 0) return base_at_start;
  if (match.first_total == 0) [[likely]] {
    constexpr double wickets_a_step = 3;
    constexpr double run_rate_a_step = 4;
    constexpr double balls_a_step = 75;
    const double run_rate = double{balls_of_over} * match.score_runs / balls;
    return round_half_even(in_hand / wickets_a_step - run_rate / run_rate_a_step + balls / balls_a_step);
  }
  constexpr double wickets_a_step = 9;
  constexpr double projection_a_step = 3;
  constexpr double balls_left_a_step = 250;
  const double projection = match.first_innings_projection.number();
  return round_half_even(in_hand / wickets_a_step + projection / projection_a_step -
                         (balls_of_innings - balls) / balls_left_a_step);
}

/// The aggression of the batsman at a position. `strike_rate` is the bowler's.
int batting_value(const match_state& match, int position, double base, double strike_rate) {
  constexpr double form_a_step = 100;
  constexpr double skill_weight = 5;  // in parts of 1 / skill: the most that a skill takes away
  constexpr double strike_rate_a_step = 100;
  const player_rec& man = match.batting_xi[position];
  // From such a base no skill brings him below the highest aggression, and nothing else takes away.
  if (base - skill_weight >= most_aggression && man.bat_skill > 0 && strike_rate >= 0) return most_aggression;
  if (man.bat_skill == 0) {
    throw run_time_error(failure::division, "Division by zero: a batting skill of 0",
                         {.file = {}, .record = 0, .field = "bat_skill", .player = man.name});
  }
  return clamp_aggression(round_half_even(base + form_of(match, position) / form_a_step - skill_weight / man.bat_skill +
                                          strike_rate / strike_rate_a_step));
}

/// The part of the bowling aggression that the innings decides.
double bowling_base(const match_state& match) {
  constexpr double start = 4;
  const double balls = match.innings_balls;
  const double wickets = match.score_wickets;
  if (balls == 0) return base_at_start;
  if (match.first_total == 0) {
    constexpr double wickets_a_step = 2;
    constexpr double balls_a_step = 75;
    return round_half_even(wickets / wickets_a_step + start - match.score_runs / balls - balls / balls_a_step);
  }
  constexpr double wickets_a_step = 3;
  constexpr double projection_a_step = 4;
  constexpr double balls_a_step = 100;
  const double projection = match.first_innings_projection.number();
  return round_half_even(wickets / wickets_a_step + start - projection / projection_a_step + balls / balls_a_step);
}

constexpr std::string_view fast = "Fast Bowler";
constexpr std::string_view medium = "Medium Pacer";

/// How a man's figures are weighed: a high score is a bad one. His economy, the parts of his wickets taken away, and
/// what his balls bring: `fresh_points` up to `fresh_balls`, and from then on a point for each `balls_a_point`.
struct review_weights {
  double economy_divisor;
  double wicket_points;
  double fresh_points;
  double fresh_balls;
  double balls_a_point;
};

/// Nobody tires: the balls bring nothing.
constexpr double never = std::numeric_limits<double>::infinity();
constexpr int to_the_end = std::numeric_limits<int>::max();

/// One stage of the innings in the review of a bowler.
struct review_stage {
  int first_ball;  ///< of the innings, with which the stage begins
  int last_ball;
  review_weights weights;
  double limit;    ///< a higher score brings a change
  bool fast_only;  ///< a man who is not fast is changed whatever his score
  bool by_pace;    ///< looks for fast and medium bowlers first
  bool spares_opening_pair;
  int max_balls;         ///< that another may have bowled
  int forced_max_balls;  ///< the same in the search after a man's last over; 0: no such search
};

/// In the order of the innings. At 72, 180 and 260 balls nobody is reviewed.
constexpr std::array<review_stage, 4> stages = {{
    {.first_ball = 12,
     .last_ball = 71,
     .weights =
         {.economy_divisor = 2, .wicket_points = 1.25, .fresh_points = -5, .fresh_balls = 24, .balls_a_point = 6},
     .limit = 7,
     .fast_only = false,
     .by_pace = true,
     .spares_opening_pair = false,
     .max_balls = 30,
     .forced_max_balls = 0},
    {.first_ball = 73,
     .last_ball = 179,
     .weights =
         {.economy_divisor = 1.5, .wicket_points = 1, .fresh_points = -5, .fresh_balls = 18, .balls_a_point = 10},
     .limit = 5.5,
     .fast_only = false,
     .by_pace = false,
     .spares_opening_pair = true,
     .max_balls = 42,
     .forced_max_balls = 54},
    {.first_ball = 181,
     .last_ball = 259,
     .weights = {.economy_divisor = 1, .wicket_points = 1, .fresh_points = 0, .fresh_balls = never, .balls_a_point = 1},
     .limit = 6,
     .fast_only = false,
     .by_pace = false,
     .spares_opening_pair = true,
     .max_balls = 48,
     .forced_max_balls = 48},
    {.first_ball = 261,
     .last_ball = to_the_end,
     .weights = {.economy_divisor = 1, .wicket_points = 1, .fresh_points = 0, .fresh_balls = never, .balls_a_point = 1},
     .limit = 7,
     .fast_only = true,
     .by_pace = true,
     .spares_opening_pair = false,
     .max_balls = 54,
     .forced_max_balls = 54},
}};

const review_stage* stage_at(int balls) {
  const auto* const found = std::find_if(stages.begin(), stages.end(), [balls](const review_stage& stage) {
    return balls >= stage.first_ball && balls <= stage.last_ball;
  });
  return found == stages.end() ? nullptr : found;
}

double review_score(const review_weights& weights, const bowling_card_rec& card) {
  const double balls = card.balls;
  const double tiredness = balls > weights.fresh_balls ? balls / weights.balls_a_point : weights.fresh_points;
  return tiredness - weights.wicket_points * card.wickets +
         double{balls_of_over} * card.runs / (weights.economy_divisor * balls);
}

/// The man under review is to be changed.
bool is_to_go(const match_state& match, const review_stage& stage, int position) {
  if (stage.fast_only && match.bowling_xi[position].bowler_type != fast) return true;
  return review_score(stage.weights, match.bowling_card[position]) > stage.limit;
}

void replace_next_bowler(match_state& match, const review_stage& stage, int max_balls) {
  replacement_search wanted;
  if (stage.by_pace) {
    wanted.type_a = fast;
    wanted.type_b = medium;
  }
  wanted.exclude_a = match.bowler;
  wanted.exclude_b = match.next_bowler;
  if (stage.spares_opening_pair) {
    wanted.exclude_c = match.opening_bowlers[0];
    wanted.exclude_d = match.opening_bowlers[1];
  }
  wanted.max_balls = max_balls;
  match.next_bowler = pick_replacement(match, wanted);
}

bool fits(const match_state& match, const bowler_pool_rec& man, const replacement_search& wanted) {
  const int position = man.position;
  if (position == wanted.exclude_a || position == wanted.exclude_b || position == wanted.exclude_c ||
      position == wanted.exclude_d) {
    return false;
  }
  const int balls = match.bowling_card[position].balls;
  return balls >= wanted.min_balls && balls <= wanted.max_balls;
}

}  // namespace

void set_batting_aggression(match_state& match) {
  const double base = batting_base(match);
  const double strike_rate = static_cast<double>(match.bowling_xi[match.bowler].bowl_sr);
  for (const std::size_t slot : {0U, 1U}) {
    const int position = slot == 0 ? match.lower_batsman() : match.higher_batsman();
    known_aggression& known = match.known_aggressions[slot];
    const int form = form_in_halves(match, position);
    const int bat_skill = match.batting_xi[position].bat_skill;
    if (known.base != base || known.form != form || known.bat_skill != bat_skill || known.strike_rate != strike_rate ||
        known.aggression == 0) {
      known = {base, strike_rate, form, bat_skill, batting_value(match, position, base, strike_rate)};
    }
    match.batsman_aggression[slot] = known.aggression;
  }
}

void set_bowling_aggression(match_state& match) {
  constexpr double form_a_step = 100;
  constexpr double skills_a_step = 100;
  constexpr double strike_rate_a_step = 100;
  constexpr double wickets_a_step = 2.5;
  const double form = (form_of(match, match.striker) + form_of(match, match.non_striker)) / 2;
  const double skills = match.batting_xi[match.striker].bat_skill + match.batting_xi[match.non_striker].bat_skill;
  const double strike_rate = static_cast<double>(match.bowling_xi[match.bowler].bowl_sr);
  const double wickets = match.bowling_card[match.bowler].wickets;
  match.bowling_aggression[0] =
      clamp_aggression(round_half_even(bowling_base(match) - form / form_a_step - skills / skills_a_step -
                                       strike_rate / strike_rate_a_step + wickets / wickets_a_step));
}

int pick_replacement(match_state& match, const replacement_search& wanted) {
  for (const bool relaxed : {false, true}) {
    for (int i = 1; i <= men_in_eleven; ++i) {
      const bowler_pool_rec& man = match.bowler_pool[i];
      const bool kind_fits = relaxed || man.bowler_type == wanted.type_a || man.bowler_type == wanted.type_b;
      if (!kind_fits || !fits(match, man, wanted)) continue;
      match.bowler_change_pending = true;
      match.bowler_change_out = wanted.exclude_b;
      match.bowler_change_in = man.position;
      return man.position;
    }
  }
  throw run_time_error(failure::endless, "Endless search: no bowler of " + match.team2_name + " can replace another",
                       {.file = {}, .record = 0, .field = "bowler_pool", .player = {}});
}

bool has_bowler_change_to_tell(const match_state& match) {
  return match.bowler_change_pending && match.human_involved();
}

message_box bowler_change_message(const match_state& match) {
  return {"Bowler Change",
          match.bowling_xi[match.bowler_change_out].name + " has been replaced by " +
              match.bowling_xi[match.bowler_change_in].name + " .",
          message_kind::bowler_change};
}

std::optional<bowler_standing> standing_of_bowler(const match_state& match, int position) {
  const review_stage* stage = stage_at(match.innings_balls);
  if (stage == nullptr || match.bowling_card[position].balls == 0) return std::nullopt;
  return bowler_standing{.score = review_score(stage->weights, match.bowling_card[position]),
                         .limit = stage->limit,
                         .too_slow = stage->fast_only && match.bowling_xi[position].bowler_type != fast};
}

void review_bowler(match_state& match) {
  match.bowler_change_pending = false;
  match.bowler_change_out = 0;
  match.bowler_change_in = 0;
  if (match.innings_balls < 2 * balls_of_over) {
    match.opening_bowlers[0] = match.bowler;
    match.opening_bowlers[1] = match.next_bowler;
  }
  if (const review_stage* stage = stage_at(match.innings_balls)) {
    if (is_to_go(match, *stage, match.next_bowler)) replace_next_bowler(match, *stage, stage->max_balls);
    if (stage->forced_max_balls != 0 && match.bowling_card[match.next_bowler].balls >= balls_of_quota) {
      replace_next_bowler(match, *stage, stage->forced_max_balls);
    }
  }
  if (match.computer_bowls) set_bowling_aggression(match);
}

}  // namespace velorin
