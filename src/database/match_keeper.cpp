// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/match_keeper.h"

#include "database/configuration.h"
#include "database/counted_matches.h"

namespace velorin {

std::filesystem::path waiting_file(const database_files& files) {
  return std::filesystem::path(files.career_file).replace_extension(".waiting");
}

std::vector<std::filesystem::path> update_files(const database_files& files) {
  return {files.career_file, files.record_file, counted_file(files), waiting_file(files)};
}

}  // namespace velorin
