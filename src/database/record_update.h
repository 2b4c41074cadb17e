// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "database/lasting_records.h"
#include "database/slots.h"
#include "model/match_records.h"

namespace velorin {

struct match_state;
struct open_database;

/// The falls of the wickets of a match that has ended: of the innings in play and of the one before.
struct falls_of_match {
  fall_of_wicket_table in_play;
  fall_of_wicket_table before;
};

/// The file of record lists and team table of the database in use. Raises run_time_error (file), also for one that is
/// not whole.
slot_file whole_records(const open_database& data);

/// Adds the match as it stands at its end to the file, whose lists these are. Raises run_time_error as
/// update_records().
void add_match_to_records(const match_state& match, const open_database& data, slot_file& file, record_lists& lists);

/// The part of it that goes into the five record lists, in memory alone. `record_file` is named in errors. Raises
/// run_time_error (overflow): a total that no list has room for.
void add_match_to_lists(const match_state& match, const std::filesystem::path& record_file, record_lists& lists);

/// The same with falls that are told, for a match without its deliveries, and with the team table. Raises likewise.
void add_match_to_records(const match_state& match, const falls_of_match& falls, const open_database& data,
                          record_lists& lists);

/// Adds the match as it stands at its end to the careers of both elevens, in memory alone. Raises run_time_error as
/// update_career().
void add_match_to_careers(const match_state& match, const open_database& data, career_table& table);

/// Finishes an update of both files that was cut off between them, before one of them is replaced alone. Requires the
/// lock of their folder. Raises run_time_error (file).
void settle_update(const open_database& data);

}  // namespace velorin
