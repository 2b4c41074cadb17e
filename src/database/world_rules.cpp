// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/world_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

#include "database/slots.h"
#include "model/code_page.h"
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

/// Calls `faulty` for the texts of a record that are at fault.
template <typename Record, typename Faulty>
void visit_texts(const Record& rec, Faulty faulty) {
  visit_fields(rec, [&](const char* field, const auto& value) {
    if constexpr (std::is_convertible_v<decltype(value), std::string_view>) {
      if (auto what = text_fault(value)) faulty(field, std::move(*what));
    }
  });
}

/// Collects the faults of one squad place.
class player_rules {
 public:
  player_rules(std::vector<rule_fault>& faults, int place) : faults_(faults), place_(place) {}

  void check(const player_rec& man) {
    if (const std::size_t size = eleven_size(man); size > eleven_slot) {
      add("name", "name", fmt::format("an eleven's record of {} bytes, at most {}", size, eleven_slot));
    }
    if (man.bat_skill < 1 || man.bat_skill > most_balls) {
      add("bat_skill", "bat_skill", fmt::format("{}, must be from 1 to {}", int{man.bat_skill}, most_balls));
    }
    check_rate("bowl_sr", man.bowl_sr, most_balls);
    check_rate("econ", man.econ, most_econ);
    check_kept(man);
    if (std::find(std::begin(roles), std::end(roles), man.role()) == std::end(roles)) {
      add("bat_type", "role", fmt::format("\"{}\" is no known role", man.role()));
    }
  }

  /// What holds for a free place, too: its values must fit a table.
  void check_free(const player_rec& man) {
    for (const auto& [field, rate] : {std::pair("bowl_sr", man.bowl_sr), std::pair("econ", man.econ)}) {
      if (!std::isfinite(rate)) add(field, field, rate_text(rate));
    }
    check_kept(man);
  }

  void add(const char* field, const char* column, std::string what) {
    faults_.push_back({place_, field, column, std::move(what)});
  }

 private:
  void check_rate(const char* field, float rate, int most) {
    if (std::isfinite(rate) && rate > 0 && rate <= static_cast<float>(most)) return;
    add(field, field, fmt::format("{}, must be above 0 and at most {}", rate_text(rate), most));
  }
  void check_kept(const player_rec& man) {
    if (man.is_keeper != 0 && man.is_keeper != flag_true) {
      add("is_keeper", "keeper", fmt::format("{} is no flag (-1 or 0)", int{man.is_keeper}));
    }
    visit_texts(man, [this](const char* field, std::string what) {
      add(field, field == std::string_view("bat_type") ? "role" : field, std::move(what));
    });
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
  if (auto what = text_fault(team.team_name)) faults.push_back({0, "team_name", "team", std::move(*what)});
  if (std::any_of(before.begin(), before.end(), [&](const team_rec& other) {
        return other.team_name == team.team_name && !team.team_name.empty();
      })) {
    faults.push_back({0, "team_name", "team", fmt::format("a second team called \"{}\"", team.team_name)});
  }
  bool free_place = false;
  for (int i = 1; i <= player_limit; ++i) {
    const player_rec& man = team.squad[i];
    player_rules rules(faults, i);
    if (man.name.empty()) {
      free_place = true;
      rules.check_free(man);
      continue;
    }
    if (free_place) rules.add("name", "name", "a player behind a free place");
    free_place = false;
    rules.check(man);
  }
  const auto players =
      std::count_if(team.squad.begin() + 1, team.squad.end(), [](const player_rec& man) { return !man.name.empty(); });
  if (players < least_players) {
    faults.push_back({0, "squad", "name", fmt::format("{} players, at least {}", players, least_players)});
  }
  return faults;
}

std::optional<std::string> teams_missing(std::size_t teams) {
  if (teams >= least_teams) return std::nullopt;
  return fmt::format("{} team{}, at least {}", teams, teams == 1 ? "" : "s", least_teams);
}

std::vector<std::string> grounds_missing(const std::vector<team_rec>& teams, const std::vector<ground_rec>& grounds) {
  const auto at_home = [&](std::string_view country) {
    return std::any_of(grounds.begin(), grounds.end(),
                       [&](const ground_rec& ground) { return ground.country == country; });
  };
  if (at_home("Neutral")) return {};
  std::vector<std::string> away;  // the teams without a ground
  for (const team_rec& team : teams) {
    if (!team.team_name.empty() && !at_home(team.team_name)) away.push_back(team.team_name);
  }
  std::vector<std::string> missing;
  for (std::size_t first = 0; first < away.size(); ++first) {
    for (std::size_t second = first + 1; second < away.size(); ++second) {
      missing.push_back(fmt::format("no ground for \"{}\" against \"{}\"", away[first], away[second]));
    }
  }
  return missing;
}

std::optional<std::string> text_fault(std::string_view text) {
  if (has_control(text)) return fmt::format("\"{}\" has a control character", text);
  return std::nullopt;
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
  visit_texts(ground, [&](const char* field, std::string what) {
    add(field, field == std::string_view("country") ? "country" : "ground", std::move(what));
  });
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
