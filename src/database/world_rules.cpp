// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/world_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "database/slots.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr std::string_view roles[] = {"Opener", "Middle Order", "Lower Order"};
constexpr int most_days_hour = 23;
constexpr int most_hours_minute = 59;

std::string rate_text(float value) { return std::isfinite(value) ? number_text(value) : "not a number"; }

/// The bytes of the record that carries a man into the match: it leaves the reserved texts behind.
std::size_t eleven_size(const player_rec& man) {
  player_rec carried = man;
  carried.reserved = {};
  return encoded(carried).size();
}

/// Collects the faults of one squad place.
class player_rules {
 public:
  player_rules(std::vector<rule_fault>& faults, int place) : faults_(faults), place_(place) {}

  void check(const player_rec& man) {
    if (const std::size_t size = eleven_size(man); size > eleven_slot) {
      add("name", "name", fmt::format("an eleven's record of {} bytes, at most {}", size, eleven_slot));
    }
    if (man.bat_skill < 1) add("bat_skill", "bat_skill", fmt::format("{}, at least 1", int{man.bat_skill}));
    check_rate("bowl_sr", man.bowl_sr);
    check_rate("econ", man.econ);
    if (man.is_keeper != 0 && man.is_keeper != flag_true) {
      add("is_keeper", "keeper", fmt::format("{} is no flag (-1 or 0)", int{man.is_keeper}));
    }
    if (std::find(std::begin(roles), std::end(roles), man.role()) == std::end(roles)) {
      add("bat_type", "role", fmt::format("\"{}\" is no known role", man.role()));
    }
  }

  void add(const char* field, const char* column, std::string what) {
    faults_.push_back({place_, field, column, std::move(what)});
  }

 private:
  void check_rate(const char* field, float rate) {
    if (!std::isfinite(rate) || rate <= 0) add(field, field, fmt::format("{}, must be above 0", rate_text(rate)));
  }

  std::vector<rule_fault>& faults_;
  int place_;
};

bool is_time_of_day(std::int32_t time) { return time / 100 <= most_days_hour && time % 100 <= most_hours_minute; }

}  // namespace

bool is_blank(const player_rec& man) { return encoded(man) == encoded(player_rec()); }

std::vector<rule_fault> team_faults(const team_rec& team, const std::vector<team_rec>& before) {
  std::vector<rule_fault> faults;
  if (const std::size_t size = encoded(team).size(); size > team_slot) {
    faults.push_back({0, "", "team", fmt::format("a record of {} bytes, at most {}", size, team_slot)});
  }
  if (team.team_name.empty()) faults.push_back({0, "team_name", "team", "the team has no name"});
  if (std::any_of(before.begin(), before.end(), [&](const team_rec& other) {
        return other.team_name == team.team_name && !team.team_name.empty();
      })) {
    faults.push_back({0, "team_name", "team", fmt::format("a second team called \"{}\"", team.team_name)});
  }
  bool free_place = false;
  for (int i = 1; i <= player_limit; ++i) {
    const player_rec& man = team.squad[i];
    if (man.name.empty()) {
      free_place = true;
      continue;
    }
    player_rules rules(faults, i);
    if (free_place) rules.add("name", "name", "a player behind a free place");
    free_place = false;
    rules.check(man);
  }
  return faults;
}

std::vector<rule_fault> ground_faults(const ground_rec& ground, const std::vector<team_rec>* teams) {
  std::vector<rule_fault> faults;
  const auto add = [&faults](const char* field, const char* column, std::string what) {
    faults.push_back({0, field, column, std::move(what)});
  };
  if (const std::size_t size = encoded(ground).size(); size > team_slot) {
    add("", "ground", fmt::format("a record of {} bytes, at most {}", size, team_slot));
  }
  const bool known =
      teams == nullptr || ground.country == "Neutral" ||
      std::any_of(teams->begin(), teams->end(), [&](const team_rec& team) { return team.team_name == ground.country; });
  if (!known) add("country", "country", fmt::format("\"{}\" is neither a team nor \"Neutral\"", ground.country));
  if (ground.ground_name.empty()) add("ground_name", "ground", "the ground has no name");
  const auto check_pitch = [&](const char* field, int value) {
    if (value < 1 || value > 4) add(field, field, fmt::format("{}, must be from 1 to 4", value));
  };
  check_pitch("pitch_bounce", ground.pitch_bounce);
  check_pitch("pitch_surface", ground.pitch_surface);
  if (ground.start_time < 1000 || ground.start_time > 9999) {
    add("start_time", "start_time", fmt::format("{} has not four digits", ground.start_time));
  } else if (!is_time_of_day(ground.start_time)) {
    add("start_time", "start_time", fmt::format("{} is no time of day", ground.start_time));
  }
  return faults;
}

}  // namespace velorin
