// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/match_records.h"

// Lines of a card as a test needs them.

namespace velorin {

/// A man of the side in the field, by his position 1 to 11; 0 for nobody.
struct man_in_the_field {
  int position = 0;
  std::string name;
};

/// Writes how a batsman's innings ended on his card: what rules read and what cards show. `bowler` is the name of the
/// bowler, of a run out that of the man who threw; `fielder` is the man who caught or stumped him, the bowler himself
/// where he was caught and bowled. `dismissal::none` takes back what was written.
void put_out(batting_card_rec& card, dismissal how, const std::string& bowler = {},
             const man_in_the_field& fielder = {});

}  // namespace velorin
