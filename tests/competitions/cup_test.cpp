// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/cup_test.h"

#include <algorithm>

#include "competitions/wc_fix.h"

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
  user_.on_wc_fix.assign(lists, [](wc_fix& list) { list.command1_click(); });
  user_.on_wc_fix.push_back([](wc_fix& list) { list.command3_click(); });
}

void CupTest::tie_the_leagues() { force(std::vector<int>(29, 0)); }

}  // namespace velorin::testing
