// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "model/match_state.h"

// The computer captain's rules written a second time, as plainly as they can be told: bubble sorts, walks from place to
// place, one branch for each stage of an innings. Slow, and only there to be compared with the captain of the game. All
// work on the match that they are given and on nothing else.

namespace velorin::testing::rules {

/// A whole number, an exact half to the even neighbour.
double half_even(double value);

/// Brings the next man in: reorders batting_xi, sets next_batsman_slot.
void next_batsman(match_state& m);

/// Builds bowler_pool for an innings' offset, -10 to 10, and names bowler and next_bowler.
void opening_bowlers(match_state& m, int offset);

/// Sets batsman_aggression. Requires batting skills other than 0.
void batting_aggression(match_state& m);

/// What a review has to say.
struct review_result {
  std::optional<std::string> announcement;  ///< text of the message, if there is one
  bool nobody_found = false;                ///< a search ended without a man; the match is as the search left it
};

/// Reviews the man who has just bowled and sets bowling_aggression[0].
review_result review(match_state& m);

}  // namespace velorin::testing::rules
