// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Playing on to a place further on, over after over: which places there are, and when one is reached.

namespace velorin {

struct match_state;

/// Where play may be asked to go on to. Whatever it is, the end of the innings or of the match ends it too.
enum class skip_target : std::uint8_t {
  next_wicket,
  end_of_spell,  ///< the man who bowls the next ball has bowled his overs or has been taken off
  over_10,       ///< ten overs of the innings have been bowled; and so on
  over_20,
  over_30,
  over_40,
  end_of_innings
};

inline constexpr std::array every_skip_target = {
    skip_target::next_wicket, skip_target::end_of_spell, skip_target::over_10,       skip_target::over_20,
    skip_target::over_30,     skip_target::over_40,      skip_target::end_of_innings};

/// The over to whose end a target leads: 10, 20, 30 or 40; 0 for the other targets.
int over_of(skip_target target);

/// The target is still to come in the innings in play.
bool is_ahead(const match_state& match, skip_target target);

/// The target itself where it is ahead; of an over that is past, the next over told that is ahead, or else the end of
/// the innings.
skip_target nearest_ahead(const match_state& match, skip_target target);

/// A target, and the match as it stood where play set out for it.
struct skip {
  skip_target target = skip_target::next_wicket;
  int innings = 0;        ///< number of the innings in the match
  int wickets = 0;        ///< down
  std::size_t balls = 0;  ///< deliveries of the innings
};

skip skip_from(const match_state& match, skip_target target);

/// The match stands at the end of the skip: after the ball of the wicket, else after an over. Requires that play awaits
/// a ball or an over, or is closed.
bool is_reached(const match_state& match, const skip& on_way);

}  // namespace velorin
