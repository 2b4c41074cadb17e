// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "desktop/sheet_adviser.h"

class QLabel;

namespace velorin {

struct match_state;

/// How many times the match is played for each choice at the toss.
inline constexpr long runs_of_toss = 2'000;

/// The adviser of the toss: the label tells the deciding side's chance of winning if it bats and if it bowls. Nothing
/// to advise where the match cannot be forecast. What leaves the choice to the computer is left open. The label
/// outlives the adviser.
SheetAdviser::Acts advised_toss(const match_state& match, const std::string& deciding, QLabel& label);

}  // namespace velorin
