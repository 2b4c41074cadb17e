// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "forecast/forecast.h"

// The forecasts of points of a match, as the companion prints them.

namespace velorin {
struct match_state;
}  // namespace velorin

namespace velorin::cli {

/// A point of a match that is to be forecast.
struct forecast_point {
  std::string at;  ///< innings and overs, such as "2:31.4"; "0:0.0" before the toss
  match_start start;
  std::optional<next_ball> next;  ///< nothing where no ball comes any more
};

/// The point at which a match stands. Requires can_be_forecast(). Raises what start_at() does.
forecast_point point_at(const match_state& match);
forecast_point point_at(const std::string& at, const match_start& start);

/// Forecasts each point and prints them: one JSON object, or a table. All points are of one match.
void print_forecasts(const std::vector<forecast_point>& points, const forecast_options& options, bool as_json,
                     streams io);

}  // namespace velorin::cli
