// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>
#include "support/game_in_play.h"

namespace velorin::testing {

/// Checks that an object of `match --json` has every field, of its type and length, and no other.
void expect_match_object(const nlohmann::json& match);

}  // namespace velorin::testing
