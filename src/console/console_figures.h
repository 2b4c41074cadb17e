// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the console keeps of the refreshes. The panels themselves are written from the match when somebody looks at them
// (console_view.h); here is only what must be held from one refresh to the next.

namespace velorin {

struct match_state;

/// How far the batsman at a position has settled, 0 to 915, by his figures as they stand. Reads batting_card.
double meter_of(const match_state& match, int position);

/// When an innings opens and when a man has come in: sets settled_meter of both batsmen. Reads striker, non_striker,
/// batting_card.
void refresh_batsmen(match_state& match);
/// After any other ball: sets that of the man who faced it, by his position.
void refresh_batsman(match_state& match, int position);

/// After every ball: gives the current bowler a row in the running table of bowlers, if he has none and one of the ten
/// is free, and writes his figures there. Reads bowler, bowling_card; changes bowler_list.
void refresh_bowling_card(match_state& match);

/// At the end of the over and when the console opens: exchanges the two bowling aggressions and takes the figures for
/// the rate panel. Changes bowling_aggression, rates.
void refresh_rates(match_state& match);

/// At the end of the over: four minutes pass.
void advance_clock(match_state& match);

/// Once at the change of innings, after the totals have been exchanged: freezes the projection, empties the table of
/// bowlers, sets the score to 0.
void prepare_chase_display(match_state& match);

}  // namespace velorin
