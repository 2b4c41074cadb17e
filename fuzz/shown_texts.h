// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "browsers/shown_table.h"

namespace velorin::fuzz {

bool is_utf8(std::string_view text);

/// Runs the companion's command "report" on the database "base" in use: it prints UTF-8, or one error. Leaves the
/// settings of that run.
void require_report(const std::vector<std::string>& report);

/// Requires that a shown text has no number that is none.
void require_shown(std::string_view text);
void require_shown(const std::vector<shown_field>& block);
/// Requires besides that each row of a table has a text for each column.
void require_shown(const shown_table& table);

}  // namespace velorin::fuzz
