// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Files are read and replaced as a whole. A new content goes to "<name>.new" beside the file, is synchronised and
// renamed over the old one: a kill, a full disk or a crash at any moment leaves the old file or the new one. A
// "<name>.new" that a killed program has left is removed by the next replacement of that file.

namespace velorin {

/// The name of a file without its folder, as a text for messages.
std::string file_name_text(const std::filesystem::path& file);

/// All bytes of a file, or nothing if there is no such file. Raises run_time_error (file).
std::optional<std::string> read_file(const std::filesystem::path& file);

/// Creates the file empty if there is none; changes nothing else. Raises run_time_error (file).
void create_if_missing(const std::filesystem::path& file);

/// The turn of one program at a folder: while one holds it, another that asks for it waits. The lock is the folder
/// itself and leaves nothing behind. Not recursive: a second lock of the same folder in one program waits for ever.
class folder_lock {
 public:
  /// Takes the turn at the folder in which `file` lies. Raises run_time_error (file).
  explicit folder_lock(const std::filesystem::path& file);
  ~folder_lock();
  folder_lock(const folder_lock&) = delete;
  folder_lock& operator=(const folder_lock&) = delete;

 private:
  int folder_ = -1;
};

/// The new content of a file, written and synchronised beside it. Requires the lock of the folder.
class staged_file {
 public:
  /// Writes the content. Raises run_time_error (file), and leaves nothing behind then.
  staged_file(const std::filesystem::path& target, std::string_view content);
  /// Removes the content unless it has been put in place.
  ~staged_file();
  staged_file(const staged_file&) = delete;
  staged_file& operator=(const staged_file&) = delete;

  /// Renames the content over the target and synchronises the folder. Raises run_time_error (file).
  void put_in_place();

 private:
  std::filesystem::path target_;
  std::filesystem::path beside_;
  bool pending_ = false;
};

/// Both steps for one file. Requires the lock of the folder. Raises run_time_error (file): the old file is whole then.
void replace_file(const std::filesystem::path& target, std::string_view content);

/// Raises the run_time_error (file) of a system call: what was tried, the cause by its number, the file's name.
[[noreturn]] void raise_file_error(std::string_view tried, int cause, const std::filesystem::path& file);

}  // namespace velorin
