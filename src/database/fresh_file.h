// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <ostream>
#include <string_view>

#include "database/file_buffer.h"
#include "database/file_calls.h"

namespace velorin {

/// A file that a user names for output, anywhere. The content goes to a file of a new name beside it, which takes its
/// place when it is complete; until then an old file stays as it was, and no other file is touched. Written to
/// straight, so that what fails leaves it cut short, is what is no plain file, such as a terminal or a pipe, the file
/// that standard output or standard error goes to, and a file in a folder that takes no new ones or none with so long a
/// name.
class fresh_file {
 public:
  /// Opens the output. Raises run_time_error (file).
  explicit fresh_file(const std::filesystem::path& target);
  /// Drops the content unless it has been put in place.
  ~fresh_file();
  fresh_file(const fresh_file&) = delete;
  fresh_file& operator=(const fresh_file&) = delete;

  /// Takes the content. Goes bad where it cannot be written.
  std::ostream& stream() { return out_; }
  /// Raises the run_time_error (file) for a stream gone bad.
  void require_good() const;

  /// Writes out and synchronises the content and puts it in place. Raises run_time_error (file): the old file is as it
  /// was then, unless it is written to straight, or, if only the folder could not be synchronised, the new one is in
  /// place.
  void put_in_place();

 private:
  bool open_beside();
  void open_straight();
  [[noreturn]] void refuse(std::string_view tried, int cause) const;
  [[noreturn]] void refuse(int cause) const { refuse("The file cannot be written", cause); }

  std::filesystem::path named_;  // as the user did; messages call the file so
  std::filesystem::path target_;
  std::filesystem::path beside_;  // empty while the target is written to straight
  descriptor file_;
  file_buffer buffer_{file_};
  std::ostream out_{&buffer_};
};

}  // namespace velorin
