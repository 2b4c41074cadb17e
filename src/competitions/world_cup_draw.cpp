// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <utility>

#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "model/random.h"

namespace velorin {

namespace {

// The draws mix the fixtures by exchanges.
constexpr int group_exchanges = 30;
constexpr int super_six_exchanges = 10;

void fill_groups(world_cup_record& world_cup) {
  for (int i = 1; i <= cup_group_teams; ++i) {
    world_cup.group_a[i].team = world_cup.chosen_a[i - 1];
    world_cup.group_b[i].team = world_cup.chosen_b[i - 1];
  }
  for (cup_group* group : {&world_cup.group_a, &world_cup.group_b}) {
    for (int i = 1; i <= cup_group_teams; ++i) {
      for (int j = 1; j <= cup_group_teams; ++j) {
        if (i != j) (*group)[i].versus[j].team = (*group)[j].team;
      }
    }
  }
}

/// Fills a place of the list but for its number; what was there keeps its result.
void fill_fixture(random_source& chance, world_cup_record& world_cup, int place, int index_a, int index_b,
                  const char* stage, const std::string& team_a, const std::string& team_b) {
  cup_fixture& fixture = world_cup.fixtures[place];
  fixture.index_a = index_a;
  fixture.index_b = index_b;
  fixture.team_a = team_a;
  fixture.team_b = team_b;
  fixture.stage = stage;
  fixture.venue = draw_ground(chance, world_cup.grounds);
}

/// Exchanges two places drawn from `count` places from `first` on, so many times.
void shuffle_fixtures(random_source& chance, world_cup_record& world_cup, int times, int count, int first) {
  for (int i = 0; i < times; ++i) {
    chance.reseed();
    const int p = static_cast<int>(std::floor(count * chance.rnd() + first));
    const int q = static_cast<int>(std::floor(count * chance.rnd() + first));
    std::swap(world_cup.fixtures[p], world_cup.fixtures[q]);
  }
}

/// The human flag of a team by its name among the chosen ones: Group A before Group B, the last place of a name counts.
bool human_by_name(const world_cup_record& world_cup, const std::string& name) {
  bool human = false;
  for (std::size_t j = 0; j < cup_group_teams; ++j) {
    if (world_cup.chosen_a[j] == name) human = world_cup.human_a[j];
    if (world_cup.chosen_b[j] == name) human = world_cup.human_b[j];
  }
  return human;
}

void sort_group(cup_group& group) {
  group_league table = group_table(group);
  sort_league(table, cup_group_teams, [&](int j) { std::swap(group[j], group[j + 1]); });
}

/// Enters the qualifiers of a group into the places from `first` on, with their matches against each other.
void carry_over(world_cup_record& world_cup, const cup_group& group, int first) {
  for (int i = 1; i <= cup_qualifiers; ++i) world_cup.super_six[first + i - 1].team = group[i].team;
  for (int i = 1; i <= cup_qualifiers; ++i) {
    league_row& row = world_cup.super_six[first + i - 1];
    for (int j = 1; j <= cup_qualifiers; ++j) {
      for (int k = 1; k <= cup_group_teams; ++k) {
        const league_row& cell = group[i].versus[k];
        if (cell.team != world_cup.super_six[first + j - 1].team) continue;
        add_row(row, cell);
      }
    }
  }
}

}  // namespace

void draw_group_fixtures(random_source& chance, world_cup_record& world_cup) {
  fill_groups(world_cup);
  int place = 1;
  for (int i = 1; i <= cup_group_teams; ++i) {
    for (int j = i + 1; j <= cup_group_teams; ++j) {
      fill_fixture(chance, world_cup, place, i, j, "A", world_cup.group_a[i].team, world_cup.group_a[j].team);
      fill_fixture(chance, world_cup, place + 1, i, j, "B", world_cup.group_b[i].team, world_cup.group_b[j].team);
      place += 2;
    }
  }
  shuffle_fixtures(chance, world_cup, group_exchanges, cup_group_matches, 1);
  int number_a = 0;
  int number_b = 0;
  for (int k = 1; k <= cup_group_matches; ++k) {
    cup_fixture& fixture = world_cup.fixtures[k];
    fixture.match_no = fixture.stage == "A" ? ++number_a : ++number_b;
  }
}

void build_super_six(world_cup_record& world_cup) {
  sort_group(world_cup.group_a);
  sort_group(world_cup.group_b);
  carry_over(world_cup, world_cup.group_a, 1);
  carry_over(world_cup, world_cup.group_b, cup_qualifiers + 1);
}

void draw_super_six_fixtures(random_source& chance, world_cup_record& world_cup) {
  for (int place = 1; place <= cup_super_six_places; ++place) {
    world_cup.super_six_human[place] = human_by_name(world_cup, world_cup.super_six[place].team);
  }
  int place = cup_first_super_six;
  for (int i = 1; i <= cup_qualifiers; ++i) {
    for (int j = 1; j <= cup_qualifiers; ++j) {
      fill_fixture(chance, world_cup, place++, i, j, "SS", world_cup.super_six[i].team,
                   world_cup.super_six[j + cup_qualifiers].team);
    }
  }
  shuffle_fixtures(chance, world_cup, super_six_exchanges, cup_super_six_matches, cup_first_super_six);
  for (int k = cup_first_super_six; k <= cup_last_fixture; ++k) {
    world_cup.fixtures[k].match_no = k - cup_group_matches;
  }
}

}  // namespace velorin
