// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/match_line.h"

#include <functional>
#include <string>
#include <utility>

#include "database/whole_file.h"
#include "desktop/program_end.h"
#include "forecast/forms/match_line_window.h"
#include "recording/recording_file.h"
#include "recording/recording_player.h"

namespace velorin {

namespace {

using EachState = std::function<bool(const match_state&, int place, int count)>;

/// Hands over the first moments of a player's match.
void hand_over(const recording_player& player, int count, const EachState& each) {
  const ball_index& index = player.index();
  for (int place = 0; place < count; ++place) {
    // Between the innings nobody has bowled.
    if (place > 0 && index[static_cast<std::size_t>(place)].opens_innings()) continue;
    if (!each(player.at(place), place, count)) return;
  }
}

}  // namespace

void open_match_line(recording recorded, std::string name) {
  MatchLineWindow window([recorded = std::move(recorded), name = std::move(name)](const auto& each) {
    const recording_player played(recorded, name);
    if (!played.matches().empty()) hand_over(played, static_cast<int>(played.index().size()), each);
  });
  run_modal(window);
}

void open_match_line(const std::filesystem::path& file) { open_match_line(read_recording(file), file_name_text(file)); }

void open_match_line(const recording_player& player, int last_place) {
  MatchLineWindow window([&player, last_place](const auto& each) { hand_over(player, last_place + 1, each); });
  run_modal(window);
}

}  // namespace velorin
