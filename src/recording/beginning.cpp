// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/beginning.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "competitions/match_entry.h"
#include "database/teams_file.h"

namespace velorin {

namespace {

using numbered_team = std::pair<int, std::reference_wrapper<const team_rec>>;

bool is_fresh(const world_cup_record& cup) { return standing_cup(cup).empty() && !cup.quit_requested; }

std::vector<numbered_team> teams_of(const entered_game& entered, game_state& game) {
  std::vector<numbered_team> found;
  found.reserve(entered.teams.size());
  // A match chooses by number, a competition by name.
  const std::vector<team_rec>& teams = read_team_list(game.data);
  for (std::size_t i = 0; i < teams.size(); ++i) {
    const int number = static_cast<int>(i) + 2;
    const bool taken = std::any_of(entered.teams.begin(), entered.teams.end(), [&](const entered_team& each) {
      return each.record == number || (!each.name.empty() && each.name == teams[i].team_name);
    });
    if (taken) found.emplace_back(number, teams[i]);
  }
  return found;
}

std::vector<std::reference_wrapper<const ground_rec>> grounds_of(const entered_game& entered, game_state& game) {
  std::vector<std::reference_wrapper<const ground_rec>> found;
  for (const ground_rec& ground : read_grounds(game.data)) {
    if (entered.kind != game_kind::match || ground.ground_name == entered.ground) found.emplace_back(ground);
  }
  return found;
}

// Field by field, so that no field to come is forgotten: it does not compile then.

bool is_same(const player_rec& one, const player_rec& other) {
  const auto& [name, bat_skill, bowl_sr, econ, is_keeper, bat_type, bowler_type, reserved] = one;
  const auto& [name_2, bat_skill_2, bowl_sr_2, econ_2, is_keeper_2, bat_type_2, bowler_type_2, reserved_2] = other;
  return name == name_2 && bat_skill == bat_skill_2 && bowl_sr == bowl_sr_2 && econ == econ_2 &&
         is_keeper == is_keeper_2 && bat_type == bat_type_2 && bowler_type == bowler_type_2 &&
         std::equal(reserved.begin(), reserved.end(), reserved_2.begin());
}

bool is_same(const team_rec& one, const team_rec& other) {
  const auto& [name, flag, squad] = one;
  const auto& [name_2, flag_2, squad_2] = other;
  const auto same_man = [](const player_rec& man, const player_rec& man_2) { return is_same(man, man_2); };
  return name == name_2 && flag == flag_2 && std::equal(squad.begin(), squad.end(), squad_2.begin(), same_man);
}

bool is_same(const ground_rec& one, const ground_rec& other) {
  const auto& [country, name, reserved, bounce, surface, start] = one;
  const auto& [country_2, name_2, reserved_2, bounce_2, surface_2, start_2] = other;
  return country == country_2 && name == name_2 && reserved == reserved_2 && bounce == bounce_2 &&
         surface == surface_2 && start == start_2;
}

/// Copies what is not there yet. True if everything was.
bool take_teams(std::vector<std::pair<int, team_rec>>& into, const std::vector<numbered_team>& teams) {
  const auto same = [](const std::pair<int, team_rec>& had, const numbered_team& found) {
    return had.first == found.first && is_same(had.second, found.second);
  };
  if (std::equal(into.begin(), into.end(), teams.begin(), teams.end(), same)) return true;
  into.assign(teams.begin(), teams.end());
  return false;
}

bool take_grounds(std::vector<ground_rec>& into, const std::vector<std::reference_wrapper<const ground_rec>>& grounds) {
  const auto same = [](const ground_rec& had, const ground_rec& found) { return is_same(had, found); };
  if (std::equal(into.begin(), into.end(), grounds.begin(), grounds.end(), same)) return true;
  into.assign(grounds.begin(), grounds.end());
  return false;
}

}  // namespace

bool begin(recorded_beginning& begun, const entered_game& entered, game_state& game) {
  begun.game = entered;
  const bool same_teams = take_teams(begun.teams, teams_of(entered, game));
  const bool same_grounds = take_grounds(begun.grounds, grounds_of(entered, game));
  begun.database = game.data.files.base;
  begun.text_color = game.data.settings.text_color;
  begun.back_color = game.data.settings.back_color;
  begun.chance = game.chance.drawn_from();
  begun.chance_state = game.chance.state();
  begun.standing.worms = game.match;
  begun.standing.world_cup.reset();
  if (entered.kind == game_kind::world_cup && !is_fresh(game.world_cup)) begun.standing.world_cup = game.world_cup;
  return same_teams && same_grounds;
}

}  // namespace velorin
