// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "competitions/league.h"
#include "competitions/match_entry.h"

namespace velorin {

// The sizes of the tournament.
constexpr int cup_group_teams = 5;     // of each of the two groups
constexpr int cup_hosts = 3;           // at most
constexpr int cup_group_matches = 20;  // of both groups together
constexpr int cup_qualifiers = 3;      // of each group, for the Super Six
constexpr int cup_super_six_places = 2 * cup_qualifiers;
constexpr int cup_super_six_matches = cup_qualifiers * cup_qualifiers;  // against those of the other group
constexpr int cup_first_super_six = cup_group_matches + 1;              // its place in the fixture list
constexpr int cup_last_fixture = cup_group_matches + cup_super_six_matches;
constexpr int cup_fixture_places = 50;  // of the list, of which the tournament fills those up to the last fixture
constexpr int cup_semi_finals = 2;
constexpr int cup_knock_outs = cup_semi_finals + 1;
constexpr int cup_matches = cup_last_fixture + cup_knock_outs;

/// A team of a group, with its results against each place of the group.
struct cup_group_team {
  std::string team;
  std::array<league_row, cup_group_teams + 1> versus;  ///< [1..5]; the row of the team's own place keeps an empty name
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

using cup_group = std::array<cup_group_team, cup_group_teams + 1>;          // 1..5
using group_league = std::array<league_row, cup_group_teams + 1>;           // 1..5
using super_six_league = std::array<league_row, cup_super_six_places + 1>;  // 1..6

/// The stages of the tournament in their order.
enum class cup_stage { drawn, group_matches, super_six_draw, super_six_matches, knock_out, over };

/// Where the tournament stands within its stage.
enum class cup_step : std::uint8_t {
  none,          ///< none is in play
  entering,      ///< the next match is to be entered
  match,         ///< a match is on, or has just ended: the match tells where it stands
  tables,        ///< the tables are shown
  tables_again,  ///< the tables are shown from which a tie was entered and left; the list follows
  list           ///< the fixture list is shown
};

/// The World Cup of this run of the program and the place reached in it. Nothing but the place is cleared between two
/// tournaments.
struct world_cup_record {
  cup_group group_a;
  cup_group group_b;
  std::array<cup_fixture, cup_fixture_places + 1> fixtures;  ///< [1..50]: 1 to 20 the groups, 21 to 29 the Super Six
  super_six_league super_six;                                ///< [1..6]
  std::array<bool, cup_super_six_places + 1> super_six_human{};  ///< [1..6] human sides, sorted along with the table
  std::array<cup_knockout, cup_semi_finals + 1> semi_finals;     ///< [1..2]
  cup_knockout grand_final;
  bool quit_requested = false;
  std::vector<std::string> grounds;                   ///< of the hosts' countries
  std::array<std::string, cup_group_teams> chosen_a;  ///< teams of Group A as chosen
  std::array<std::string, cup_group_teams> chosen_b;  ///< teams of Group B as chosen
  std::array<bool, cup_group_teams> human_a{};        ///< which of them the user captains
  std::array<bool, cup_group_teams> human_b{};        ///< likewise
  cup_stage stage = cup_stage::over;
  cup_step step = cup_step::none;
  int next_match = 0;  ///< groups: fixture 1 to 20; Super Six: 21 to 29; knock-out: 1 to 3
};

/// A sentence that tells that an earlier World Cup of this run stands in the record; "" before the first is drawn.
std::string standing_cup(const world_cup_record& world_cup);
/// A fresh record, as at the start of the program.
void start_cup_afresh(world_cup_record& world_cup);

/// A group's table in the order of its places: each team's sums over its five rows.
group_league group_table(const cup_group& group);

}  // namespace velorin
