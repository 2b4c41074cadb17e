// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/game_state.h"
#include "recording/recording.h"

namespace velorin {

/// Makes it what a game begins with, as it is entered; id, date and program stay. True if teams and grounds are those
/// that it had before. Reads teams and grounds; raises what reading them raises.
bool begin(recorded_beginning& begun, const entered_game& entered, game_state& game);

}  // namespace velorin
