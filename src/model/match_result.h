// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "model/match_records.h"

namespace velorin {

/// How a match was decided.
enum class match_decision : std::uint8_t { none, tie, runs, wickets, walkover };

/// How the match ended. Outlives the reset: this is how a competition learns the outcome.
struct match_result {
  match_decision decided = match_decision::none;
  std::string result_ground;
  std::string result_winner;  ///< empty, like result_loser, on a tie
  std::string result_loser;
  std::string result_margin;
  rate_entry rate_first;  ///< the side that batted first
  rate_entry rate_second;
};

}  // namespace velorin
