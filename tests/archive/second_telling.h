// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "archive/archived_match.h"
#include "archive/question.h"

namespace velorin::testing {

/// A row with its values as texts, by the names of their fields.
using told_row = std::map<std::string, std::string>;

/// Answers a question by going through matches, without SQL: the rows in their order, each with the columns that the
/// archive's answer has. Dates are left out.
std::vector<told_row> tell(const std::vector<archived_match>& matches, const question& asked);

}  // namespace velorin::testing
