// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/match_line.h"

#include <string>
#include <utility>

#include "database/whole_file.h"
#include "desktop/program_end.h"
#include "forecast/forms/match_line_window.h"
#include "recording/recording_file.h"
#include "recording/recording_player.h"

namespace velorin {

void open_match_line(recording recorded, std::string name) {
  MatchLineWindow window([recorded = std::move(recorded), name = std::move(name)](const auto& each) {
    const recording_player played(recorded, name);
    if (played.matches().empty()) return;
    const ball_index& index = played.index();
    const int count = static_cast<int>(index.size());
    for (int place = 0; place < count; ++place) {
      // Between the innings nobody has bowled.
      if (place > 0 && index[static_cast<std::size_t>(place)].opens_innings()) continue;
      if (!each(played.at(place), place, count)) return;
    }
  });
  run_modal(window);
}

void open_match_line(const std::filesystem::path& file) { open_match_line(read_recording(file), file_name_text(file)); }

}  // namespace velorin
