// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace velorin {

class QtFrontEnd;

// What the entries of the menu open. Each returns when the user is back at the menu; raises what the forms raise, and
// ProgramEnds once the program is ending.

namespace menu {

/// Goes on with a game that is kept, at the place where it was left. One that cannot be gone on with is told.
void go_on(QtFrontEnd& shown_by, const std::filesystem::path& game);
/// Takes a game from anywhere among the user's games; one that is there already stays the one it is. Returns its file;
/// empty where the file holds no game, which is told.
std::filesystem::path take_in(QtFrontEnd& shown_by, const std::filesystem::path& file);
/// Opens a game of any file: one that is over is watched, any other taken in and gone on with.
void open(QtFrontEnd& shown_by, const std::filesystem::path& file);
/// The list of the games that are kept.
void saved_games(QtFrontEnd& shown_by);

/// "Start Game".
void new_match(QtFrontEnd& shown_by);
void quick_match(QtFrontEnd& shown_by);
void new_series(QtFrontEnd& shown_by);
void tri_series(QtFrontEnd& shown_by);
void world_cup(QtFrontEnd& shown_by);

/// "Other Records".
void player_profiles(QtFrontEnd& shown_by);
void team_records(QtFrontEnd& shown_by);
void world_rankings(QtFrontEnd& shown_by);
/// Questions to the archive of matches, and the pages to which their answers lead.
void record_book(QtFrontEnd& shown_by);

/// The window of all record lists, opened on one of them; `record_mode` as its form takes it.
void totals(QtFrontEnd& shown_by, int record_mode);
void individual(QtFrontEnd& shown_by, int record_mode);
void players(QtFrontEnd& shown_by, int record_mode);
void century_makers(QtFrontEnd& shown_by);
void partnerships(QtFrontEnd& shown_by);
/// The lists of a group one after the other, each as the one before is closed.
void all_batting(QtFrontEnd& shown_by);
void all_bowling(QtFrontEnd& shown_by);

/// Goes to what the user types: a page, a team, a player. Activities are on offer at the menu alone. `parent`: the form
/// over which it opens.
void jump(QtFrontEnd& shown_by, bool at_menu);

void configurations(QtFrontEnd& shown_by);
void credits();

}  // namespace menu
}  // namespace velorin
