// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "desktop/preferences.h"

namespace velorin {

/// The men who open for a side, by name.
struct QuickOpeners {
  std::array<std::string, 2> batsmen;
  std::array<std::string, 2> bowlers;
};

/// What is answered for the user on the way to the first ball of a quick match.
struct QuickChoices {
  QuickAnswers answered;
  std::optional<std::array<int, 4>> conditions;  ///< weather, pitch, bounce, outfield, 1 to 4; else as they are drawn
  bool calls_tails = false;
  bool bowls_first = false;                     ///< where he may choose
  std::map<std::string, QuickOpeners> openers;  ///< by side; one that is missing opens as its order stands
};

}  // namespace velorin
