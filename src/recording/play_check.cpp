// SPDX-License-Identifier: GPL-3.0-or-later
// The state of play that a recording holds on to.
#include <algorithm>

#include "model/delivery.h"
#include "recording/packing.h"
#include "recording/recording.h"

namespace velorin {

recorded_check check_of(const match_state& match) {
  std::uint32_t sum = 0;
  for (const delivery_list* list : {&match.first_deliveries, &match.deliveries}) {
    // Only the balls of the over that has just ended have changed; those before it were checked before.
    const std::size_t from = list->size() - std::min<std::size_t>(list->size(), 8);
    for (std::size_t i = from; i < list->size(); ++i) {
      const delivery& ball = (*list)[i];
      const auto aggressions = static_cast<std::uint8_t>(ball.batting_aggression * 8 + ball.bowling_aggression);
      const std::uint64_t figures =
          std::uint64_t{aggressions} << 56 | std::uint64_t{static_cast<std::uint8_t>(ball.how)} << 48 |
          std::uint64_t{ball.extras} << 40 | std::uint64_t{ball.fielder} << 32 | std::uint64_t{ball.outcome} << 24 |
          std::uint64_t{ball.striker} << 16 | std::uint64_t{ball.bowler} << 8 | ball.over;
      sum = crc_32_of_eight(figures, sum);
    }
  }
  packer rest;
  rest.number(static_cast<std::uint64_t>(match.score_runs));
  rest.number(static_cast<std::uint64_t>(match.score_wickets));
  rest.number(match.deliveries.size());
  rest.number(match.first_deliveries.size());
  return {crc_32(rest.bytes(), sum)};
}

}  // namespace velorin
