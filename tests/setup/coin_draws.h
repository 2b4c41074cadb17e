// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin::testing {

/// Draws by which the first and the second of two is chosen: the last that means the one, the first that means the
/// other.
constexpr double one = 0.4999999;
constexpr double two = 0.5;

}  // namespace velorin::testing
