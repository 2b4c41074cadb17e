// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/archive_place.h"

namespace velorin {

struct open_database;

/// Shows the archive from a place on, one window after the other as links, Back and Forward lead, until the user closes
/// one. Raises what forms raise, and ProgramEnds once the program is ending.
void browse(const open_database& data, archive_place first);

/// The page of a man of a team, or of a team where there is no man; both in single bytes, as the core has them.
void browse_man(const open_database& data, const std::string& team, const std::string& man);

}  // namespace velorin
