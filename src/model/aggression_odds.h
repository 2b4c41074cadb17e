// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>

#include "model/rules.h"

// What an aggression is expected to bring, in words a captain uses: runs an over and balls for a wicket.

namespace velorin {

struct ball_odds {
  double runs_an_over = 0;    ///< the side's, off six balls; what is a no ball or a wide is bowled again
  double balls_a_wicket = 0;  ///< of those that are not bowled again, until one falls; 0: none ever does
};

/// What each aggression would bring, [0..4] for 1 to 5; nothing where the model has no answer.
using aggression_odds = std::array<std::optional<ball_odds>, most_aggression>;

/// "5.9 an over, a wicket every 29 balls"; "-" for no answer.
std::string odds_sentence(const std::optional<ball_odds>& odds);

}  // namespace velorin
