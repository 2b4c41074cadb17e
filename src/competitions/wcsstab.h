// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "competitions/league.h"

namespace velorin {

/// The tables of the World Cup.
struct wcsstab {
  std::vector<league_texts> group_a;  ///< five rows in table order
  std::vector<league_texts> group_b;
  std::vector<league_texts> super_six;  ///< six rows, or none before the Super Six
  std::string label1_22;                ///< first semi-final, "" while it is not drawn
  std::string label1_23;                ///< second semi-final
  std::string label1_24;                ///< the final
  std::string label8;                   ///< the winners
  bool closed = false;

  /// Fills the tables from the tournament.
  void open();
  void command1_click() { closed = true; }
};

}  // namespace velorin
