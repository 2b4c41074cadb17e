// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "model/delivery.h"

// The statistical model of one delivery: the only judge of a ball.

namespace velorin {

struct match_state;
struct player_rec;
class random_source;

/// Settles one delivery. Requires striker, non_striker, bowler, the elevens, the four conditions, both pairs of
/// aggressions and the settled meter. Changes ball_outcome only. Draws, after reseeding from the clock, one number.
/// Raises run_time_error (division): a bat_skill of 0, an econ of 0 with a bowling aggression other than 3, or an
/// expectation of exactly 0 balls per wicket; ball_outcome is unchanged then.
void deliver_ball(match_state& match, random_source& chance);

/// The two expectations of a delivery, before the draw.
struct expectations {
  double balls_per_wicket = 0;
  double runs_per_over = 0;
};

/// What a delivery depends on: who meets whom, where, and how.
struct contest {
  const player_rec& batsman;
  const player_rec& bowler;
  int conditions = 0;          ///< pitch surface, bounce, weather and outfield, 1 to 4 each: their sum
  int batting_aggression = 0;  ///< 1 to 5
  int bowling_aggression = 0;  ///< 1 to 5
  double settled_meter = 0;    ///< of the batsman, 0 to 915
  bool higher_slot = false;    ///< his is the higher position at the crease
};

/// The next delivery's, as the match stands.
contest contest_in_play(const match_state& match);

/// What the two expectations of a contest are made of, but for how far the batsman has settled: sums are taken in this
/// order.
struct contest_terms {
  double balls_per_wicket = 0;  ///< by skill and strike rate, with the batsman's aggression
  double runs_per_over = 0;
  double meter_a_ball = 0;     ///< so much of the meter adds a ball per wicket; 0: the meter adds nothing
  double balls_by_bowler = 0;  ///< what the bowler's aggression adds
  double runs_by_bowler = 0;
};

/// Errors as for deliver_ball.
contest_terms terms_of(const contest& met);
/// `batsman` is named where the expectation is exactly 0 balls per wicket, which is a run_time_error (division).
expectations expect_ball(const contest_terms& terms, double settled_meter, const std::string& batsman);

/// Of what the terms of a contest follow within a match.
struct contest_key {
  int innings = 0;
  int striker = 0;
  int bowler = 0;
  int slot = 0;
  int batting_aggression = 0;
  int bowling_aggression = 0;

  bool operator==(const contest_key&) const = default;
};

/// The last contest of each batsman's slot, whose terms need not be reckoned again. Of one match, whose ground,
/// conditions and elevens stay; men yet to come in may change their places.
struct known_contest {
  contest_key key;
  contest_terms terms;
};
using known_contests = std::array<known_contest, 2>;

/// Settles one delivery as the other one does.
void deliver_ball(match_state& match, random_source& chance, known_contests& known);

/// The expectations of a delivery. Errors as for deliver_ball.
expectations expect_ball(const contest& met);

/// The expectations of the next delivery as the match stands. Errors as for deliver_ball.
expectations expect_delivery(const match_state& match);

/// Sizes of the windows on the scale of 1000, in the order of the scale: wicket, one, two, three, four, six, no ball,
/// wide, leg byes, byes. What remains is the dot ball's. Neither clamped nor normalised.
std::array<double, 10> delivery_windows(const expectations& expected);

/// The outcomes whose windows these are, in the order of the scale.
inline constexpr std::array<int, 10> window_outcomes = {wicket,   one_run, two_runs,  three_runs, four_runs,
                                                        six_runs, no_ball, wide_ball, leg_byes,   byes};

/// Draws of 1 to this settle a ball.
inline constexpr int draw_scale = 1000;

/// The outcome on which a draw of 1 to 1000 falls.
int classify(int draw, const std::array<double, 10>& windows);
/// The same by the windows of these expectations, quicker.
int classify(int draw, const expectations& expected);

}  // namespace velorin
