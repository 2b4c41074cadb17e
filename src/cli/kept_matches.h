// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/archive_keeper.h"
#include "database/configuration.h"

namespace velorin::cli {

/// Keeps the matches of a run with updates in the archive: several are taken in together, the last ones as this ends.
/// Matches are dated by SOURCE_DATE_EPOCH where the environment has it, so that a run can be repeated to the byte.
class kept_matches {
 public:
  /// Has the files keep their matches. They are copied by those who play; this outlives them.
  explicit kept_matches(database_files& files);
  ~kept_matches();
  kept_matches(const kept_matches&) = delete;
  kept_matches& operator=(const kept_matches&) = delete;

 private:
  archive_keeper keeper_;
  database_files files_;
};

}  // namespace velorin::cli
