// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>

namespace velorin::cli {

/// Objects keep the order in which their members were added.
using json = nlohmann::ordered_json;

}  // namespace velorin::cli
