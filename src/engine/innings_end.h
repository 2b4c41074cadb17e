// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

struct match_play;

/// After every delivery: decides whether the innings or the match has ended, and then carries the match over or brings
/// it to its result. Reads and changes the whole match; innings_changed tells the driver to stop. Asks for the messages
/// "End of Innings" (a human involved) and "End of Match" and for the scorecard, in an unattended match too. Draws what
/// change_innings draws. Raises what change_innings and finish_match raise.
void end_of_ball_check(const match_play& play);

/// Moves the match to the next innings: stores the commentary, swaps the sides and their books, opens with new bowlers
/// and batsmen. Requires innings_total and innings_wickets. A human captain is asked for his choices; a computer
/// captain draws the offset of its bowlers. Raises run_time_error (subscript): a commentary beyond its 1500 places, a
/// bowler not chosen.
void change_innings(const match_play& play);

/// The end of a match: records the unbroken stand, updates careers and records, closes the console and resets the
/// match. Requires the result block. Where the update fails, the user is asked; raises what it raises if he gives no
/// answer.
void finish_match(const match_play& play);

}  // namespace velorin
