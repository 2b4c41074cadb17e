// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "database/lasting_records.h"

namespace velorin::testing {

/// The order in which a ranking of players shows a pool: numbers of its men, from 0. Written out step by step as the
/// ranking is described, on plain numbers, to compare the browsers with. `mode` is a record mode of 1 to 9.
std::vector<int> reference_order(const std::vector<career_rec>& pool, int mode);

}  // namespace velorin::testing
