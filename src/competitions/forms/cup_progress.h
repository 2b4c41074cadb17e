// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>

#include "competitions/world_cup.h"

namespace velorin {

/// Where the World Cup stands, in a few words, from its record: "Group matches: 7 of 20 played". Empty while none is
/// under way.
QString cup_progress(const world_cup_record& world_cup);

/// Whether the user captains the two sides of a fixture.
struct fixture_captains {
  bool human_a = false;
  bool human_b = false;
};
fixture_captains captains_of(const world_cup_record& world_cup, const cup_fixture& fixture);

/// Whether the user captains a team of that name in Group A, or in Group B.
bool human_in_group_a(const world_cup_record& world_cup, const std::string& team);
bool human_in_group_b(const world_cup_record& world_cup, const std::string& team);

}  // namespace velorin
