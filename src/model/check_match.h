// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velorin {

struct match_state;

/// Tests every invariant of the match in play: runs against balls, cards against totals, positions, quotas, ranges.
/// Returns "" if all hold, else one line that names the first one broken with its figures. To be called after a ball
/// has been booked and before the innings ends. An innings that goes on with the cards of an earlier one (after a first
/// innings of 0) is not judged: "".
std::string check_match(const match_state& match);

}  // namespace velorin
