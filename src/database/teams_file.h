// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "model/match_records.h"

namespace velorin {

struct open_database;

/// All teams of the database in use, in file order: element n - 1 is team n, whose record number is n + 1. Raises
/// run_time_error: the file is missing or unreadable (file), more than 20 teams (subscript), a count below 0 or a text
/// beyond its slot (type). The result stays valid until the next call of a function of this page. A file that has not
/// changed since it was last read is not read again, and with files.read_once no file that has been read.
const std::vector<team_rec>& read_team_list(open_database& data);

/// The team in a record of the file, 2 to count + 1. Same errors; a record beyond the file reads as empty.
const team_rec& read_team(open_database& data, int record);

/// Refuses a database of which a file ends before the last of the records that its count tells of, or within it, though
/// each of them could be read as empty. Raises run_time_error (file) that names the file and that record, and what
/// reading raises.
void require_whole_database(open_database& data);

/// Drops what has been kept of both files: the next call reads them, files.read_once or not.
void forget_teams_and_grounds(open_database& data);

/// From here on these are the teams and grounds of the database, which has no files of them: element n - 1 is team n.
void hold_teams_and_grounds(open_database& data, std::vector<team_rec> teams, std::vector<ground_rec> grounds);

/// Calls `visit` for each ground of the database in use, in file order. Errors as for read_grounds().
void scan_grounds(open_database& data, const std::function<void(const ground_rec&)>& visit);

/// All grounds of the database in use, in file order. Errors as for the teams, but no limit of 20.
const std::vector<ground_rec>& read_grounds(open_database& data);

}  // namespace velorin
