// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/file_calls.h"
#include "database/folder_lock.h"

// Files are read and replaced as a whole. A new content goes to "<name>.new" beside the file, is synchronised and
// renamed over the old one: a kill, a full disk or a crash at any moment leaves the old file or the new one. A
// "<name>.new" that a killed program has left is removed by the next replacement of that file.
//
// Files that belong together are all written before the first is renamed, the first to "<name>.new" and the others to
// "<name>.next". The files beside are made from the first to the last, removed from the last to the first and renamed
// from the first to the last. All have the time of writing of the first. So a "<name>.next" without the first file's
// "<name>.new" and as old as the first file is a whole new content whose renaming was cut off, and the next replacement
// of these files begins with finishing it. Where the times differ, or the first file is missing, someone has put
// another file there, a backup perhaps, and the "<name>.next" is taken away instead.

namespace velorin {

/// The name of a file without its folder, as a text for messages.
std::string file_name_text(const std::filesystem::path& file);

/// What is found under a name: nothing, a plain file, or a folder, a link or another thing that is not replaced as one.
enum class occupant { none, plain_file, other };

/// Raises run_time_error (file).
occupant occupant_of(const std::filesystem::path& name);

inline constexpr std::size_t most_mebibytes = 64;  ///< of a file that is read

/// All bytes of a file, or nothing if there is no such file. Raises run_time_error (file), at once for a pipe, a device
/// and a file of more than 64 MiB.
std::optional<std::string> read_file(const std::filesystem::path& file);

/// Creates the file empty if there is none; changes nothing else. Raises run_time_error (file).
void create_if_missing(const std::filesystem::path& file);

/// Files that are replaced together. Requires the lock of their folder.
class staged_files {
 public:
  /// Finishes or takes away what a killed program has left, so it comes before the old files are read. Raises
  /// run_time_error (file).
  explicit staged_files(const std::vector<std::filesystem::path>& targets);
  /// Drops what has been written, unless putting it in place has begun.
  ~staged_files();
  staged_files(const staged_files&) = delete;
  staged_files& operator=(const staged_files&) = delete;

  /// Writes the new content of the next file. Raises run_time_error (file), also for an old file that is protected or
  /// no file: all old files are whole then.
  void write(std::string_view content);

  /// Requires the content of each. Synchronises all, renames one after the other, then synchronises their folders.
  /// Raises run_time_error (file). What fails up to the first renaming leaves all old files as they were. What fails in
  /// a later one the next replacement finishes, once the cause is gone. Where only a folder fails, all files are new.
  void put_in_place();
  /// The first has been renamed: the files are new, or the next replacement makes them so.
  bool begun() const { return begun_; }

  /// Synchronises the folders alone. Raises run_time_error (file).
  void synchronise_folders() const;

 private:
  struct staged_file {
    std::filesystem::path target;
    std::filesystem::path beside;
    descriptor opened;  ///< the file beside, from its writing until it is synchronised
  };

  void settle();
  void remove_beside() const;
  void synchronise();
  /// Keeps the time of writing of the first file, and gives it to the others. A file system that lets no one set times
  /// counts as one that does: there is no way to do better. False leaves the cause in errno.
  bool mark(int number);

  std::vector<staged_file> files_;
  std::size_t written_ = 0;
  timespec time_{};  ///< of writing, of all files
  bool begun_ = false;
};

/// The same for one file. Requires the lock of the folder. Raises run_time_error (file): the old file is whole then,
/// or, if only the folder could not be synchronised, the new one.
void replace_file(const std::filesystem::path& target, std::string_view content);

/// Raises the run_time_error (file) of a system call: what was tried, the cause by its number, the file's name.
[[noreturn]] void raise_file_error(std::string_view tried, int cause, const std::filesystem::path& file);

}  // namespace velorin
