// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "recording/recording.h"

namespace velorin {

class front_end;
class practice_history;
struct console_form;

/// A place in an innings: so many legal balls have been bowled.
struct innings_place {
  int innings = 1;  ///< of the match, 1 or 2
  int balls = 0;    ///< 0 to 300

  auto operator<=>(const innings_place&) const = default;
};

/// How a recording is played.
struct replay_options {
  /// Is shown what the recording answers, as far as it shows something by itself: messages, cards. Outlives the play.
  front_end* watcher = nullptr;
  /// Called after each ball, and as an over of an unattended match begins; true stops there.
  std::function<bool(const game_state&)> stops_at = {};
  /// Called where the console comes to wait for its user: as it is first shown, and behind each over or ball that he
  /// has asked for.
  std::function<void(const game_state&)> waits = {};
  /// Called where play is left in its console, which still remembers what it did.
  std::function<void(const console_form&)> console_left = {};
  /// Called as a match has come to its end, with its books and its result.
  std::function<void(const game_state&)> match_ends = {};
};

/// Where play ended.
enum class replay_end {
  over,     ///< the game is over, or was left
  open,     ///< at the question, or at the ball, at which the recording breaks off
  stopped,  ///< where it was asked to
};

/// A game at its beginning, as the recording has it: in memory, without updates, on its own generator.
game_state game_at_beginning(const recording& recorded);

/// Plays a recording from its beginning on a game made by game_at_beginning(). resume_game() goes on with it from
/// where it is left. `name`: the recording's for errors. Raises run_time_error: the recording does not fit to what the
/// game asks, or to a check (file), and whatever the game raised as it was recorded.
replay_end replay(const recording& recorded, const std::string& name, game_state& game,
                  const replay_options& options = {});

/// The game at the end of its recording, on the files of `data` again and with the clock's chance, for resume_game().
/// Nothing if the game is over. `remembered` gets what a match of practice remembers of its balls, for the recorder
/// that goes on with it. Raises what replay() raises, and, where the elevens have to be written again, what
/// write_eleven() raises.
std::optional<game_state> game_to_continue(const recording& recorded, const std::string& name,
                                           const open_database& data, practice_history* remembered = nullptr);

/// A match is left at this place of its innings: the first moment at which so many balls have been bowled, or, for no
/// ball, at which the innings is open.
bool stands_at(const match_state& match, innings_place place);

}  // namespace velorin
