// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "setup/forms/quick_choices.h"

namespace velorin {

struct bowler_choice_form;
struct conditions_form;
struct next_batsman_form;
struct toss_form;

// Answers what the set-up of a quick match asks as its user has chosen beforehand, in the way in which he would.

void answer_quickly(conditions_form& form, const QuickChoices& choices);
void answer_quickly(toss_form& form, const QuickChoices& choices);
/// `side`: whose men open. Where the one chosen cannot come in, the first who can does.
void answer_quickly(next_batsman_form& form, const QuickChoices& choices, const std::string& side);
/// Likewise; the best one who may bowl does.
void answer_quickly(bowler_choice_form& form, const QuickChoices& choices, const std::string& side);

}  // namespace velorin
