// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "database/agreement.h"
#include "database/configuration.h"

// For the makers of databases: from tables of comma-separated values to the team and the ground file, back again, and
// what is wrong with the four files of a database. All work on the files given and not on the database in use.

namespace velorin {

/// Every fault of the four files, in the order of files, records and fields. The career and the record file may be
/// missing. A record whose bytes cannot be read is one fault, and its fields are not looked at. Careers and records are
/// compared with each other where both can be read without a fault. The files are read under the lock of their folder.
std::vector<database_fault> check_database(const database_files& database);

/// Makes the team and the ground file out of players.csv and grounds.csv in `source`; both go to one folder. Refuses
/// what check_database would call a fault, also of the careers and records that lie beside as far as they are cut
/// short or contradict each other, and then writes nothing. Raises run_time_error: a value, a row or a character that
/// is no good (type, with file, line and column), the 21st team or player (subscript), a record beyond its slot
/// (overflow), a file that cannot be read or written (file). `watcher` is told of a wait for the folder.
void build_database(const std::filesystem::path& source, const std::filesystem::path& team_file,
                    const std::filesystem::path& ground_file, turn_watcher* watcher = nullptr);

/// Writes players.csv and grounds.csv into `folder`, from which build_database makes the same records again, and the
/// careers and records as tables to read: careers.csv, top_scores.csv, top_bowling.csv, highest_totals.csv,
/// lowest_totals.csv, partnerships.csv, team_table.csv. The database is read under the lock of its folder, so all are
/// of one state, unless a killed program has left two. Makes `folder` if there is none. Raises run_time_error: a file
/// that cannot be read or written (file), what cannot be read out of one or kept in a table (type, subscript).
void dump_database(const database_files& database, const std::filesystem::path& folder);

}  // namespace velorin
