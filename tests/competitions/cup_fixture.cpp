// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/cup_fixture.h"

#include <algorithm>

#include "competitions/world_cup_fixtures.h"
#include "support/game_in_play.h"

namespace velorin::testing {

std::vector<std::string> order(const std::vector<league_texts>& table) {
  std::vector<std::string> names;
  for (const league_texts& row : table) names.push_back(row[0]);
  return names;
}

void CupTest::SetUp() {
  CompetitionTest::SetUp();
  std::vector<std::string> names = cup_group_a;
  names.insert(names.end(), cup_group_b.begin(), cup_group_b.end());
  add_teams(names);
  form_.open();
}

void CupTest::choose_groups(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  std::copy(a.begin(), a.end(), world_cup.chosen_a.begin());
  std::copy(b.begin(), b.end(), world_cup.chosen_b.begin());
  world_cup.grounds = {"Ardell Oval", "Ardell Park"};
}

void CupTest::quit_after(int lists) {
  user_.on_world_cup_fixtures.assign(lists, [](world_cup_fixtures_form& list) { list.accept(); });
  user_.on_world_cup_fixtures.push_back([](world_cup_fixtures_form& list) { list.quit(); });
}

void CupTest::tie_the_leagues() { force(std::vector<int>(29, 0)); }

}  // namespace velorin::testing
