// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Careers and records begun anew: the files stay, and nothing stands in them.

namespace velorin {

struct database_files;

/// True if anything stands in the careers or the records of a database, whole or not.
bool has_careers_or_records(const database_files& database);

/// Empties careers and records, both together and under the lock of their folder; where there are none, makes them
/// empty. Empties what the keeper of the files has kept as well. What they hold is lost, whole or not. Raises
/// run_time_error (file): both files are as they were then, or as match_update::run() tells of a failure in between.
void begin_careers_anew(const database_files& database);

}  // namespace velorin
