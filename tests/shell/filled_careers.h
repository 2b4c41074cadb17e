// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin::testing {

/// Puts careers and records for the browsers into the database in use: a World Cup of computer sides with seed 2026.
/// Leaves a blank match and no tournament.
void fill_careers();

}  // namespace velorin::testing
