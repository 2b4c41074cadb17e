// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "competitions/competition_fixture.h"
#include "competitions/world_cup_form.h"
#include "competitions/world_cup_tables.h"
#include "support/game_in_play.h"

namespace velorin::testing {

inline const std::vector<std::string> cup_group_a = {"Ardell", "Brava", "Corrin", "Dessa", "Elmar"};
inline const std::vector<std::string> cup_group_b = {"Farol", "Gintra", "Halden", "Isker", "Jorvik"};

/// The teams of a table as shown, from the top.
std::vector<std::string> order(const std::vector<league_texts>& table);

/// A database of ten teams and the form of the World Cup, open on them: Ardell is the host.
class CupTest : public CompetitionTest {
 protected:
  void SetUp() override;

  /// Puts the ten teams and the grounds of the first into the tournament, without a draw.
  static void choose_groups(const std::vector<std::string>& a = cup_group_a,
                            const std::vector<std::string>& b = cup_group_b);
  /// Presses "Play Next Match" so many times, then "Quit World Cup".
  void quit_after(int lists);
  /// Makes all group and Super Six matches, but not the last three, ties.
  void tie_the_leagues();

  world_cup_form form_{in_play(), world_cup};
};

}  // namespace velorin::testing
