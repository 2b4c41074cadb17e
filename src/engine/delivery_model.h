// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

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

}  // namespace velorin
