// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/delivery.h"
#include "model/match_records.h"

// The commentary of an innings: lines made from its deliveries and cards.

namespace velorin {

/// What a line of the commentary is.
enum class line_kind : std::uint8_t {
  ball,  ///< a ball but for those below
  four,  ///< four runs off the bat
  six,
  wicket,       ///< the ball of a dismissal
  wicket_card,  ///< the dismissal, its figures, the rules around them
  over_end,     ///< of the block at the end of an over
};

struct commentary_line {
  std::string text;
  line_kind kind = line_kind::ball;
};

/// An innings as those need it who tell of its balls. The figures are those that it has come to; what they were at an
/// earlier ball follows from the deliveries since.
struct told_innings {
  std::span<const delivery> deliveries;
  const batting_card_table& batting;
  const bowling_card_table& bowling;
  std::string_view team;  ///< the side that bats
  int score_runs = 0;
  int score_wickets = 0;
  int innings_balls = 0;
  int overs_closed = 0;         ///< the number of the last over that has come to its end, 0 for none
  bool last_ball_open = false;  ///< the balls of innings and bowler do not count the last delivery yet
};

/// All lines, in order.
std::vector<commentary_line> tell(const told_innings& innings);

/// How many lines that makes.
int count_lines(std::span<const delivery> deliveries, int overs_closed);

/// Whether it is more than most_stored_lines.
bool has_too_many_lines(std::span<const delivery> deliveries, int overs_closed);

/// Places of the store that keeps the commentary of the first innings, and the lines that fit: the end marker stands
/// two places behind the last.
inline constexpr int commentary_places = 1500;
inline constexpr int most_stored_lines = commentary_places - 2;

}  // namespace velorin
