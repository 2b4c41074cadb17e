// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "model/match_records.h"
#include "model/match_set_up.h"
#include "ui/match_play.h"

// What the set-up of a match would come to if it were left to the computer, for those who want to see it before.

namespace velorin {

class random_source;

/// Weather and outfield as chance would draw them for a match that began now, 1 to 4 each. Draws nothing from `chance`
/// itself: a seeded or scripted source draws the same afterwards, the clock other ones.
struct sky_ahead {
  int weather = 1;
  int outfield = 1;
};
sky_ahead draw_sky_ahead(const random_source& chance);

/// Surface and bounce of a ground's pitch as the sliders of the conditions show them, 1 to 4 each. Reads the grounds;
/// raises what reading them raises, and run_time_error (type) for a figure outside 1 to 4.
struct pitch_of_ground {
  int surface = 1;
  int bounce = 1;
};
pitch_of_ground pitch_ahead(const match_play& play, const std::string& ground);

/// The eleven that Auto Select picks for a team, in the order in which it would bat. Reads the team; raises what
/// reading it and selecting raises.
eleven eleven_ahead(const match_play& play, const chosen_team& team);

/// The rows of the two best bowlers of an eleven, the better one first: who takes a wicket in fewer balls, then who
/// gives fewer runs an over. The keeper is none of them; 0 where there is nobody.
std::array<int, 2> best_bowlers_of(const eleven& men);

}  // namespace velorin
