// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/cup_progress.h"

#include "competitions/next_match.h"
#include "competitions/world_cup.h"

namespace velorin {

namespace {

QString played(const char* stage, int matches, int of) {
  return QStringLiteral("%1: %2 of %3 played").arg(QLatin1String(stage)).arg(matches).arg(of);
}

bool captained(const std::string& team, const std::array<std::string, cup_group_teams>& teams,
               const std::array<bool, cup_group_teams>& human) {
  for (std::size_t i = 0; i < teams.size(); ++i) {
    if (human[i] && teams[i] == team) return true;
  }
  return false;
}

}  // namespace

QString cup_progress(const world_cup_record& world_cup) {
  if (world_cup.stage == cup_stage::over) return {};
  const auto coming = next_match(world_cup);
  if (!coming) return QStringLiteral("Final played");
  const int matches = coming->number - 1;
  switch (world_cup.stage) {
    case cup_stage::super_six_draw:
    case cup_stage::super_six_matches:
      return played("Super Six", matches - cup_group_matches, cup_super_six_matches);
    case cup_stage::knock_out:
      return played("Semi-finals", matches - cup_last_fixture, cup_semi_finals);
    default:
      return played("Group matches", matches, cup_group_matches);
  }
}

fixture_captains captains_of(const world_cup_record& world_cup, const cup_fixture& fixture) {
  // Before this tournament's draw those of an earlier one stand in the Super Six.
  if (fixture.team_a.empty() || (fixture.stage == "SS" && !has_super_six(world_cup))) return {};
  const auto sides = fixture_sides(world_cup, fixture);
  return sides ? fixture_captains{sides->front().human, sides->back().human} : fixture_captains();
}

bool human_in_group_a(const world_cup_record& world_cup, const std::string& team) {
  return captained(team, world_cup.chosen_a, world_cup.human_a);
}
bool human_in_group_b(const world_cup_record& world_cup, const std::string& team) {
  return captained(team, world_cup.chosen_b, world_cup.human_b);
}

}  // namespace velorin
