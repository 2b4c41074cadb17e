// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velorin {

/// What a user enters to have it played. The numbers stand in files, and do not change.
enum class game_kind : std::uint8_t { match = 1, series = 2, tri_series = 3, world_cup = 4 };

/// A team as entered.
struct entered_team {
  std::string name;
  int record = 0;  ///< its number in the team file, from 2
  bool human = false;

  bool operator==(const entered_team&) const = default;
};

/// A match by itself or a competition, as its form is accepted.
struct entered_game {
  game_kind kind = game_kind::match;
  /// First and second team; home and away; the three; Group A's five and Group B's.
  std::vector<entered_team> teams;
  std::string ground;              ///< of a match
  int number = 0;                  ///< matches of a series, rounds of a tri series; of a match 1 for practice, else 0
  std::vector<std::string> hosts;  ///< of a World Cup, "" for a box left empty

  bool operator==(const entered_game&) const = default;
};

}  // namespace velorin
