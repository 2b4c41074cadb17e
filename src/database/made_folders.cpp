// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/made_folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "database/whole_file.h"

namespace velorin {

namespace fs = std::filesystem;

namespace {

/// Whether anything has this name. Raises run_time_error (file).
bool is_there(const fs::path& folder) {
  struct stat facts {};
  if (::stat(folder.c_str(), &facts) == 0) return true;
  if (errno != ENOENT) raise_file_error("The folder cannot be made", errno, folder);
  return false;
}

}  // namespace

made_folders::made_folders(const fs::path& folder) {
  std::vector<fs::path> missing;
  for (fs::path name = folder; !name.empty() && !is_there(name); name = name.parent_path()) {
    if (name.has_filename()) missing.push_back(name);  // else a slash ends the name
  }
  for (; !missing.empty(); missing.pop_back()) {
    if (::mkdir(missing.back().c_str(), 0777) == 0) {
      made_.push_back(missing.back());
    } else if (errno != EEXIST) {  // another program was faster
      const int cause = errno;
      remove();
      raise_file_error("The folder cannot be made", cause, missing.back());
    }
  }
}

made_folders::~made_folders() { remove(); }

void made_folders::remove() {
  for (; !made_.empty(); made_.pop_back()) ::rmdir(made_.back().c_str());
}

}  // namespace velorin
