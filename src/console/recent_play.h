// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "model/delivery.h"

// What has just happened at the crease, made from the deliveries of the innings in play.

namespace velorin {

struct match_state;

/// A delivery in one or two characters: "0" to "6", "W", "1b" to "4b", "1lb" to "4lb", "nb", "wd".
std::string ball_symbol(const delivery& ball);

/// The last balls that the man at a batting position has faced, oldest first; `most` at the most.
std::vector<std::string> balls_faced(const match_state& match, int position, std::size_t most);
/// The last balls that the man at a bowling position has bowled, no balls and wides with them, oldest first.
std::vector<std::string> balls_bowled(const match_state& match, int position, std::size_t most);

/// What a man has added to his figures in an over.
struct over_share {
  int runs = 0;
  int balls = 0;
  int wickets = 0;  ///< a bowler's
  bool any = false;
};
/// Of the batsman at a position, in the over that has begun last.
over_share batsman_in_last_over(const match_state& match, int position);
/// Of the bowler at a position, in the last over that he has bowled or is bowling.
over_share bowler_in_his_last_over(const match_state& match, int position);

/// The pair at the crease.
struct stand_view {
  int runs = 0;
  int balls = 0;                ///< that counted
  std::array<int, 2> shares{};  ///< runs off the bat in this stand, by the batsmen's slots
};
stand_view view_stand(const match_state& match);

/// An over of the innings in play as a strip shows it.
struct over_in_strip {
  int over = 0;  ///< 1 to 50
  int runs = 0;  ///< as the log has them
  int wickets = 0;
  std::string bowler;
  std::vector<std::string> balls;  ///< symbols of all deliveries, in order
};
/// The last overs that have begun, oldest first; `most` at the most.
std::vector<over_in_strip> last_overs(const match_state& match, int most);

}  // namespace velorin
