// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>

#include "archive/archived_match.h"
#include "cli/json.h"

namespace velorin::cli {

/// A match of the archive, with the columns of the archive's views as names.
json archived_match_json(const archived_match& match);

/// Its cards as text.
void print_archived_match(const archived_match& match, std::ostream& out);

}  // namespace velorin::cli
