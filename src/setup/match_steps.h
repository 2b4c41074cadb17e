// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/match_records.h"

namespace velorin {

struct chosen_team;
struct match_play;
struct open_database;

/// The squad of a team that is to play, as the file has it. Raises run_time_error: no team, or the twentieth
/// (subscript), a rating that is no number (type), and what reading the team raises.
const squad& squad_of(open_database& data, const chosen_team& team);

/// Goes on with a match from match.step to its end: asks the open question, as it was, or plays on. Nothing but the
/// match, its chance and its files is needed for it, so that a copy of these, taken while a question is open, goes on
/// as they do. False if the user leaves the match at a question of its set-up: match, the result that a competition has
/// emptied, and the files of the elevens are then as they were before, but for the draws. Does nothing where no match
/// is on. Draws, asks and raises what the steps do; a run_time_error ends the match.
bool resume_match(const match_play& play);

}  // namespace velorin
