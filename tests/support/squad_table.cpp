// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/squad_table.h"

namespace velorin::testing {

squad squad_of(const std::vector<squad_row>& rows) {
  squad men;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    player_rec& man = men[i + 1];
    man.name = "p" + std::to_string(i + 1);
    man.bat_skill = rows[i].skill;
    man.bowl_sr = rows[i].sr;
    man.econ = rows[i].econ;
    man.is_keeper = rows[i].keeper ? flag_true : 0;
    man.bat_type = "RH " + rows[i].role;
    man.bowler_type = rows[i].type;
  }
  return men;
}

std::vector<int> ticked_places(const team_selection_form& form) {
  std::vector<int> places;
  for (int place = 1; place <= 20; ++place) {
    if (form.ticks[place]) places.push_back(place);
  }
  return places;
}

std::vector<int> auto_selected(const squad& men) {
  selection screen(men);
  screen.form.auto_select();
  return ticked_places(screen.form);
}

}  // namespace velorin::testing
