// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forecast/rest_player.h"
#include "model/match_state.h"

namespace velorin::testing {

/// States of a match of the sample sides, whose ratings, roles and conditions follow from the seed, as is who captains.
/// Taken at any step of play: about one in `every`, more of those that are near an end; none
/// after the decision.
std::vector<match_state> states_of_a_match(std::uint64_t seed, int every);

/// How the ordinary engine ends the match from a state, both sides led by the computer, and what it drew for it.
struct ordinary_end {
  played_rest rest;
  std::uint64_t draws = 0;
};
ordinary_end played_ordinarily(const match_state& state, random_source chance);
/// The same, with the match handed to `before_ball` before each delivery.
ordinary_end played_ordinarily(const match_state& state, random_source chance,
                               const std::function<void(match_state&)>& before_ball);

/// A state in words, for messages.
std::string described(const match_state& state);

}  // namespace velorin::testing
