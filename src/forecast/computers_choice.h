// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "console/captain_forms.h"

// What the computer would choose in a human captain's stead, and why.

namespace velorin {

struct match_state;

/// A choice of the computer's.
struct computers_choice {
  int choice = 0;      ///< an aggression, or a position of the eleven
  std::string reason;  ///< a sentence of what its rule has looked at; Windows-1252
};

// All of these read the match only and draw nothing from it. Nothing where the computer has no answer as the match
// stands.

/// The aggression of the batsman in slot 0 or 1.
std::optional<computers_choice> computers_batting_aggression(const match_state& match, int slot);
/// The aggression of the bowler of this over (0) or of the next (1).
std::optional<computers_choice> computers_bowling_aggression(const match_state& match, int slot);
/// The row of the man who comes in.
std::optional<computers_choice> computers_next_batsman(const match_state& match, next_batsman_form::use asked);
/// The row of the man who bowls: an opener, or who bowls the over that is to begin.
std::optional<computers_choice> computers_bowler(const match_state& match, bowler_choice_form::use asked);

/// What the computer goes by at the toss.
inline constexpr const char* computers_toss = "The computer lets a coin of its own decide whether to bat or to bowl.";

/// How that coin falls: true to bat. It is tossed apart from the match, whose draws stay as they are; what comes of it
/// is the captain's answer.
bool computers_toss_bats();

}  // namespace velorin
