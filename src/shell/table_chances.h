// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class Form;
struct game_state;

/// Adds to the league tables of a window on the tri series, or on the World Cup, each team's chances of qualifying and
/// of winning, as columns that come once they are known: what is left of the competition is played many times behind
/// the window. Does nothing where the forecast is turned off. The game is copied at once.
void add_tri_chances(Form& window, const game_state& game);
void add_cup_chances(Form& window, const game_state& game);

/// Tells in a window on a series between two matches, likewise, each side's chance of winning the next match and the
/// series; in one on a tri series, of the next match. They stand in its label "chances_line".
void add_series_chances(Form& window, const game_state& game);
void add_next_of_tri(Form& window, const game_state& game);

/// Adds to the World Cup's fixture list, likewise, both sides' chances of winning each match to come.
void add_fixture_chances(Form& window, const game_state& game);

}  // namespace velorin
