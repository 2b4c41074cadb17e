// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class front_end;
struct game_state;

/// Goes on with what is in play, from the question that is open: a series, a tri series, a World Cup, or else a match
/// by itself. Returns at its end, or where the user leaves or quits it. False if nothing is in play. Draws, asks and
/// raises what resume_series(), resume_tri_series(), resume_world_cup() and resume_match() do.
bool resume_game(game_state& game, front_end& user);

}  // namespace velorin
