// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "model/rules.h"

// What a captain has laid down for the men of an innings while the computer leads everything else.

namespace velorin {

struct match_state;

/// Aggressions by position, [1..11]; 0 leaves a man's to the computer. They hold in one innings, whenever the man faces
/// or bowls in an over up to the last: a batsman's for his stay, a bowler's for every spell of his in it.
struct standing_orders {
  int innings = 1;                   ///< of the match, from 1
  int last_over = overs_of_innings;  ///< 1 to 50
  std::array<int, men_in_eleven + 1> batting{};
  std::array<int, men_in_eleven + 1> bowling{};
};

/// Before a ball: sets the aggressions of the pair and of the bowler that are laid down. Changes batsman_aggression and
/// bowling_aggression.
void follow(const standing_orders& orders, match_state& match);

}  // namespace velorin
