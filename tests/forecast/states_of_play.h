// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
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

/// The ends that a rest of a match can stand before.
enum class end_near {
  innings_over,  ///< the first innings is over, the second has yet to begin
  last_ball,     ///< of either innings
  nine_down,     ///< in either innings
  one_to_win,    ///< the side that bats second is level
  nine_down_one_to_win,
  one_to_win_last_ball,
};
inline constexpr std::array<end_near, 6> all_ends = {
    end_near::innings_over,         end_near::last_ball,           end_near::nine_down, end_near::one_to_win,
    end_near::nine_down_one_to_win, end_near::one_to_win_last_ball};
bool is_before(const match_state& state, end_near end);

/// So many states before an end, of as many matches: those of states_of_a_match() from the seed on. Where one to win is
/// wanted, the side that batted first is given the runs of the one that chases. None lacks men who can bowl.
std::vector<match_state> states_before(end_near end, std::size_t count, std::uint64_t seed);

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
