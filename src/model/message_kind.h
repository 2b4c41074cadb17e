// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velorin {

/// What a message of the game tells of. All but `other` come in a match, need no answer, and may pass by.
enum class message_kind : std::uint8_t {
  other,
  toss_call,
  opening_bowlers,
  bowler_change,
  full_quota,
  fall_of_wicket,
  batting_milestone,  ///< of fifty runs and its odd multiples
  hundred,            ///< of a hundred runs and its multiples
  bowling_milestone,
  stand_milestone,
  end_of_innings,
  end_of_match,
};

}  // namespace velorin
