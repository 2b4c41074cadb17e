// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

#include "engine/delivery_model.h"
#include "model/aggression_odds.h"

// What the model of a delivery promises, in words a captain uses: runs an over and balls for a wicket. Exact, from the
// windows of the draw; nothing is drawn.

namespace velorin {

struct match_state;

/// How many of the 1000 draws end in each outcome, [0..11] by the codes of `outcome`.
using outcome_draws = std::array<int, 12>;
/// Sums to 1000. Windows as delivery_windows() gives them: one that is not above 0, or lies beyond the scale, has none.
outcome_draws draws_of(const std::array<double, 10>& windows);

/// Byes and leg byes are one to four, each as likely.
inline constexpr double mean_body_extras = 2.5;

/// Requires a draw that is neither a no ball nor a wide; without one all is 0.
ball_odds odds_of(const outcome_draws& draws);
/// Errors as for deliver_ball.
ball_odds odds_of(const contest& met);

/// For the batsman in a slot, 0 the lower position at the crease, 1 the higher: against the bowler of this over.
aggression_odds batting_odds(const match_state& match, int slot);
/// For the bowler of this over (0) or the next (1): against the man on strike. The batsman's aggression stays.
aggression_odds bowling_odds(const match_state& match, int slot);

/// For a man of the batting eleven, 1 to 11, who comes in anew as the higher of the pair.
aggression_odds newcomer_odds(const match_state& match, int man);

/// The runs an over that the batsman in a slot is worth more for being settled, against the bowler of this over;
/// nothing where the model has no answer.
std::optional<double> meter_worth(const match_state& match, int slot);

}  // namespace velorin
