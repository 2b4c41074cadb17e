// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

#include "recording/recording.h"

namespace velorin {

class recording_player;

/// Opens the line of a recording's last match, so far as it was played; over the form on top, modal.
void open_match_line(recording recorded, std::string name);
/// The same of a recording in a file. Raises what reading it raises.
void open_match_line(const std::filesystem::path& file);

/// The line of the match at hand of a player, up to one of its moments. The player shows no other match meanwhile.
void open_match_line(const recording_player& player, int last_place);

}  // namespace velorin
