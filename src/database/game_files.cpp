// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/game_files.h"

#include <sys/stat.h>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/open_database.h"
#include "model/game_names.h"

namespace velorin {

namespace {

bool is_same_folder(const std::filesystem::path& one, const std::filesystem::path& other) {
  struct stat a {};
  struct stat b {};
  return ::stat(one.c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

std::string game_use_of(const open_database& data, const std::filesystem::path& file) {
  const std::filesystem::path real = real_file(file);
  if (!is_same_folder(folder_of(real), data.files.folder)) return {};
  return std::string(game_use_of_name(real.filename().native()));
}

}  // namespace velorin
