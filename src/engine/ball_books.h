// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The books of a ball: cards, dismissals, milestones.

namespace velorin {

/// What play writes down of a ball: all that anybody may read of it, or the figures alone that a rule reads again. The
/// rules, and the draws with their order, are those of the one code for both.
enum class keeping { everything, rules };

struct delivery;
struct match_state;
class random_source;
struct open_database;

/// Reads the two elevens of the selection into batting_xi and bowling_xi. A missing or short file leaves empty records.
/// Raises what read_elevens raises.
void load_elevens(match_state& match, const open_database& data);

/// Credits the runs off the bat of ball_outcome 0 to 6; does nothing for 7 to 11. Requires that the batsmen have
/// already been exchanged after an odd number of runs. Changes both cards and maiden_flag.
template <keeping Kept = keeping::everything>
void record_runs(match_state& match);

/// Draws how the striker was out, and writes it and who had part in it on his card and into the delivery. Draws one
/// number, a second one for a run out and for a catch in the field. Without anybody to read it, the delivery alone
/// knows whether it was a run out.
template <keeping Kept = keeping::everything>
void record_dismissal(match_state& match, random_source& chance, delivery& ball);

/// Enters milestones that have not been announced in this match in the achievement lists; when a human is involved,
/// with a message each behind the announcements of the match. Raises run_time_error (subscript) when a list is full.
void check_milestones(match_state& match);

}  // namespace velorin
