// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "model/random.h"
#include "recording/random_captain.h"
#include "recording/recorder.h"
#include "support/small_database.h"

namespace velorin::testing {

/// A game that random captains play and that is recorded.
struct game_to_play {
  std::function<void(game_state&, front_end&)> start;  ///< plays it to its end
  std::uint64_t seed = 1;                              ///< of chance and of the captains
  bool by_clock = false;                               ///< chance is the clock's
  int leaves_one_in = 0;
  int quits_one_in = 0;
  int one_stop_in = 0;      ///< of its questions, balls and overs so many are stops; 0 for none
  bool with_files = false;  ///< careers and records count its matches, and the elevens travel through files
};

/// A game as it stood at a stop.
struct stop_of_game {
  std::string bytes;             ///< of its recording
  random_source captain;         ///< who answers on
  std::size_t read = 0;          ///< cards read by then
  std::string open;              ///< the request that was open
  std::filesystem::path folder;  ///< a copy of its files, with files
};

/// What came of it.
struct game_played {
  std::string bytes;                         ///< of the recording
  std::vector<std::string> read;             ///< every card at which play stopped, as match_as_read() tells it
  std::string end;                           ///< end_of() the game
  std::map<std::string, std::string> files;  ///< of its folder
  std::vector<stop_of_game> stops;
  int answers = 0;
};

/// Games of ten teams of two grounds each. `captains`: a human one for each bit, in the order of the entry.
game_to_play match_of(int first, int second, int captains, std::uint64_t seed);
game_to_play series_of(int matches, int captains, std::uint64_t seed);
game_to_play tri_series_of(int rounds, int captains, std::uint64_t seed);
game_to_play world_cup_of(int captains, std::uint64_t seed);

/// The database of these games, in use while a test lives.
class RecordedGames : public ::testing::Test {
 protected:
  RecordedGames();
  ~RecordedGames() override;

  /// Plays the game and records it.
  game_played play(const game_to_play& wanted);
  /// Plays the recording again: it must read and end as the game did.
  static void expect_same_again(const game_played& played);
  /// Goes on from each stop in a game of its own: it must read, end, be recorded and leave its files as the game.
  void expect_same_from_stops(const game_to_play& wanted, const game_played& played);

  small_database database_;

 private:
  std::filesystem::path fresh_folder(const std::filesystem::path& from);
  static open_database opened(const std::filesystem::path& folder, bool with_files);

  int folders_ = 0;
};

}  // namespace velorin::testing
