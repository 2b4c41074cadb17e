// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the console keeps of the refreshes. The panels themselves are written from the match when somebody looks at them
// (console_view.h); here is only what must be held from one refresh to the next.

namespace velorin {

/// How far the batsman at a position has settled, 0 to 915, by his figures as they stand. Reads batting_card.
double meter_of(int position);

/// After every ball and when an innings opens: sets settled_meter of both batsmen. Reads striker, non_striker,
/// batting_card.
void refresh_batsmen();

/// After every ball: gives the current bowler a row in the running table of bowlers, if he has none and one of the ten
/// is free, and writes his figures there. Reads bowler, bowling_card; changes bowler_list.
void refresh_bowling_card();

/// At the end of the over and when the console opens: exchanges the two bowling aggressions and takes the figures for
/// the rate panel. Changes bowling_aggression, rates.
void refresh_rates();

/// At the end of the over, before the bowlers are exchanged: appends the block of the over to ball_commentary.
void log_over();

/// At the end of the over, after log_over: four minutes pass.
void advance_clock();

/// Once at the change of innings, after the totals have been exchanged: freezes the projection, empties the table of
/// bowlers and the commentary, sets the score to 0.
void prepare_chase_display();

}  // namespace velorin
