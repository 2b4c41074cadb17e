// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/records.h"

namespace velorin {

enum class side { first, second };

/// Writes records 1 to 11 of that side's eleven (team1r.txt or team2r.txt in the folder of the data files). Raises
/// run_time_error: a record beyond 125 bytes (overflow, with the player's name), the file cannot be written (file);
/// the old file is whole then.
void write_eleven(side which, const eleven& men);

/// Reads both elevens into match.batting_xi (first) and match.bowling_xi (second). A missing or short file leaves
/// empty records. Raises run_time_error: a record that is no man (type), a file or its folder that cannot be opened,
/// read or locked (file).
void read_elevens();

/// Exchanges the two elevens by renaming the files, the second by way of dummy.txt. Raises run_time_error (file): both
/// files are as they were then, or, where the renaming cannot be taken back, one of them is dummy.txt. That, like what
/// a killed exchange leaves, is settled by the next write_eleven or swap_elevens. `again`: this exchange has failed
/// before, and is done where settling it is enough.
void swap_elevens(bool again = false);

}  // namespace velorin
