// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "database/open_database.h"
#include "model/match_state.h"

namespace velorin {

/// Writes records 1 to 11 of that side's eleven (team1r.txt or team2r.txt in the folder of the data files). Raises
/// run_time_error: a record beyond 125 bytes (overflow, with the player's name), the file cannot be written (file);
/// the old file is whole then.
void write_eleven(open_database& data, side which, const eleven& men);

/// Reads both elevens into match.batting_xi (first) and match.bowling_xi (second). A missing or short file leaves
/// empty records. Raises run_time_error: a record that is no man (type), a file or its folder that cannot be opened,
/// read or locked (file).
void read_elevens(match_state& match, const open_database& data);

/// Exchanges the two elevens by renaming the files, the second by way of dummy.txt. Raises run_time_error (file): both
/// files are as they were then, or, where the renaming cannot be taken back, one of them is dummy.txt. That, like what
/// a killed exchange leaves, is settled by the next write_eleven or swap_elevens. `again`: this exchange has failed
/// before, and is done where settling it is enough.
void swap_elevens(open_database& data, bool again = false);

/// The files of the elevens as they stand before a set-up, for a user who leaves it. Nothing is kept of one that cannot
/// be read, nor while the elevens travel in memory, where nobody meets them.
eleven_files_before read_elevens_before(const open_database& data);

/// Puts back what write_eleven has written of these elevens since, the first side's and the second's, without an
/// exchange; a file that was not there is taken away. What another program has written since stays. Raises
/// run_time_error (file).
void put_back_elevens(const open_database& data, const eleven_files_before& before,
                      const std::array<eleven, 2>& written);

}  // namespace velorin
