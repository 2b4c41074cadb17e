// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

struct match_state;

/// Returns the match to a blank slate: sides (computer_bats and computer_bowls become true), position, totals, books,
/// achievements, conditions and ground, set-up, bowler pool, and the place of play. The result block, the console's
/// values and the worm stay.
void reset_match(match_state& match);

}  // namespace velorin
