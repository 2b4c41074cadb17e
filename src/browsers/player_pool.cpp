// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_pool.h"

#include <algorithm>
#include <utility>

namespace velorin {

namespace {

void add_players(player_pool& pool, const career_team_rec& team) {
  for (int p = 1; p <= team.player_count; ++p) pool.push_back(&team.players[p]);
}

}  // namespace

player_pool all_players(const career_table& careers) {
  player_pool pool;
  for (int t = 1; t <= careers.career_team_count; ++t) add_players(pool, careers.teams[t]);
  return pool;
}

player_pool players_of(const career_table& careers, const std::string& team) {
  player_pool pool;
  for (int t = 1; t <= careers.career_team_count; ++t) {
    if (careers.teams[t].team_name == team) add_players(pool, careers.teams[t]);
  }
  return pool;
}

const std::string& team_of(const career_table& careers, const career_rec& career) {
  int t = 1;
  const auto holds = [&](const career_team_rec& team) {
    const auto first = team.players.begin() + 1;
    return std::any_of(first, first + team.player_count, [&](const career_rec& man) { return &man == &career; });
  };
  while (t < careers.career_team_count && !holds(careers.teams[t])) ++t;
  return careers.teams[t].team_name;
}

void sort_by_held_keys(player_pool& pool, career_key key, sort_order order) {
  double held = 0;
  double held_next = 0;
  for (std::size_t last = pool.size(); last > 1; --last) {
    for (std::size_t j = 0; j + 1 < last; ++j) {
      held = key(*pool[j]).value_or(held);
      held_next = key(*pool[j + 1]).value_or(held_next);
      const bool wrong = order == sort_order::descending ? held_next > held : held_next < held;
      if (wrong) std::swap(pool[j], pool[j + 1]);
    }
  }
}

}  // namespace velorin
