// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <algorithm>
#include <functional>
#include <vector>

namespace velorin {

/// A match of a competition whose report is at hand.
struct PlayedMatch {
  int number = 0;  ///< in the competition, from 1
  QString sides;
  QString ground;
  QString result;
  QString first = {};  ///< the side that batted first
  QString second = {};
};

/// All of them, by number; the windows of the competition lead to their reports.
struct PlayedMatches {
  std::vector<PlayedMatch> all;
  std::function<void(int number)> open;

  bool has(int number) const {
    return std::any_of(all.begin(), all.end(), [number](const PlayedMatch& match) { return match.number == number; });
  }
};

/// What a list says of the rows that lead on.
inline constexpr const char* leads_on = "Press a match to open its report.";

}  // namespace velorin
