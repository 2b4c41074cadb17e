// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velorin {

struct bowler_choice_form;
struct console_form;
struct match_state;
struct next_batsman_form;
struct toss_form;

// What the user leaves to the computer while he captains: answered in his place, as he would answer it himself, so that
// a recording holds it like any other answer.

/// Chooses who bowls the over that is to begin, if `bowling`, and the aggressions of the men in play, if `aggressions`.
/// What stands as the computer would have it is left alone. Raises what the console's buttons raise.
void captain_before_ball(const match_state& match, console_form& console, bool bowling, bool aggressions);

/// The toss, as far as it is open.
void answer_toss(toss_form& form);
/// Who comes in, and who bowls. They return what was chosen, in a sentence of Windows-1252; "" where the computer has
/// no choice, and the form stays open.
std::string answer_batsman(const match_state& match, next_batsman_form& form);
std::string answer_bowler(const match_state& match, bowler_choice_form& form);

}  // namespace velorin
