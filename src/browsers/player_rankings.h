// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "browsers/shown_table.h"

namespace velorin {

struct open_database;

/// The rankings of players, the best 15 by one key, and the records of one team's players. There is no minimum of
/// innings or wickets; see sort_by_held_keys for a man whose key has no divisor. The record modes:
///   1  highest averages               5  most wickets
///   2  most runs                      6  best economy rates
///   3  highest strike rates           7  best bowling averages
///   4  innings of 50 or more
///   8  batting of a team, by average  9  bowling of a team, by wickets
struct player_rankings_form : table_form {
  explicit player_rankings_form(const open_database& data) : data_(data) {}

  static constexpr int career_batting = 8;
  static constexpr int career_bowling = 9;

  /// Fills the table; a row without a player is hidden. Requires a mode of 1 to 9; `team` counts in modes 8 and 9
  /// alone. Reads the careers; raises what read_career_table raises.
  void open(int record_mode, const std::string& team = {});

 private:
  const open_database& data_;
};

}  // namespace velorin
