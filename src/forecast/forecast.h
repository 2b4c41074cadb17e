// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <stop_token>

#include "forecast/match_start.h"
#include "forecast/result_tally.h"

// The rest of a match, played many times by the game's own rules on a chance of its own.

namespace velorin {

struct match_state;

struct forecast_options {
  long runs = 10'000;      ///< 1 or more
  std::uint64_t seed = 1;  ///< the same seed gives the same answer, for any number of threads
  int threads = 1;         ///< 1 or more
  std::stop_token stop;    ///< asked to stop, the forecast returns what it has
};

/// Plays the rest of the match many times; the computer leads both sides from there on. The match is only read, and
/// draws nothing. Requires can_be_forecast(). Raises run_time_error: bowlers whom the computer cannot rank.
forecast_answer forecast_rest(const match_state& match, const forecast_options& options);
forecast_answer forecast_rest(const match_start& start, const forecast_options& options);

/// What the next ball can be.
struct next_ball {
  double wicket = 0;
  std::array<double, 7> runs{};  ///< [0..6] off the bat; [5] is 0
  double no_ball = 0;
  double wide = 0;
  double leg_byes = 0;
  double byes = 0;
};

/// The chances of the next ball, exact, by the windows of its draw; they sum to 1. Nothing where the pair or the bowler
/// of the next ball is not known, the match is over, or the model has no answer.
std::optional<next_ball> odds_of_next_ball(const match_state& match);
/// The same with both sides led by the computer from the start on, an open toss
/// falling either way as often. Nothing where no ball comes any more, or the model has no answer.
std::optional<next_ball> odds_of_next_ball(const match_start& start);

}  // namespace velorin
