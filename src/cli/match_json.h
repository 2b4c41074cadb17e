// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/json.h"
#include "model/match_state.h"

namespace velorin::cli {

/// The match in play as an object of its fields, UTF-8. The commentary is that of the match in play.
std::string state_text(const match_state& match);
/// The result block.
json result_json(const match_result& result);

}  // namespace velorin::cli
