// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "archive/archived_match.h"

namespace velorin {

struct database_files;

/// What a check has found. Texts are Windows-1252.
struct archive_findings {
  long matches = 0;         ///< in the archive
  long matches_before = 0;  ///< that the careers counted when it began
  std::vector<std::string> differences;
};

/// Settles the archive and holds it against the careers and records: those on which it began, with each match of it
/// added in its turn, must be those that are there now, field by field. Its own sums are counted anew as well. Takes
/// the lock of the folder to read all files at one time. Raises run_time_error (file).
archive_findings check_archive(const database_files& files);

/// Gives a match as its recording plays it, with its id, key, time and recording.
using match_replayer = std::function<archived_match(const archived_match& kept)>;

/// Writes the archive anew from its matches, with their sums and indices, in place of the old one; a match with a
/// recording is asked of `played`, where that is given. Raises run_time_error (file); the old one is whole then.
void rebuild_archive(const database_files& files, const match_replayer& played = {});

}  // namespace velorin
