// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "database/configuration.h"
#include "database/kept_file.h"
#include "model/match_records.h"

namespace velorin {

enum class side { first, second };

/// The elevens of a match while they travel in memory.
struct elevens_held {
  std::array<eleven, 2> men;
  bool exchanged = false;  ///< the first side's men are men[1]

  eleven& of(side which) { return men[place_of(which)]; }
  const eleven& of(side which) const { return men[place_of(which)]; }

  /// 0 or 1: where the men of `which` stand in men.
  std::size_t place_of(side which) const { return (which == side::second) != exchanged ? 1 : 0; }
};

/// The settings, the paths of the database in use, and what has been read of its files. A copy is a database of its
/// own on the same files.
struct open_database {
  configuration settings;
  database_files files;
  kept_file<team_rec> kept_teams;
  kept_file<ground_rec> kept_grounds;
  team_rec single_team;  ///< the last record asked for that lies beyond the list of teams
  elevens_held held;     ///< with files.elevens_in_memory
};

}  // namespace velorin
