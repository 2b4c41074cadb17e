// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "desktop/table.h"

namespace velorin {

struct match_state;

/// The whole attack, ranked, a column for each of the figures.
Table attack_table(const match_state& match);
/// What a card tells besides runs, balls and strike rate.
enum class CardDetail {
  runs,        ///< nothing
  boundaries,  ///< fours and sixes
  dismissals,  ///< and how they were out
};
/// The batting side as far as it has come; the row's id is the man's position.
Table batting_table(const match_state& match, CardDetail detail, bool short_names = false);

/// The stand at the crease in a line: runs, balls, each man's share.
std::string stand_line(const match_state& match);

/// The console's line of the last wicket, or what stands there before the first.
std::string last_wicket_line(const match_state& match);

}  // namespace velorin
