// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "competitions/league.h"

namespace velorin {

struct world_cup_record;

/// The tables of the World Cup.
struct world_cup_tables_form {
  explicit world_cup_tables_form(const world_cup_record& world_cup) : world_cup_(world_cup) {}

  std::vector<league_texts> group_a;  ///< five rows in table order
  std::vector<league_texts> group_b;
  std::vector<league_texts> super_six;  ///< six rows, or none before the Super Six
  std::string first_semi_final;         ///< first semi-final, "" while it is not drawn
  std::string second_semi_final;        ///< second semi-final
  std::string grand_final;              ///< the final
  std::string winners_line;             ///< the winners
  bool closed = false;

  /// Fills the tables from the tournament.
  void open();
  void accept() { closed = true; }

 private:
  const world_cup_record& world_cup_;
};

}  // namespace velorin
