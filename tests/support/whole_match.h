// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velorin {
struct match_state;
}

namespace velorin::testing {

/// All that a match holds of its play, in one text: the deliveries, both cards of both sides, who is where, the totals,
/// the figures of the console, the computer's lists. Two matches with the same text go on alike from the same draws.
std::string whole_match(const match_state& match);

}  // namespace velorin::testing
