// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/aggression_odds.h"

#include <cmath>

#include <fmt/format.h>

namespace velorin {

std::string odds_sentence(const std::optional<ball_odds>& odds) {
  if (!odds) return "-";
  const std::string runs = fmt::format("{:.1f} an over, ", odds->runs_an_over);
  if (odds->balls_a_wicket == 0) return runs + "no wicket";
  const long balls = std::lround(odds->balls_a_wicket);
  return runs + (balls <= 1 ? "a wicket every ball" : fmt::format("a wicket every {} balls", balls));
}

}  // namespace velorin
