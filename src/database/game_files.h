// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace velorin {

struct open_database;

/// What the game keeps under this name, such as "the elevens", if the name belongs to it whether the file is there or
/// not: those of the settings, the elevens and every database in files.folder, and of what a replacement leaves beside
/// them. Links are followed. "" for any other name. Raises run_time_error (file).
std::string game_use_of(const open_database& data, const std::filesystem::path& file);

}  // namespace velorin
