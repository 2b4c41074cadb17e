// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The two elevens on their way from the selection to the first ball: through files, or, where those fail and the user
// goes on without them, through match.selected alone.

namespace velorin {

struct match_state;
struct open_database;
struct match_play;

/// Writes match.selected[side_index] to its file. Where that fails, the user is asked; once he has gone on without,
/// nothing is written for this match. Changes elevens_unsaved. Raises what write_eleven raises if he gives no answer.
void save_selected(const match_play& play, int side_index);

/// Exchanges the two elevens, and notes it in elevens_exchanged. Asks and raises likewise; without a selection a
/// failure is raised at once. exchange_tried stands while the user is asked.
void exchange_elevens(const match_play& play);

/// Puts the two elevens into batting_xi and bowling_xi: the selected men as they have been exchanged, or, where nobody
/// has been selected, those of the files or the memory. Raises what load_elevens raises in the latter case.
void take_elevens(match_state& match, const open_database& data);

}  // namespace velorin
