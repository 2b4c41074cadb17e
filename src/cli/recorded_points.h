// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/match_state.h"
#include "recording/recording.h"
#include "recording/replay.h"

// The moments of a recorded match that are asked for by innings and overs.

namespace velorin::cli {

/// "2:31.4", innings 1 or 2 and overs 0.0 to 50.0; nothing if the text is none.
std::optional<innings_place> parse_place(const std::string& text);
std::string text_of(innings_place place);
/// For options: what is wrong with a text that is no place, or nothing.
std::string is_place(const std::string& text);

struct asked_points {
  std::vector<innings_place> places;  ///< none: the end of the recording
  bool each_over = false;             ///< instead: as each innings opens, after each over, and the end
};

struct recorded_points {
  std::vector<match_state> states;       ///< one a place, in the order asked for
  std::optional<innings_place> missing;  ///< a place that the match never reached; the states are left out then
};

/// Plays a recording to its end and keeps the match as it stood at each point, the first moment of it that counts. Of a
/// competition: the last match in which every place was reached; without places, the last that was begun. No states
/// where its elevens are not known yet. Raises what replay() raises.
recorded_points states_of(const recording& recorded, const std::string& name, const asked_points& asked);

}  // namespace velorin::cli
