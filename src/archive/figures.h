// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

// A man's best as one number, so that the greatest of them is the best of all.

namespace velorin {

inline constexpr int most_runs_given = 10'000;  ///< above what an innings can cost a bowler

inline constexpr int best_score_value(int runs, bool not_out) { return runs * 2 + int(not_out); }
inline constexpr int best_bowling_value(int wickets, int runs) { return wickets * most_runs_given - runs; }

/// "153*", from such a value.
std::string best_score_text(std::int64_t value);
/// "5/27".
std::string best_bowling_text(std::int64_t value);

}  // namespace velorin
