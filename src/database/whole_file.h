// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Files are read and replaced as a whole. A new content goes to "<name>.new" beside the file, is synchronised and
// renamed over the old one: a kill, a full disk or a crash at any moment leaves the old file or the new one. A
// "<name>.new" that a killed program has left is removed by the next replacement of that file. Files that belong
// together are all written before the first is renamed, so that only an end of the program between two renames, or a
// rename that fails, leaves some new and some old.

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

  /// Renames the content over the target. Raises run_time_error (file).
  void rename_over();
  /// Makes that last, by synchronising the folder. Raises run_time_error (file).
  void synchronise() const;

  /// Both files lie in one folder.
  bool beside(const staged_file& other) const { return target_.parent_path() == other.target_.parent_path(); }

 private:
  std::filesystem::path target_;
  std::filesystem::path beside_;
  bool pending_ = false;
};

/// Files that are replaced together. Requires the lock of their folder.
class staged_files {
 public:
  /// Writes the content of one more. Raises run_time_error (file): all old files are whole then.
  void add(const std::filesystem::path& target, std::string_view content);

  /// Renames one after the other, then synchronises their folders. Raises run_time_error (file): the files before the
  /// one that it names are new then, and the others old.
  void put_in_place();

 private:
  std::vector<std::unique_ptr<staged_file>> files_;
};

/// The same for one file. Requires the lock of the folder. Raises run_time_error (file): the old file is whole then,
/// or, if only the folder could not be synchronised, the new one.
void replace_file(const std::filesystem::path& target, std::string_view content);

/// Raises the run_time_error (file) of a system call: what was tried, the cause by its number, the file's name.
[[noreturn]] void raise_file_error(std::string_view tried, int cause, const std::filesystem::path& file);

}  // namespace velorin
