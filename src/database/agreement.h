// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/lasting_records.h"

// Whether the career file and the file of record lists are whole, and of one state. Reading takes what a file lacks for
// empty, so that a file cut short looks like a small one; who adds to the files asks here first. Every match goes into
// both files, so what the one tells must agree with the other.

namespace velorin {

struct open_database;

struct database_files;
class slot_file;

/// Something wrong in a file. Texts are Windows-1252.
struct database_fault {
  std::string file;   ///< file name without its folder
  long record = 0;    ///< from 1; 0 for the file as a whole
  std::string field;  ///< such as "squad[3].bat_skill"; "" for the record as a whole
  std::string what;
};

/// Where a career file ends before all that its count tells of; nothing if it is whole. An empty file is. A count that
/// cannot be read is no matter of this one.
std::optional<database_fault> incomplete_careers(const slot_file& career_file);
/// The same for the record lists, of which a file that is not empty has all.
std::optional<database_fault> incomplete_records(const slot_file& record_file);

/// Raise the run_time_error (file) of a file that is not whole.
void require_whole_careers(const slot_file& career_file);
void require_whole_records(const slot_file& record_file);

/// Careers and lists of one database, with the names of their files for messages.
struct record_books {
  const career_table& careers;
  const record_lists& lists;
  std::string career_file_name;
  std::string record_file_name;
};

/// Where they contradict each other, in the order of files and records: a team that only one of them knows, matches
/// that only one of them counts, a line of the lists that no career and no row of the team table bears out, and a best
/// of those that should stand in a list and does not. Holds for whatever matches have left behind.
std::vector<database_fault> contradictions(const record_books& books);

/// Raises the run_time_error (file) of the first contradiction.
void require_agreement(const record_books& books);

/// The record lists of a database as the next update finds them: those of a file that an update cut off between its two
/// files has left beside the old one, or the old one's; a missing file is empty. Raises run_time_error (file).
slot_file current_record_file(const database_files& database);

/// Refuses a database that cannot take a match: require_whole_database(), and require_sound_records() where matches are
/// added, under the lock of the folder. Raises run_time_error.
void require_database_for_play(open_database& data);

/// Refuses careers and lists that are not whole or not of one state. Reads both; a missing one is empty. Requires the
/// lock of their folder. Raises run_time_error: as told above, and what reading raises.
void require_sound_records(const database_files& database);

}  // namespace velorin
