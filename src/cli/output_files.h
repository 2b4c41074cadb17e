// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "cli/match_run.h"

namespace velorin {
struct open_database;
}  // namespace velorin

namespace velorin::cli {

/// Refuses a file that two of the outputs name, one that the run reads: the files of the database in use, options.mc
/// and `draws` (empty if there is none), and one whose name belongs to the game. What is no plain file may be named
/// again. Raises run_time_error (file).
void require_outputs_apart(const open_database& data, const match_options& options, const std::filesystem::path& draws);

}  // namespace velorin::cli
