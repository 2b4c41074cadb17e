// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "forecast/forecast.h"

// What two sides that meet next in a series may expect.

namespace velorin {

struct game_state;

/// How often each of two sides wins, 0 to 1; the rest to 1 is even.
struct two_chances {
  std::string a;
  std::string b;
  double win_a = 0;
  double win_b = 0;
};
struct series_chances {
  two_chances next;    ///< the match that comes next
  two_chances series;  ///< the most matches
};

/// Plays what is left of the series between two matches many times, each on a ground drawn anew. Nothing where no match
/// is to come, or where it was asked to stop. Elevens and errors are those of forecast_cup().
std::optional<series_chances> forecast_series(game_state& game, const forecast_options& options);
/// The match that the tri series plays next, likewise; nothing as long as its sides are not known.
std::optional<two_chances> forecast_next_of_tri(game_state& game, const forecast_options& options);

}  // namespace velorin
