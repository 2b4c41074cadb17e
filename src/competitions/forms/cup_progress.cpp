// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/cup_progress.h"
#include "competitions/world_cup.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr int group_matches = 20;
constexpr int super_six_matches = 9;

QString played(const char* stage, int matches, int of) {
  return QStringLiteral("%1: %2 of %3 played").arg(QLatin1String(stage)).arg(matches).arg(of);
}

bool captained(const std::string& team, const std::array<std::string, 5>& teams, const std::array<bool, 5>& human) {
  for (std::size_t i = 0; i < teams.size(); ++i) {
    if (human[i] && teams[i] == team) return true;
  }
  return false;
}

}  // namespace

QString cup_progress(world_cup_record& world_cup) {
  const int next = world_cup.next_match;
  switch (world_cup.stage) {
    case cup_stage::drawn:
      return played("Group matches", 0, group_matches);
    case cup_stage::group_matches:
      return played("Group matches", std::max(0, next - 1), group_matches);
    case cup_stage::super_six_draw:
      return played("Super Six", 0, super_six_matches);
    case cup_stage::super_six_matches:
      return played("Super Six", std::max(0, next - group_matches - 1), super_six_matches);
    case cup_stage::knock_out:
      // The tables are shown before the count goes up.
      return next > 2 ? QStringLiteral("Final played") : played("Semi-finals", next, 2);
    case cup_stage::over:
      break;
  }
  return {};
}

bool has_super_six(world_cup_record& world_cup) { return world_cup.stage >= cup_stage::super_six_draw; }

fixture_captains captains_of(world_cup_record& world_cup, const cup_fixture& fixture) {
  const auto at = [](integer place) { return static_cast<std::size_t>(int(place)); };
  if (fixture.team_a.empty()) return {};
  if (fixture.stage == "SS") {
    // Before this tournament's draw those of an earlier one stand there.
    if (!has_super_six(world_cup)) return {};
    return {world_cup.super_six_human[at(fixture.index_a)], world_cup.super_six_human[at(fixture.index_b) + 3]};
  }
  const std::array<bool, 5>& human = fixture.stage == "A" ? world_cup.human_a : world_cup.human_b;
  return {human[at(fixture.index_a) - 1], human[at(fixture.index_b) - 1]};
}

bool human_in_group_a(world_cup_record& world_cup, const std::string& team) {
  return captained(team, world_cup.chosen_a, world_cup.human_a);
}
bool human_in_group_b(world_cup_record& world_cup, const std::string& team) {
  return captained(team, world_cup.chosen_b, world_cup.human_b);
}

}  // namespace velorin
