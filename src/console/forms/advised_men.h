// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>

#include "desktop/sheet_adviser.h"
#include "forecast/adviser.h"

namespace velorin {

class ManList;

/// The adviser of a sheet that asks for one of eleven men: each man's difference to the chance of winning stands in the
/// list's column of that number. `leave` chooses what the computer would. List and match outlive the sheet's adviser.
SheetAdviser::Acts advised_men(ManList& men, const match_state& match, advised_side side, captains_choice::kind what,
                               std::size_t column, std::function<QString()> leave);

/// How many times the rest is played for each choice.
inline constexpr long runs_of_advice = 2'000;
/// Threads for it.
int threads_of_advice();

/// "+1.2 % \u00B1 0.4", with the sign for minus.
QString shown_difference(const advice& told);

}  // namespace velorin
