// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/standing_orders.h"

#include <cstddef>

#include "model/match_state.h"

namespace velorin {

void follow(const standing_orders& orders, match_state& match) {
  if (match.innings_number != orders.innings || match.over_no > orders.last_over) return;
  const auto level = [](const std::array<int, men_in_eleven + 1>& levels, int position) {
    return levels[static_cast<std::size_t>(position)];
  };
  for (const std::size_t slot : {0U, 1U}) {
    const int laid_down = level(orders.batting, slot == 0 ? match.lower_batsman() : match.higher_batsman());
    if (laid_down != 0) match.batsman_aggression[slot] = laid_down;
  }
  if (const int laid_down = level(orders.bowling, match.bowler); laid_down != 0) {
    match.bowling_aggression[0] = laid_down;
  }
}

}  // namespace velorin
