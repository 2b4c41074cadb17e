// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "competitions/game_state.h"
#include "model/entered_game.h"
#include "recording/recording.h"

// The games that a user's folder keeps: recordings, one a file, whose name is the game's.

namespace velorin {

/// A game in words. Texts are single bytes of Windows-1252.
struct game_words {
  std::string competition;  ///< "India v England", "World Cup"
  std::string stage;        ///< "Super Six, match 3"; of a match by itself "practice" or ""
  std::string score;        ///< "India 143/2, 31.4 overs, Pakistan to bowl", or what comes next; the result of one over

  /// All of it in a line: "World Cup, Super Six, match 3: India 143/2, 31.4 overs, Pakistan to bowl".
  std::string line() const;
};

/// A game as it stands, entered as told.
game_words words_of(const entered_game& entered, const game_state& game);

/// A game of the folder.
struct kept_game {
  std::filesystem::path file;
  std::string name;             ///< of the file, without its folder and extension, UTF-8
  std::int64_t begun_at = 0;    ///< seconds since 1970, UTC
  std::int64_t changed_at = 0;  ///< likewise, when something of it was last written
  game_kind kind = game_kind::match;
  game_words words;
  bool over = false;    ///< it can be watched, but not gone on with
  bool bowled = false;  ///< a ball of it has been bowled: there is something to be watched
  bool in_use = false;  ///< another program plays it
  std::string fault;    ///< why it can be neither; empty for a good one
  bool empty = false;   ///< nothing is in it yet, which is a fault
};

/// Reads one. Never raises: what is wrong with it stands in its fault.
kept_game look_at_game(const std::filesystem::path& file);
/// The files of a folder that by their names are games, the one written last first.
std::vector<std::filesystem::path> game_files(const std::filesystem::path& folder);
/// All games of a folder, the one written last first. A folder that is not there has none; one that cannot be read
/// counts as such.
std::vector<kept_game> games_in(const std::filesystem::path& folder);
/// The file written last that holds a game to be gone on with, which nobody plays; empty if there is none.
std::filesystem::path game_that_waits(const std::filesystem::path& folder);

/// Removes the files of a folder in which nothing is yet and that nobody plays, as kills have left them.
void remove_empty_games(const std::filesystem::path& folder);

/// A name for a game's file, of such characters as every file system takes; "Game" where nothing is left of it.
std::string fit_file_name(std::string_view wanted);
/// A path in the folder for a game of this name (UTF-8) that is still free: a number is added where it is not.
std::filesystem::path free_game_file(const std::filesystem::path& folder, const std::string& name);

/// Copies a game into the folder, which is made where it is missing, under a name that is free. Returns its file.
/// Raises run_time_error: it is no recording that can be read, or the files (file).
std::filesystem::path copy_game_to(const std::filesystem::path& folder, const std::filesystem::path& from,
                                   const std::string& name);

}  // namespace velorin
