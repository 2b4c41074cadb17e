// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

// Programs run as processes of their own, on a folder whose content is known before and looked at afterwards.

namespace velorin::testing {

/// A program to start.
struct program {
  std::vector<std::string> line;         ///< its file, then its arguments
  std::vector<std::string> environment;  ///< "NAME=value", beyond what this process has
  std::function<void()> prepare;         ///< called in the new process ahead of the program; may be empty
};

/// How it ended.
struct ending {
  int status = -1;  ///< exit status; -1 for one that a signal ended
  int signal = 0;   ///< the signal that ended it; 0 for none
  std::string out;
  std::string err;
};

/// Every file below a folder and its bytes, by the path within the folder. A folder has the bytes `a_folder`.
using file_map = std::map<std::string, std::string>;
inline constexpr const char* a_folder = "a folder";

std::string bytes_of_file(const std::filesystem::path& file);

/// Files of the archive of matches, which is no file that is replaced: what they hold is asked of the archive itself.
bool is_of_archive(const std::string& name);

/// A data folder, and room beside it for what programs print. Gone with the object.
class workbench {
 public:
  workbench();
  ~workbench();
  workbench(const workbench&) = delete;
  workbench& operator=(const workbench&) = delete;

  const std::filesystem::path& data() const { return data_; }
  /// A file beside the data folder.
  std::filesystem::path beside(const std::string& name) const { return root_ / name; }

  /// Makes the data folder hold these files and no others.
  void lay_out(const file_map& content) const;
  /// The files of the archive left out.
  file_map found() const;

  /// Starts a program. What it prints, which must be no more than a pipe holds, is told apart by `place`.
  pid_t start(const program& what, int place = 0);
  /// Waits for its end.
  ending end_of(pid_t process, int place = 0);
  /// The ending of a process by the status that waitpid() told.
  ending ending_of(int wait_status, int place = 0);
  ending run(const program& what) { return end_of(start(what)); }

 private:
  std::filesystem::path root_;
  std::filesystem::path data_;
  std::map<int, std::pair<int, int>> printed_;  // pipes of standard output and error, by place
};

}  // namespace velorin::testing
