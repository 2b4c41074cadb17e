// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "model/match_state.h"

namespace velorin::testing {

/// A fresh `match` with two elevens, "Home" batting and "Away" bowling, ratings that the model can play with, all
/// conditions 3, ground "The Oval" in "Home" at 1030. Home's men are "H.Bat1" to "H.Bat11", Away's "A.Bowl1" to
/// "A.Bowl11"; both have two openers, five of the middle and four of the lower order; the seventh man keeps; men 6 and
/// 8 to 11 are the bowlers: medium, fast, fast, spinner, medium. Updates are off and the elevens stay in memory.
void set_up_sample_match(bool computer_bats = true, bool computer_bowls = true);

/// One of the two elevens above.
eleven sample_eleven(const std::string& prefix);

/// A draw u with Int(u x 1000 + 1) = n: what makes the model's draw n.
double draw_for(int n);
/// A draw for a die of `sides` that shows `face`.
double die_draw(int face, int sides);

/// Draws that come in this order; reseeding takes none. The count in use is chance.draws_used().
void script_draws(std::vector<double> draws);

/// The draw that makes the next delivery, as the match stands, end in `outcome` (0..11 but 5): the middle of its
/// window. Fails the test if the window is empty.
double draw_outcome(int outcome);

}  // namespace velorin::testing
