// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

// How the innings have gone, over by over: what the console's small charts show.

namespace velorin {

struct match_state;

/// An innings after one of its overs.
struct over_stage {
  int over = 0;                         ///< 1 to 50
  int runs = 0;                         ///< of this over, as the log has them
  int wickets = 0;                      ///< in this over
  int score = 0;                        ///< the side's runs after it
  int balls = 0;                        ///< of the innings after it
  double run_rate = 0;                  ///< runs an over so far; 0 without a ball
  std::optional<double> required_rate;  ///< in a chase: what is asked from here on; nothing once it is made or lost
};

/// The innings in play, up to its last ball.
std::vector<over_stage> course_in_play(const match_state& match);
/// The innings before it; empty in a first innings.
std::vector<over_stage> course_before(const match_state& match);

}  // namespace velorin
