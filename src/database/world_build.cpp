// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <array>
#include <limits>

#include "database/csv.h"
#include "database/slots.h"
#include "database/world.h"
#include "database/world_rules.h"

namespace velorin {

namespace {

constexpr long least_integer = std::numeric_limits<std::int16_t>::min();
constexpr long most_integer = std::numeric_limits<std::int16_t>::max();

/// The rows that a team stands on: that of its first player, and that of each squad place.
using team_rows = std::array<int, player_limit + 1>;

/// The teams of a table and where each of them stands in it.
struct built_teams {
  std::vector<team_rec> teams;
  std::vector<team_rows> rows;
};

player_rec player_in(const csv_table& table, int row) {
  player_rec man;
  man.name = table.text(row, "name");
  man.bat_skill = table.whole_number(row, "bat_skill", least_integer, most_integer);
  man.bowl_sr = table.single(row, "bowl_sr");
  man.econ = table.single(row, "econ");
  const std::string& keeper = table.text(row, "keeper");
  if (keeper != "yes" && keeper != "no") table.refuse(row, "keeper", fmt::format("\"{}\" is not yes or no", keeper));
  man.is_keeper = keeper == "yes" ? flag_true : 0;
  const std::string& hand = table.text(row, "hand");
  const std::string& role = table.text(row, "role");
  // A free place may hold less than three characters in all.
  if (hand.size() != 3 && !(man.name.empty() && role.empty() && hand.size() < 3)) {
    table.refuse(row, "hand", fmt::format("\"{}\" has not three characters", hand));
  }
  man.bat_type = hand + role;
  man.bowler_type = table.text(row, "bowler_type");
  for (std::size_t i = 0; i < man.reserved.size(); ++i) {
    man.reserved[i] = table.text(row, fmt::format("reserved_{}", i + 1));
  }
  return man;
}

[[noreturn]] void raise_beyond(const csv_table& table, int row, const char* column, std::string_view what) {
  throw run_time_error(failure::subscript, fmt::format("Line {}: {}", table.line(row), what),
                       {table.name(), 0, column, table.text(row, column)});
}

/// The place of the row's team in the list, added at its end if it is new.
std::size_t team_of(built_teams& built, const csv_table& table, int row) {
  const std::string& name = table.text(row, "team");
  for (std::size_t t = 0; t < built.teams.size(); ++t) {
    if (built.teams[t].team_name == name) return t;
  }
  if (built.teams.size() == team_limit) {
    raise_beyond(table, row, "team", fmt::format("more than {} teams", team_limit));
  }
  team_rec team;
  team.team_name = name;
  team.team_flag = table.whole_number(row, "team_flag", least_integer, most_integer);
  built.teams.push_back(std::move(team));
  built.rows.push_back({row});
  return built.teams.size() - 1;
}

built_teams teams_in(const csv_table& table) {
  built_teams built;
  std::array<int, team_limit> players{};
  for (int row = 0; row < table.rows(); ++row) {
    const std::size_t t = team_of(built, table, row);
    team_rec& team = built.teams[t];
    if (table.whole_number(row, "team_flag", least_integer, most_integer) != team.team_flag) {
      table.refuse(row, "team_flag", fmt::format("not the {} of the team's first row", int{team.team_flag}));
    }
    if (players[t] == player_limit) {
      raise_beyond(table, row, "name", fmt::format("more than {} players of {}", player_limit, team.team_name));
    }
    const int place = ++players[t];
    team.squad[place] = player_in(table, row);
    built.rows[t][place] = row;
  }
  return built;
}

std::vector<ground_rec> grounds_in(const csv_table& table) {
  std::vector<ground_rec> grounds;
  if (table.rows() > most_integer) {
    raise_beyond(table, static_cast<int>(most_integer), "ground", fmt::format("more than {} grounds", most_integer));
  }
  for (int row = 0; row < table.rows(); ++row) {
    ground_rec ground;
    ground.country = table.text(row, "country");
    ground.ground_name = table.text(row, "ground");
    for (std::size_t i = 0; i < ground.reserved.size(); ++i) {
      ground.reserved[i] =
          table.whole_number(row, fmt::format("ground_reserved_{}", i + 1), least_integer, most_integer);
    }
    ground.pitch_bounce = table.whole_number(row, "pitch_bounce", least_integer, most_integer);
    ground.pitch_surface = table.whole_number(row, "pitch_surface", least_integer, most_integer);
    ground.start_time = static_cast<std::int32_t>(table.whole_number(
        row, "start_time", std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    grounds.push_back(std::move(ground));
  }
  return grounds;
}

/// Raises the run_time_error of a broken rule: overflow for a record beyond its slot, else type.
[[noreturn]] void raise_rule(const csv_table& table, int row, const rule_fault& fault, const std::string& whose) {
  throw run_time_error(fault.field.empty() ? failure::overflow : failure::type,
                       fmt::format("Line {}: {}", table.line(row), fault.what), {table.name(), 0, fault.column, whose});
}

void require_rules(const csv_table& table, const built_teams& built) {
  for (std::size_t t = 0; t < built.teams.size(); ++t) {
    const team_rec& team = built.teams[t];
    const std::vector<team_rec> before(built.teams.begin(), built.teams.begin() + static_cast<std::ptrdiff_t>(t));
    for (const rule_fault& fault : team_faults(team, before)) {
      raise_rule(table, built.rows[t][fault.place], fault,
                 fault.place == 0 ? team.team_name : team.squad[fault.place].name);
    }
  }
}

void require_rules(const csv_table& table, const std::vector<ground_rec>& grounds, const std::vector<team_rec>& teams) {
  for (std::size_t g = 0; g < grounds.size(); ++g) {
    for (const rule_fault& fault : ground_faults(grounds[g], &teams)) {
      raise_rule(table, static_cast<int>(g), fault, grounds[g].ground_name);
    }
  }
}

/// Refuses a world in which not any two teams can play.
void require_play(const csv_table& players, const csv_table& places, const std::vector<team_rec>& teams,
                  const std::vector<ground_rec>& grounds) {
  if (const auto what = teams_missing(teams.size())) {
    throw run_time_error(failure::type, *what, {players.name(), 0, "team", {}});
  }
  const std::vector<std::string> missing = grounds_missing(teams, grounds);
  if (!missing.empty()) throw run_time_error(failure::type, missing.front(), {places.name(), 0, "country", {}});
}

/// The careers and records that lie beside a team file.
database_files beside(const std::filesystem::path& team_file) {
  database_files database;
  database.career_file = database.record_file = team_file;
  database.career_file.replace_extension(".rec");
  database.record_file.replace_extension(".ptr");
  return database;
}

/// The bytes of a file of records behind their count.
template <typename Record>
std::string counted_file(const std::vector<Record>& records, const std::filesystem::path& path) {
  slot_file file({}, team_slot, file_name_text(path));
  file.put(1, encoded_field(integer(records.size())), {});
  for (std::size_t i = 0; i < records.size(); ++i) file.put(static_cast<long>(i) + 2, encoded(records[i]), {});
  return file.bytes();
}

}  // namespace

void build_database(const std::filesystem::path& source, const std::filesystem::path& team_file,
                    const std::filesystem::path& ground_file, turn_watcher* watcher) {
  const csv_table players(
      source / "players.csv", {"team", "name", "bat_skill", "bowl_sr", "econ", "keeper", "hand", "role", "bowler_type"},
      {"team_flag", "reserved_1", "reserved_2", "reserved_3", "reserved_4", "reserved_5", "reserved_6"});
  const csv_table places(source / "grounds.csv", {"country", "ground", "pitch_bounce", "pitch_surface", "start_time"},
                         {"ground_reserved_1", "ground_reserved_2", "ground_reserved_3"});
  const built_teams built = teams_in(players);
  const std::vector<ground_rec> grounds = grounds_in(places);
  require_rules(players, built);
  require_rules(places, grounds, built.teams);
  require_play(players, places, built.teams, grounds);

  const folder_lock turn(team_file, watcher);
  require_sound_records(beside(team_file));
  staged_files staged({team_file, ground_file});
  staged.write(counted_file(built.teams, team_file));
  staged.write(counted_file(grounds, ground_file));
  staged.put_in_place();
}

}  // namespace velorin
