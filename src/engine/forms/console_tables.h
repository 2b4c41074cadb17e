// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "desktop/table.h"

namespace velorin {

/// The running table of the innings' bowlers, a column for each of their figures.
Table bowlers_table();

/// The console's line of the last wicket, or what stands there before the first.
std::string last_wicket_line();

}  // namespace velorin
