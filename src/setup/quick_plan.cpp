// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/quick_plan.h"

#include <algorithm>
#include <tuple>

#include "database/open_database.h"
#include "database/teams_file.h"
#include "model/random.h"
#include "model/rules.h"
#include "setup/conditions.h"
#include "setup/match_steps.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"

namespace velorin {

sky_ahead draw_sky_ahead(const random_source& chance) {
  random_source ahead = chance;
  ahead.log_to(nullptr);
  const int weather = draw_condition(ahead);
  return {weather, draw_condition(ahead)};
}

pitch_of_ground pitch_ahead(const match_play& play, const std::string& ground) {
  for (const ground_rec& each : read_grounds(play.data)) {
    if (each.ground_name != ground) continue;
    return {pitch_figure(play.data, each.ground_name, each.pitch_bounce, "pitch_bounce"),
            pitch_figure(play.data, each.ground_name, each.pitch_surface, "pitch_surface")};
  }
  return {};
}

eleven eleven_ahead(const match_play& play, const chosen_team& team) {
  squad men = squad_of(play.data, team);
  sort_squad(men);
  team_selection_form form(play);
  form.open(team.name, men);
  form.select_eleven();
  return form.chosen_men();
}

std::array<int, 2> best_bowlers_of(const eleven& men) {
  std::array<int, 2> best{};
  const auto key = [&](int row) { return std::tuple(float(men[row].bowl_sr), float(men[row].econ)); };
  for (int& place : best) {
    for (int row = 1; row <= men_in_eleven; ++row) {
      if (men[row].is_keeper != 0 || row == best[0]) continue;
      if (place == 0 || key(row) < key(place)) place = row;
    }
  }
  return best;
}

}  // namespace velorin
