// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "model/match_records.h"
#include "setup/team_selection.h"

// Auto Select and the order of a squad written a second time, as plainly as they can be told, with bubble sorts over
// the texts that the screen shows. Only there to be compared with those of the game.

namespace velorin::testing::rules {

/// The boxes after Auto Select, and whether it came to an end.
struct auto_selection {
  std::array<bool, 21> ticks{};
  bool endless = false;
};

/// What Auto Select makes of a screen, whose boxes are left alone.
auto_selection auto_select(const team_selection_form& form);

/// The order of the screen.
void order_squad(squad& men);

}  // namespace velorin::testing::rules
