// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <string_view>
#include <utility>

// Calls of the system on files, for those who replace files. An interruption ends none of them, and a write that took
// a part of the bytes goes on. Nothing is raised unless told: false or -1 leaves the cause in errno.

namespace velorin {

/// The number of the opened file, which programs started by this one do not inherit; -1 if that failed.
int open_file(const std::filesystem::path& file, int flags, mode_t mode = 0);

bool write_all(int number, std::string_view content);
bool synchronise_file(int number);
/// Has the system begin to write what synchronise_file() will wait for: files begun together are done sooner than one
/// after the other. A hint, which not every system takes; false only if the system tells that it cannot write.
bool begin_to_synchronise(int number);
bool rename_file(const std::filesystem::path& from, const std::filesystem::path& to);

/// Synchronises a folder. One that cannot be opened for its rights, and a file system that knows no such thing, count
/// as synchronised: there is no way to do better.
bool synchronise_folder(const std::filesystem::path& folder);

/// Makes a program fail in words however it has been started. A standard descriptor that is closed would go to the next
/// file opened, a database perhaps: it is given to what can be neither read nor written. A file that may grow no more
/// fails to be written, where a signal would end the program. False if it could not be done.
bool prepare_process();

/// An open file that closes itself.
class descriptor {
 public:
  explicit descriptor(int number = -1) : number_(number) {}

  descriptor(descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  ~descriptor() { close(); }
  descriptor& operator=(descriptor&& other) noexcept {
    take(std::exchange(other.number_, -1));
    return *this;
  }
  descriptor(const descriptor&) = delete;
  descriptor& operator=(const descriptor&) = delete;

  int number() const { return number_; }
  bool open() const { return number_ >= 0; }
  /// Takes another file, and closes the one before.
  void take(int number);
  /// Closes now, if it is open.
  bool close();

 private:
  int number_;
};

/// The file that a name stands for: where the name is a symbolic link, the file at its end, which need not be there.
/// Raises run_time_error (file).
std::filesystem::path real_file(const std::filesystem::path& file);

/// True if a file that is there can be opened for writing. A folder cannot, and who has protected a file does not want
/// it replaced either.
bool may_be_written(const std::filesystem::path& file);

/// The folder of a file; "." for a name alone.
std::filesystem::path folder_of(const std::filesystem::path& file);

}  // namespace velorin
