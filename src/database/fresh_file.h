// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <fstream>
#include <ostream>

namespace velorin {

/// A file that a user names for output, anywhere. The content goes to a file of a new name beside it, which takes its
/// place when it is complete; until then an old file stays as it was, and no other file is touched. What is no plain
/// file, such as a terminal or a pipe, and a file in a folder that takes no new ones, is written to straight.
class fresh_file {
 public:
  /// Opens the output. good() tells whether that succeeded; nothing is raised.
  explicit fresh_file(const std::filesystem::path& target);
  /// Drops the content unless it has been put in place.
  ~fresh_file();
  fresh_file(const fresh_file&) = delete;
  fresh_file& operator=(const fresh_file&) = delete;

  std::ostream& stream() { return out_; }
  bool good() const { return out_.good(); }

  /// Writes out and synchronises the content and puts it in place. False if that failed: the old file is as it was.
  bool put_in_place();

 private:
  bool open_beside();

  std::filesystem::path target_;
  std::filesystem::path beside_;  // empty while the target is written to straight
  std::ofstream out_;
};

}  // namespace velorin
