// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/delivery.h"

// The balls of a match that is watched, and the places among them that one jumps to.

namespace velorin {

/// A moment of a match: after a ball with all that followed on it, or before the first ball of an innings.
struct watched_ball {
  int innings = 1;                ///< of the match, 1 or 2
  int balls = 0;                  ///< deliveries of the innings so far; 0 before its first
  delivery bowled;                ///< fresh before the first
  bool milestone = false;         ///< somebody was congratulated
  bool ends_over = false;         ///< also where the innings ended with it
  bool ends_innings = false;      ///< also where the match did
  std::vector<std::string> told;  ///< what was told of it, in single bytes of Windows-1252

  bool opens_innings() const { return balls == 0; }
  bool is_wicket() const { return balls != 0 && bowled.is_wicket(); }
  bool is_boundary() const { return balls != 0 && (bowled.outcome == four_runs || bowled.outcome == six_runs); }
};

using ball_index = std::vector<watched_ball>;

/// What one jumps to.
enum class ball_mark : std::uint8_t { ball, over, wicket, boundary, milestone, innings_end };

/// The place of the next such moment behind `from`. For an over that is its end, or the opening of the next innings;
/// nothing where there is none.
std::optional<int> next_mark(const ball_index& index, int from, ball_mark mark);
/// Likewise before `from`: for an over the end of the one before, or the opening of the innings.
std::optional<int> mark_before(const ball_index& index, int from, ball_mark mark);

/// The first and the last place of the innings in which a place is.
struct innings_span {
  int first = 0;
  int last = 0;
};
innings_span innings_around(const ball_index& index, int place);

}  // namespace velorin
