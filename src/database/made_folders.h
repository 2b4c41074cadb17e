// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

namespace velorin {

/// The folders that were missing on the way to a folder, made for files to come. They are gone with the object, as far
/// as they are empty, unless they are kept.
class made_folders {
 public:
  /// Makes the folder and those above it. Raises run_time_error (file), and leaves nothing behind then.
  explicit made_folders(const std::filesystem::path& folder);
  ~made_folders();
  made_folders(const made_folders&) = delete;
  made_folders& operator=(const made_folders&) = delete;

  void keep() { made_.clear(); }

 private:
  void remove();

  std::vector<std::filesystem::path> made_;  // the outermost first
};

}  // namespace velorin
