// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup.h"
#include "database/open_database.h"
#include "model/match_state.h"
#include "model/random.h"

namespace velorin {

/// All that one running game holds: the match in play, the competitions, the chance that they draw from, the files.
/// Each program makes one and hands its parts down; two are two games. A copy is a game as this one stands, which
/// resume_game() takes on; the two share nothing but the files, and whoever is told of waits for their folder.
struct game_state {
  match_state match;
  random_source chance;
  open_database data;
  series_record series;
  tri_record tri;
  world_cup_record world_cup;
};

/// A game of its own, as this one stands. Nobody is told of its waits for the folder.
inline game_state own_copy(const game_state& game) {
  game_state copy = game;
  copy.data.files.watcher = nullptr;
  copy.chance.log_to(nullptr);
  return copy;
}

}  // namespace velorin
