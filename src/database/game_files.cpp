// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/game_files.h"

#include <sys/stat.h>

#include "database/configuration.h"
#include "database/file_calls.h"

namespace velorin {

namespace {

struct kept {
  const char* name;
  const char* use;
};

constexpr kept names[] = {{"options.mc", "the settings"},
                          {"team1r.txt", "the elevens"},
                          {"team2r.txt", "the elevens"},
                          {"dummy.txt", "the elevens"}};

constexpr kept endings[] = {{".team", "the teams"},  {".grd", "the grounds"},        {".rec", "the careers"},
                            {".ptr", "the records"}, {".new", "an unfinished save"}, {".next", "an unfinished save"}};

bool is_same_folder(const std::filesystem::path& one, const std::filesystem::path& other) {
  struct stat a {};
  struct stat b {};
  return ::stat(one.c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

}  // namespace

std::string game_use_of(const std::filesystem::path& file) {
  const std::filesystem::path real = real_file(file);
  if (!is_same_folder(folder_of(real), files.folder)) return {};
  for (const kept& one : names) {
    if (real.filename() == one.name) return one.use;
  }
  for (const kept& one : endings) {
    if (real.filename().native().ends_with(one.name)) return one.use;
  }
  return {};
}

}  // namespace velorin
