// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class Form;
struct match_state;

enum class SetUpStep { teams, conditions, elevens, toss };

/// Shows at the head of a form of the set-up which of the four steps it is, and what was chosen in those before it.
void show_set_up_steps(Form& form, const match_state& match, SetUpStep step);

}  // namespace velorin
