// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/new_match.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "database/elevens.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "setup/match_steps.h"
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

/// The team of the entry chosen.
chosen_team team_of(const std::vector<team_entry>& list, int index) {
  if (index < 0) return {};
  const team_entry& entry = list[static_cast<std::size_t>(index)];
  return {entry.name, entry.record};
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

std::string new_match_form::ground_country() const {
  if (ground_index < 0) return {};
  const std::vector<ground_rec>& all = read_grounds(play_.data);
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const ground_rec& each) { return each.ground_name == ground_name(); });
  return found == all.end() ? std::string() : found->country;
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

std::array<chosen_team, 2> new_match_form::chosen_teams() const {
  return {team_of(teams, first_team_index), team_of(teams, second_team_index)};
}

void new_match_form::begin() {
  // A match that broke off has left its marks.
  keep_worms(play_.match);
  leave_play(play_.match);
  play_.match.step = match_step::none;
  play_.match.first_team_done = play_.match.exchange_tried = false;
  play_.match.result_before.reset();
  take_ground(play_.match, play_.data, ground_name());
  play_.match.practice = practice;
  play_.match.occasion = {};
  play_.match.computer_bats = computer_captains_first;
  play_.match.computer_bowls = computer_captains_second;
  play_.match.chosen = chosen_teams();
  play_.match.elevens_before = read_elevens_before(play_.data);
  conditions_form(play_).open();
  play_.match.step = match_step::conditions;
}

entered_game new_match_form::entered() const {
  const auto team = [this](int index, bool computer) {
    const team_entry& entry = teams[static_cast<std::size_t>(index)];
    return entered_team{entry.name, entry.record, !computer};
  };
  return {.kind = game_kind::match,
          .teams = {team(first_team_index, computer_captains_first), team(second_team_index, computer_captains_second)},
          .ground = ground_name(),
          .number = practice ? 1 : 0,
          .hosts = {}};
}

void new_match_form::accept() {
  visible = false;
  try {
    if (first_team_index >= 0 && second_team_index >= 0) play_.user.game_begins(entered());
    begin();
    left = !resume_match(play_);
  } catch (...) {
    visible = true;
    throw;
  }
}

}  // namespace velorin
