// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/new_match.h"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "database/configuration.h"
#include "database/elevens.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "engine/match_reset.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

int find_team(const std::vector<team_entry>& list, const std::string& name) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i].name == name) return static_cast<int>(i);
  }
  throw run_time_error(failure::subscript, "Subscript out of range: no such team in the database",
                       {.file = {}, .record = 0, .field = "team_name", .player = name});
}

std::string entry_text(const std::vector<team_entry>& list, int index) {
  return index < 0 ? std::string() : list[static_cast<std::size_t>(index)].name;
}

/// Keeps the ground of this name in the match; without one the ground before stays.
void take_ground(match_state& match, open_database& data, const std::string& name) {
  for (const ground_rec& ground : read_grounds(data)) {
    if (ground.ground_name == name) match.ground = ground;
  }
}

/// Refuses a man with a rating that is no number: nothing can be reckoned with it.
void require_ratings(open_database& data, const squad& men, int record) {
  for (int place = 1; place <= men_in_squad; ++place) {
    const player_rec& man = men[place];
    if (man.name.empty() || (std::isfinite(man.bowl_sr) && std::isfinite(man.econ))) continue;
    const char* field = std::isfinite(man.bowl_sr) ? "econ" : "bowl_sr";
    throw run_time_error(failure::type, "Type mismatch: a rating that is no number",
                         {.file = file_name_text(data.files.team_file),
                          .record = record,
                          .field = "squad[" + number_text(place) + "]." + field,
                          .player = man.name});
  }
}

/// The squad of the entry chosen. The record is read into the place of the team list with its own number, one behind
/// that of the team, so the last of twenty teams has none.
const squad& chosen_squad(open_database& data, const std::vector<team_entry>& list, int index) {
  if (index < 0) {
    throw run_time_error(failure::subscript, "Subscript out of range: no team is chosen",
                         {.file = {}, .record = 0, .field = "team_name", .player = {}});
  }
  const team_entry& entry = list[static_cast<std::size_t>(index)];
  if (entry.record > 20) {
    throw run_time_error(failure::subscript, "Subscript out of range: the twentieth team cannot be played",
                         {.file = {}, .record = entry.record, .field = "team_name", .player = entry.name});
  }
  const squad& men = read_team(data, entry.record).squad;
  require_ratings(data, men, entry.record);
  return men;
}

/// False if the user leaves the match, in the selection or behind it.
bool select_team(const match_play& play, int place, const std::vector<team_entry>& list, int index) {
  const std::string name = entry_text(list, index);
  (place == 0 ? play.match.team1_name : play.match.team2_name) = name;
  play.match.squads[place] = chosen_squad(play.data, list, index);
  sort_squad(play.match.squads[place]);
  team_selection_form form(play);
  form.open(name, play.match.squads[place]);
  play.user.show(form);
  return !form.left;
}

}  // namespace

void sort_squad(squad& men) {
  // An exchange by role leaves unequal roles, so that the skills decide only between equal ones: both exchanges of a
  // step together sort by role and skill, and equals keep their order. The men are put in on places, the next one
  // before those who stand lower.
  struct place {
    std::string_view role;
    int bat_skill;
    int from;
  };
  std::array<place, men_in_squad + 1> order;
  for (int i = 1; i <= men_in_squad; ++i) {
    const place next = {men[i].role(), men[i].bat_skill, i};
    int b = i;
    for (; b > 1; --b) {
      const int roles = order[b - 1].role.compare(next.role);
      if (roles > 0 || (roles == 0 && order[b - 1].bat_skill >= next.bat_skill)) break;
      order[b] = order[b - 1];
    }
    order[b] = next;
  }
  squad sorted;
  for (int i = 1; i <= men_in_squad; ++i) sorted[i] = std::move(men[order[i].from]);
  men = std::move(sorted);
}

void new_match_form::open() {
  teams.clear();
  const std::vector<team_rec>& all_teams = read_team_list(play_.data);
  play_.match.team_count = all_teams.size();
  teams.reserve(all_teams.size());
  for (std::size_t i = 0; i < all_teams.size(); ++i) {
    play_.match.team_list[i + 1] = all_teams[i].team_name;
    teams.push_back({all_teams[i].team_name, static_cast<int>(i) + 2});
  }
  first_team_index = teams.size() > 1 ? 1 : -1;
  second_team_index = teams.size() > 2 ? 2 : -1;
  visible = true;
  rebuild_grounds();
}

std::string new_match_form::first_team_name() const { return entry_text(teams, first_team_index); }
std::string new_match_form::second_team_name() const { return entry_text(teams, second_team_index); }
std::string new_match_form::ground_name() const {
  return ground_index < 0 ? std::string() : grounds[static_cast<std::size_t>(ground_index)];
}

void new_match_form::choose_first_team(int index) {
  first_team_index = index;
  rebuild_grounds();
}

void new_match_form::choose_second_team(int index) {
  second_team_index = index;
  rebuild_grounds();
}

void new_match_form::rebuild_grounds() {
  constexpr std::string_view neutral = "Neutral";
  grounds.clear();
  const std::string first = first_team_name();
  const std::string second = second_team_name();
  const std::vector<ground_rec>& all_grounds = read_grounds(play_.data);
  grounds.reserve(all_grounds.size());
  for (const ground_rec& ground : all_grounds) {
    if (ground.country == first || ground.country == second) grounds.push_back(ground.ground_name);
    if (ground.country == neutral) grounds.push_back(ground.ground_name);
  }
  ground_index = grounds.size() > 1 ? 1 : -1;
}

void new_match_form::enter(const std::string& first, const std::string& second, const std::string& ground) {
  first_team_index = find_team(teams, first);
  second_team_index = find_team(teams, second);
  grounds = {ground};
  ground_index = 0;
}

void new_match_form::accept() {
  visible = false;
  // A match that broke off between its two selections has left its mark.
  play_.match.first_team_done = false;
  try {
    take_ground(play_.match, play_.data, ground_name());
    play_.match.computer_bats = computer_captains_first;
    play_.match.computer_bowls = computer_captains_second;
    const elevens_before elevens(play_.data);
    conditions_form conditions(play_);
    conditions.open();
    play_.user.show(conditions);
    left = conditions.left || !select_team(play_, 0, teams, first_team_index) ||
           !select_team(play_, 1, teams, second_team_index);
    if (left) {
      elevens.put_back(play_.match.selected);
      reset_match(play_.match);
    }
  } catch (...) {
    visible = true;
    throw;
  }
}

}  // namespace velorin
