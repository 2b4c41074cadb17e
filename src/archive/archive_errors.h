// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <SQLiteCpp/Exception.h>

#include <filesystem>
#include <string_view>

namespace velorin {

/// Raises the run_time_error (file) of what SQLite has told: `tried` is what could not be done.
[[noreturn]] void raise_archive_error(std::string_view tried, const SQLite::Exception& cause,
                                      const std::filesystem::path& file);

/// Does something with an archive; what SQLite tells of becomes a run_time_error (file).
template <class Act>
auto with_archive(std::string_view tried, const std::filesystem::path& file, Act act) {
  try {
    return act();
  } catch (const SQLite::Exception& cause) {
    raise_archive_error(tried, cause, file);
  }
}

}  // namespace velorin
