// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "model/run_time_error.h"

// What the fuzzers share. A target takes one input, does with it what the game or the companion would do with such a
// file, and ends the process by require() where a promise is broken. Any exception but run_time_error, and whatever the
// sanitizers see, ends it too.

namespace velorin::fuzz {

/// A folder of this process, made at the first call, in the folder for temporary files. It goes with the process, but a
/// finding leaves it there, with the files as they were in that moment.
const std::filesystem::path& scratch();

/// Blank records and settings, chance from a fixed seed, and the database "base" in scratch() in use, with updates.
void fresh_state();

/// The folder of the small database's tables.
std::filesystem::path small_tables();

/// Replaces a file without any of the care that the game takes.
void write_bytes(const std::filesystem::path& file, std::string_view bytes);
std::string bytes_of(const std::filesystem::path& file);

/// Ends the process with a report unless `kept`.
void require(bool kept, std::string_view promise, std::string_view shown = {});

/// Requires that an error is one line that names the file and the field, or the line of a table.
void require_named(const run_time_error& error, std::string_view file);

/// True if the procedure ran to its end, false if it raised a run_time_error that names `file`.
template <typename Procedure>
bool done(std::string_view file, Procedure procedure) {
  try {
    procedure();
    return true;
  } catch (const run_time_error& error) {
    require_named(error, file);
    return false;
  }
}

/// Requires that a file has these bytes and no others.
void require_bytes(const std::filesystem::path& file, std::string_view bytes);

/// Writes a file whose bytes must still be there when the object goes. They must outlive it.
class unchanged {
 public:
  unchanged(std::filesystem::path file, std::string_view bytes);
  ~unchanged();
  unchanged(const unchanged&) = delete;
  unchanged& operator=(const unchanged&) = delete;

 private:
  std::filesystem::path file_;
  std::string_view bytes_;
};

}  // namespace velorin::fuzz
