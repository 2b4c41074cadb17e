// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

#include "competitions/game_state.h"
#include "recording/kept_games.h"
#include "recording/recorder.h"
#include "recording/recording_file.h"

namespace velorin {

/// Records each game as it is played, to a file of its own in the user's folder, so that it can be gone on with after
/// whatever end of the program.
class GameKeeper {
 public:
  /// `folder` is made once a game is recorded; files in which nothing is yet, and that nobody plays, go from it. The
  /// others outlive it.
  GameKeeper(front_end& shown_by, game_state& game, std::filesystem::path folder);

  /// Who is asked in place of `shown_by`.
  front_end& user() { return recorder_; }
  const std::filesystem::path& folder() const { return folder_; }
  /// The file of the game in play; empty if none is recorded.
  std::filesystem::path file_in_play() const;

  /// The competition in play and where it stands in it: "World Cup, Super Six, match 3". Empty for a match by itself,
  /// between two matches, and where no game is recorded.
  std::string competition_in_play() const;

  /// The game becomes that of a recording, as it stands at its end, for resume_game(). False if it is over. Raises
  /// run_time_error: what reading and playing it raise, another program plays it (file), or its database is not on
  /// offer (file); the game is as it was then.
  bool take_up(const std::filesystem::path& file);

  /// The game in play is over, or was left: one of which no ball was bowled is not kept.
  void game_over();
  /// The game in play stays to be gone on with.
  void stop() { recorder_.stop(); }
  /// The user does not want to keep it.
  void discard();

  /// A copy of the game in play as it stands, under a name (UTF-8). Returns its file. Requires a game in play. Raises
  /// run_time_error (file).
  std::filesystem::path save_as(const std::string& name) const;

 private:
  /// Names the file of a game as it begins.
  class File : public recording_file {
   public:
    explicit File(const GameKeeper& keeper) : keeper_(keeper) {}
    void begin(const recorded_beginning& begun) override;

   private:
    const GameKeeper& keeper_;
  };

  /// The database that the game of a recording is played on. Raises run_time_error (file) if it is not on offer.
  open_database database_of(const recording& before, const std::filesystem::path& file) const;

  game_state& game_;
  std::filesystem::path folder_;
  File file_{*this};
  recorder recorder_;
};

}  // namespace velorin
