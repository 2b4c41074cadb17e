// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class QtFrontEnd;

// What the entries of the menu open. Each returns when the user is back at the menu; raises what the forms raise, and
// ProgramEnds once the program is ending.

namespace menu {

/// "Start Game".
void new_match(QtFrontEnd& shown_by);
void new_series(QtFrontEnd& shown_by);
void tri_series(QtFrontEnd& shown_by);
void world_cup(QtFrontEnd& shown_by);

/// "Other Records".
void player_profiles();
void team_records();
void world_rankings();

/// Record lists, `record_mode` as they take it.
void totals(int record_mode);
void individual(int record_mode);
void players(int record_mode);
void century_makers();
void partnerships();
/// The lists one after the other, each as the one before is closed.
void all_batting();
void all_bowling();

void configurations();
void credits();

}  // namespace menu
}  // namespace velorin
