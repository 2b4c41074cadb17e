// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

#include "recording/recording.h"

namespace velorin {

/// Opens the line of a recording's last match, so far as it was played; over the form on top, modal.
void open_match_line(recording recorded, std::string name);
/// The same of a recording in a file. Raises what reading it raises.
void open_match_line(const std::filesystem::path& file);

}  // namespace velorin
