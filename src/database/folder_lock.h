// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>

#include "database/file_calls.h"

namespace velorin {

/// How long a program waits for its turn at a folder.
inline constexpr std::chrono::seconds longest_wait_for_turn{10};

/// Is told while a turn is waited for, so that the user can be.
class turn_watcher {
 public:
  virtual ~turn_watcher() = default;
  /// The turn at this folder has been waited for so long; told some twenty times a second. What it raises ends the
  /// wait.
  virtual void turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) = 0;
  /// The wait is over, whether the turn has come or not.
  virtual void wait_is_over() = 0;
};

/// The turn of one program, or one thread of it, at a folder: while one holds it, another that asks for it waits. The
/// lock is the folder itself and leaves nothing behind. Not recursive: a second lock of the same folder in one thread
/// is never granted.
class folder_lock {
 public:
  /// Takes the turn at the folder in which `file` lies. Tells `watcher`, unless it is nullptr, of a wait. Raises
  /// run_time_error (file), also after ten seconds in which another program has kept it.
  folder_lock(const std::filesystem::path& file, turn_watcher* watcher);
  folder_lock(const folder_lock&) = delete;
  folder_lock& operator=(const folder_lock&) = delete;

 private:
  descriptor folder_;
};

}  // namespace velorin
