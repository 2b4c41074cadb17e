// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "model/match_records.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"

namespace velorin::testing {

/// Batting roles.
inline const std::string o = "Opener";
inline const std::string m = "Middle Order";
inline const std::string l = "Lower Order";

/// A place of a squad as a test writes it down.
struct squad_row {
  std::string role;
  int skill = 0;
  float sr = 90;
  float econ = 9;
  bool keeper = false;
  std::string type = "spinner";
};

/// The squad of these rows, its men named "p1" and so on; the places behind them are empty.
squad squad_of(const std::vector<squad_row>& rows);

/// The places ticked, in order.
std::vector<int> ticked_places(const team_selection_form& form);

/// A selection screen with its squad.
class selection {
 public:
  explicit selection(const squad& men, const std::string& team = "Home") : men_(men) { form.open(team, men_); }
  selection(const selection&) = delete;
  selection& operator=(const selection&) = delete;

  team_selection_form form{in_play()};

 private:
  squad men_;
};

/// What Auto Select ticks.
std::vector<int> auto_selected(const squad& men);
inline std::vector<int> auto_selected(const std::vector<squad_row>& rows) { return auto_selected(squad_of(rows)); }

}  // namespace velorin::testing
