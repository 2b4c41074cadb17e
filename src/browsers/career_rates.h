// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "database/lasting_records.h"

// Rates of a career, each rounded to two decimals. There is none where the divisor is not above 0.

namespace velorin {

using career_rate = std::optional<double>;

/// Runs for each dismissal.
career_rate batting_average(const career_rec& career);
/// Runs off 100 balls.
career_rate batting_strike_rate(const career_rec& career);
/// Innings of 50 or more, out of 100 innings.
career_rate fifty_plus_rate(const career_rec& career);
/// Runs given for each wicket.
career_rate bowling_average(const career_rec& career);
/// Balls for each wicket.
career_rate bowling_strike_rate(const career_rec& career);
/// Runs given an over.
career_rate economy_rate(const career_rec& career);

/// A rate as shown, without trailing zeros, or what is shown for none.
std::string rate_text(const career_rate& rate, std::string_view none);

/// The highest score, with "*" behind it while its flag says not out.
std::string high_score_text(const career_rec& career);
/// The best bowling: wickets "/" runs.
std::string best_bowling_text(const career_rec& career);

}  // namespace velorin
