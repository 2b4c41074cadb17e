// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/begin_anew.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "database/configuration.h"
#include "database/folder_lock.h"
#include "database/match_keeper.h"
#include "database/whole_file.h"

namespace velorin {

bool has_careers_or_records(const database_files& database) {
  for (const std::filesystem::path& file : {database.career_file, database.record_file}) {
    std::error_code failed;
    const std::uintmax_t size = std::filesystem::file_size(file, failed);
    if (!failed && size > 0) return true;
  }
  return false;
}

void begin_careers_anew(const database_files& database) {
  const folder_lock turn(database.career_file, database.watcher);
  // What a killed program has left of an update is settled as a whole first.
  { const staged_files all(update_files(database)); }
  std::vector<std::filesystem::path> files = {database.career_file, database.record_file};
  match_keeper* const keeper = database.keeper;
  if (keeper != nullptr) files.push_back(waiting_file(database));
  staged_files staged(files);
  staged.write({});
  staged.write({});
  if (keeper != nullptr) staged.write(keeper->waiting_anew(database, read_file(files.back()).value_or("")));
  staged.put_in_place();
  if (keeper != nullptr) keeper->take_in(database);
}

}  // namespace velorin
