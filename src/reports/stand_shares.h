// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// Who made the runs of each stand: made from the deliveries.

namespace velorin {

struct told_innings;

/// One stand of an innings.
struct stand_share {
  std::array<std::string, 2> batsmen;  ///< in the order of the innings
  std::array<int, 2> runs{};           ///< off the bat, by the same
  int extras = 0;                      ///< byes and leg byes
  bool unbroken = false;

  int total() const { return runs[0] + runs[1] + extras; }
};

/// The stands in which a ball has been bowled, in order. A man who came in and saw none is in the next.
std::vector<stand_share> stand_shares(const told_innings& innings);

}  // namespace velorin
