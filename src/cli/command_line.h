// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace velorin {
class turn_watcher;
}  // namespace velorin

namespace velorin::cli {

/// Where a command writes. Results go to `out`, messages for people to `err`.
struct streams {
  std::ostream& out;
  std::ostream& err;
};

/// What stands before the command.
struct program_options {
  std::filesystem::path teams_dir;
  std::string database;  ///< base name as given; empty: to be found
  std::optional<std::uint64_t> seed;
  std::filesystem::path draws;      ///< empty: none
  turn_watcher* watcher = nullptr;  ///< is told of waits for a folder; nullptr for nobody

  /// The same arguments give the same output.
  bool reproducible() const { return seed.has_value() || !draws.empty(); }
};

/// Exit statuses of the program.
enum exit_status : int { done = 0, failed = 1, wrong_usage = 2 };

/// Runs the program on its arguments, without the program's name. `program_folder` is where it lies. Returns the exit
/// status; an error is one line on err. `watcher`, which may be nullptr, is told of waits for a folder.
int run(const std::vector<std::string>& arguments, const std::filesystem::path& program_folder, streams io,
        turn_watcher* watcher = nullptr);

}  // namespace velorin::cli
