// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "desktop/table.h"

namespace velorin {

struct match_state;

/// The running table of the innings' bowlers, a column for each of their figures.
Table bowlers_table(const match_state& match);

/// The console's line of the last wicket, or what stands there before the first.
std::string last_wicket_line(const match_state& match);

}  // namespace velorin
