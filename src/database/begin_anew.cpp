// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/begin_anew.h"

#include "database/configuration.h"
#include "database/counted_matches.h"
#include "database/folder_lock.h"
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
  { const staged_files all({database.career_file, database.record_file, counted_file(database)}); }
  staged_files staged({database.career_file, database.record_file});
  staged.write({});
  staged.write({});
  staged.put_in_place();
}

}  // namespace velorin
