// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "archive/archived_match.h"

namespace velorin::testing {

/// A match as its object tells it, without the archive: `state` is its last state, `result` its result. Balls, the
/// meetings of batsmen and bowlers and the overs are read from the commentary, the dismissals from the words of the
/// cards. What no object tells is left: id, key, time, occasion, country, who was captain, and the last stand.
archived_match told_match(const nlohmann::json& state, const nlohmann::json& result);

/// Everything that differs, a line each; stands as far as `told` has them.
std::string differences_of(const archived_match& kept, const archived_match& told);

}  // namespace velorin::testing
