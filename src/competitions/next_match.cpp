// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/next_match.h"

#include <algorithm>
#include <utility>

#include "competitions/series.h"
#include "competitions/tri_series.h"

namespace velorin {

namespace {

using pair_of_places = std::pair<std::size_t, std::size_t>;

/// The pairs of a round of the tri series, by the places of the teams.
constexpr std::array<pair_of_places, tri_round_matches> round_pairs = {{{1, 2}, {1, 3}, {2, 3}}};

/// The semi-finals, by the places of the Super Six.
constexpr std::array<pair_of_places, cup_semi_finals> semi_final_pairs = {{{1, 4}, {2, 3}}};

std::size_t at(int place) { return static_cast<std::size_t>(place); }

/// The finalist of this name, with the captain of the first team so called.
entered_side tri_finalist(const tri_record& tri, const std::string& name) {
  for (std::size_t i = 1; i <= tri_teams; ++i) {
    if (tri.sides[i].team == name) return tri.sides[i];
  }
  return {name, false};
}

/// The stage and the numbers of a match of the World Cup by its number in the tournament.
coming_match cup_match(int number) {
  coming_match coming;
  coming.number = number;
  coming.left = cup_matches - number;
  if (number <= cup_group_matches) {
    coming.stage = match_stage::cup_groups;
    coming.number_in_stage = number;
  } else if (number <= cup_last_fixture) {
    coming.stage = match_stage::super_six;
    coming.number_in_stage = number - cup_group_matches;
  } else if (number <= cup_last_fixture + cup_semi_finals) {
    coming.stage = match_stage::semi_finals;
    coming.number_in_stage = number - cup_last_fixture;
  } else {
    coming.stage = match_stage::grand_final;
    coming.number_in_stage = 1;
  }
  return coming;
}

/// The number in the tournament of the match that comes next.
int next_cup_number(const world_cup_record& world_cup) {
  switch (world_cup.stage) {
    case cup_stage::drawn:
      return 1;
    case cup_stage::group_matches:
      return std::max(1, world_cup.next_match);
    case cup_stage::super_six_draw:
      return cup_first_super_six;
    case cup_stage::super_six_matches:
      return std::max(cup_first_super_six, world_cup.next_match);
    case cup_stage::knock_out:
      // The tables are shown before the count goes up.
      return cup_last_fixture + world_cup.next_match + 1;
    case cup_stage::over:
      break;
  }
  return cup_matches + 1;
}

std::optional<entered_sides> tie_sides(const world_cup_record& world_cup, const coming_match& coming) {
  if (coming.stage == match_stage::grand_final) return final_sides(world_cup);
  if (world_cup.stage == cup_stage::knock_out) {
    const cup_knockout& semi = world_cup.semi_finals[at(coming.number_in_stage)];
    return entered_sides{{{semi.team_a, semi.human_a}, {semi.team_b, semi.human_b}}};
  }
  // The table is sorted only after its last standings were shown.
  super_six_league table = world_cup.super_six;
  super_six_captains human = world_cup.super_six_human;
  sort_super_six(table, human);
  return semi_final_sides(table, human, coming.number_in_stage);
}

}  // namespace

match_occasion occasion_of(const coming_match& coming) {
  switch (coming.stage) {
    case match_stage::series:
      return {game_kind::series, "", coming.number};
    case match_stage::tri_league:
      return {game_kind::tri_series, "League", coming.number};
    case match_stage::tri_final:
      return {game_kind::tri_series, "Final", coming.number};
    case match_stage::cup_groups:
      return {game_kind::world_cup, "Group", coming.number};
    case match_stage::super_six:
      return {game_kind::world_cup, "Super Six", coming.number};
    case match_stage::semi_finals:
      return {game_kind::world_cup, "Semi-final", coming.number};
    case match_stage::grand_final:
      return {game_kind::world_cup, "Final", coming.number};
  }
  return {};
}

std::optional<coming_match> next_match(const series_record& series) {
  if (series.match_no >= series.matches) return std::nullopt;
  coming_match coming;
  coming.stage = match_stage::series;
  coming.number = coming.number_in_stage = series.match_no + 1;
  coming.left = series.matches - coming.number;
  coming.sides = {{series.home, series.away}};
  return coming;
}

std::optional<coming_match> next_match(const tri_record& tri) {
  const int league_matches = tri_round_matches * tri.rounds;
  if (tri.final_played || league_matches == 0) return std::nullopt;
  coming_match coming;
  if (tri.matches_played < league_matches) {
    const auto [first, second] = round_pairs[at(tri.matches_played % tri_round_matches)];
    coming.stage = match_stage::tri_league;
    coming.number = coming.number_in_stage = tri.matches_played + 1;
    coming.sides = {{tri.sides[first], tri.sides[second]}};
  } else {
    coming.stage = match_stage::tri_final;
    coming.number = league_matches + 1;
    coming.number_in_stage = 1;
    coming.sides = {{tri_finalist(tri, tri.tri_table[1].note), tri_finalist(tri, tri.tri_table[2].note)}};
  }
  coming.left = league_matches + 1 - coming.number;
  return coming;
}

std::optional<coming_match> next_match(const world_cup_record& world_cup) {
  const int number = next_cup_number(world_cup);
  if (number > cup_matches) return std::nullopt;
  coming_match coming = cup_match(number);
  if (number > cup_last_fixture) {
    coming.sides = tie_sides(world_cup, coming);
    return coming;
  }
  // Nobody knows the first match of the Super Six before it is drawn.
  const cup_fixture& fixture = world_cup.fixtures[at(number)];
  if (coming.stage == match_stage::super_six && !has_super_six(world_cup)) return coming;
  coming.sides = fixture_sides(world_cup, fixture);
  if (coming.sides) coming.ground = fixture.venue;
  return coming;
}

int matches_after_this(const series_record& series) {
  const auto next = next_match(series);
  return next ? next->left + 1 : 0;
}

int matches_after_this(const tri_record& tri) {
  const auto in_play = next_match(tri);
  return in_play ? in_play->left : 0;
}

int matches_after_this(const world_cup_record& world_cup) {
  const auto next = next_match(world_cup);
  if (!next) return 0;
  return world_cup.stage == cup_stage::knock_out ? next->left + 1 : next->left;
}

bool has_super_six(const world_cup_record& world_cup) { return world_cup.stage >= cup_stage::super_six_draw; }

std::optional<entered_sides> fixture_sides(const world_cup_record& world_cup, const cup_fixture& fixture) {
  if (fixture.index_a == 0 || fixture.index_b == 0) return std::nullopt;
  const std::size_t a = at(fixture.index_a);
  const std::size_t b = at(fixture.index_b);
  bool human_a = false;
  bool human_b = false;
  if (fixture.stage == "SS") {
    human_a = world_cup.super_six_human[a];
    human_b = world_cup.super_six_human[b + cup_qualifiers];
  } else {
    const auto& human = fixture.stage == "A" ? world_cup.human_a : world_cup.human_b;
    human_a = human[a - 1];
    human_b = human[b - 1];
  }
  return entered_sides{{{fixture.team_a, human_a}, {fixture.team_b, human_b}}};
}

void sort_super_six(super_six_league& table, super_six_captains& human) {
  sort_league(table, cup_super_six_places, [&](int j) { std::swap(human[at(j)], human[at(j) + 1]); });
}

entered_sides semi_final_sides(const super_six_league& table, const super_six_captains& human, int number) {
  const auto [a, b] = semi_final_pairs[at(number - 1)];
  return {{{table[a].team, human[a]}, {table[b].team, human[b]}}};
}

entered_sides final_sides(const world_cup_record& world_cup) {
  const auto winner = [](const cup_knockout& semi) {
    return entered_side{semi.winner, semi.team_a == semi.winner ? semi.human_a : semi.human_b};
  };
  return {{winner(world_cup.semi_finals[1]), winner(world_cup.semi_finals[2])}};
}

}  // namespace velorin
