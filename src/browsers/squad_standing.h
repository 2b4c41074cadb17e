// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/match_records.h"

// What a man of a squad can do, and how he compares with all men of his batting role in the database. It follows from
// the squads alone, whether he has played or not.

namespace velorin {

struct open_database;

/// The squads of the database in use; none where the team file is missing or cannot be read.
std::vector<team_rec> squads_on_hand(const open_database& data);

/// One rating among those of his role.
struct rated_skill {
  std::string_view caption;  ///< "Batting skill", "Bowling strike rate" or "Economy"
  std::string_view meaning;  ///< what the figure counts
  std::string text;          ///< the rating
  int place = 0;             ///< from 1, the best; men of equal ratings share it
  int men = 0;               ///< of the role, himself among them
  bool shared = false;       ///< another man has the same rating
  std::string place_text;    ///< "3rd of 30 openers", "joint 3rd of 30 openers"

  /// From 0 for the last place to 1 for the first; 1 for one man alone.
  double share() const { return men > 1 ? static_cast<double>(men - place) / (men - 1) : 1; }
};

struct squad_standing {
  std::string role;   ///< "Opener", "Middle Order", "Lower Order", or another as the file has it
  std::string hand;   ///< "Right-handed", "Left-handed", or as the file has it
  std::string bowls;  ///< as the file has it
  bool keeps_wicket = false;
  std::array<rated_skill, 3> skills;
};

/// How a man of a squad stands among the squads. Requires a man of one of them.
squad_standing standing_of(const std::vector<team_rec>& squads, const player_rec& man);

/// The man of this name in the squad of this team, nullptr if there is none.
const player_rec* squad_man(const std::vector<team_rec>& squads, const std::string& team, const std::string& name);

/// "1st", "2nd", "3rd", "4th", "11th", "21st".
std::string ordinal_text(int number);

}  // namespace velorin
