// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "competitions/league.h"
#include "competitions/match_entry.h"

namespace velorin {

/// A team of a group, with its results against each place of the group.
struct cup_group_team {
  std::string team;
  std::array<league_row, 6> versus;  ///< [1..5]; the row of the team's own place keeps an empty name
};

/// A line of the fixture list.
struct cup_fixture {
  std::string team_a;
  std::string team_b;
  std::string venue;
  integer index_a;     ///< place in the group; in the Super Six 1 to 3 among the qualifiers of Group A
  integer index_b;     ///< likewise, and of Group B
  integer match_no;    ///< within the stage
  std::string stage;   ///< "A", "B" or "SS"
  std::string result;  ///< "" until played
};

/// A semi-final or the final.
struct cup_knockout {
  std::string team_a;
  std::string team_b;
  std::string winner;
  std::string margin;
  bool human_a = false;
  bool human_b = false;
};

using cup_group = std::array<cup_group_team, 6>;     // 1..5
using group_league = std::array<league_row, 6>;      // 1..5
using super_six_league = std::array<league_row, 7>;  // 1..6

/// The stages of the tournament in their order.
enum class cup_stage { drawn, group_matches, super_six_draw, super_six_matches, knock_out, over };

/// The World Cup of this run of the program and the place reached in it. Nothing but the place is cleared between two
/// tournaments.
struct world_cup_record {
  cup_group group_a;
  cup_group group_b;
  std::array<cup_fixture, 51> fixtures;     ///< [1..50]: 1 to 20 the groups, 21 to 29 the Super Six
  super_six_league super_six;               ///< [1..6]
  std::array<bool, 7> super_six_human{};    ///< [1..6] human sides, sorted along with the table
  std::array<cup_knockout, 3> semi_finals;  ///< [1..2]
  cup_knockout grand_final;
  bool quit_requested = false;
  std::vector<std::string> grounds;     ///< of the hosts' countries
  std::array<std::string, 5> chosen_a;  ///< teams of Group A as chosen
  std::array<std::string, 5> chosen_b;  ///< teams of Group B as chosen
  std::array<bool, 5> human_a{};        ///< which of them the user captains
  std::array<bool, 5> human_b{};        ///< likewise
  cup_stage stage = cup_stage::over;
  int next_match = 0;  ///< groups: fixture 1 to 20; Super Six: 21 to 29; knock-out: 1 to 3
};

/// A sentence that tells that an earlier World Cup of this run stands in the record; "" before the first is drawn.
std::string standing_cup(world_cup_record& world_cup);
/// A fresh record, as at the start of the program.
void start_cup_afresh(world_cup_record& world_cup);

/// A group's table in the order of its places: each team's sums over its five rows.
group_league group_table(const cup_group& group);

}  // namespace velorin
