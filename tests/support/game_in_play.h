// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "competitions/game_state.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

// The one game of a test program, by the names of its parts, and who shows it. The programs themselves have no such
// thing: their procedures are handed what they work on.

namespace velorin {

inline game_state tested_game;
inline match_state& match = tested_game.match;
inline random_source& chance = tested_game.chance;
inline open_database& data = tested_game.data;
inline series_record& series = tested_game.series;
inline tri_record& tri = tested_game.tri;
inline world_cup_record& world_cup = tested_game.world_cup;

inline front_end* installed_front_end = nullptr;

/// Hands every request on to the front end in use. Raises std::logic_error outside of a front_end_scope.
front_end& user_in_use();

/// Makes a front end the one in use for a scope and puts the one before back at its end.
class front_end_scope {
 public:
  explicit front_end_scope(front_end& shown_by) : before_(std::exchange(installed_front_end, &shown_by)) {}
  ~front_end_scope() { installed_front_end = before_; }
  front_end_scope(const front_end_scope&) = delete;
  front_end_scope& operator=(const front_end_scope&) = delete;

 private:
  front_end* before_;
};

/// The game of the tests, and whoever is the front end in use when something is asked.
inline match_play in_play() { return {match, chance, user_in_use(), data}; }

}  // namespace velorin
