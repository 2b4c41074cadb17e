// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "reports/match_report.h"

namespace velorin {

/// The lines that a decided match takes in the record lists `before`, list by list and by place. The lists are not
/// changed. Raises run_time_error (overflow): a total that no list has room for.
std::vector<reported_record> records_brought(const match_state& match, const record_lists& before);

}  // namespace velorin
