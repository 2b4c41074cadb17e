// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "browsers/shown_table.h"

namespace velorin::fuzz {

/// Requires that a shown text has no number that is none.
void require_shown(std::string_view text);
void require_shown(const std::vector<shown_field>& block);
/// Requires besides that each row of a table has a text for each column.
void require_shown(const shown_table& table);

}  // namespace velorin::fuzz
