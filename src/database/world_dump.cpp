// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "database/csv.h"
#include "database/file_calls.h"
#include "database/made_folders.h"
#include "database/slots.h"
#include "database/world.h"
#include "database/world_rules.h"
#include "model/game_names.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

using text_row = std::vector<std::string>;

/// A table on its way to a file.
struct dumped_table {
  std::string file;
  std::vector<text_row> rows;  ///< the header first
};

std::string field_text(const std::string& text) { return text; }
std::string field_text(const integer& number) { return number_text(int{number}); }
std::string field_text(std::int32_t number) { return number_text(long{number}); }
std::string field_text(const tagged& value) { return value.text(); }
template <std::size_t n>
std::string field_text(const std::array<std::uint8_t, n>& raw) {
  std::string text;
  for (const std::uint8_t byte : raw) text += fmt::format("{:02X}", byte);
  return text;
}

/// Collects the names or the texts of a record's fields.
class row_maker {
 public:
  row_maker(text_row& row, bool names) : row_(row), names_(names) {}

  template <typename Field>
  void operator()(const char* name, const Field& field) {
    row_.push_back(names_ ? std::string(name) : field_text(field));
  }
  template <typename Field>
  void operator()(table_value, const char* name, const Field& field) {
    (*this)(name, field);
  }

 private:
  text_row& row_;
  bool names_;
};

template <typename Record>
text_row header_of(const std::string& first_column) {
  text_row row;
  if (!first_column.empty()) row.push_back(first_column);
  visit_fields(std::as_const(*std::make_unique<Record>()), row_maker(row, true));
  return row;
}

template <typename Record>
text_row row_of(const std::string& first_column, const Record& rec) {
  text_row row;
  if (!first_column.empty()) row.push_back(first_column);
  visit_fields(rec, row_maker(row, false));
  return row;
}

/// A list with the number of each line ahead; `is_free` tells the lines to leave out.
template <typename Line, std::size_t n, typename Free>
dumped_table list_table(const char* file, const char* number_name, const std::array<Line, n>& list, Free is_free) {
  dumped_table table{file, {header_of<Line>(number_name)}};
  for (std::size_t i = 1; i < n; ++i) {
    if (!is_free(list[i])) table.rows.push_back(row_of(number_text(static_cast<long>(i)), list[i]));
  }
  return table;
}

[[noreturn]] void raise_lost(const std::string& file, long record, std::string field, std::string_view what,
                             const std::string& whose) {
  throw run_time_error(failure::type, fmt::format("A table cannot keep {}", what),
                       {file, record, std::move(field), whose});
}

/// The text from which a single reads back bit by bit.
std::string single_text(float value) { return value == 0 && std::signbit(value) ? "-0" : number_text(value); }

/// Takes the columns of a table that hold nothing but `empty` away.
void drop_idle_column(dumped_table& table, const std::string& name, const std::string& empty) {
  const text_row& header = table.rows.front();
  const auto at = std::find(header.begin(), header.end(), name) - header.begin();
  const bool idle =
      std::all_of(table.rows.begin() + 1, table.rows.end(), [&](const text_row& row) { return row[at] == empty; });
  if (!idle) return;
  for (text_row& row : table.rows) row.erase(row.begin() + at);
}

/// The squad places up to the last that holds anything; at least one, so that each team has a row.
int used_places(const team_rec& team) {
  int last = player_limit;
  while (last > 1 && is_blank(team.squad[last])) --last;
  return last;
}

text_row player_row(const team_rec& team, int place, const std::string& file, long record) {
  const player_rec& man = team.squad[place];
  const auto field = [&](const char* name) { return fmt::format("squad[{}].{}", place, name); };
  if (man.is_keeper != 0 && man.is_keeper != flag_true) {
    raise_lost(file, record, field("is_keeper"), "a flag that is not -1 or 0", man.name);
  }
  if (!std::isfinite(man.bowl_sr)) raise_lost(file, record, field("bowl_sr"), "what is no number", man.name);
  if (!std::isfinite(man.econ)) raise_lost(file, record, field("econ"), "what is no number", man.name);
  text_row row{team.team_name,
               man.name,
               number_text(int{man.bat_skill}),
               single_text(man.bowl_sr),
               single_text(man.econ),
               man.is_keeper == flag_true ? "yes" : "no",
               man.bat_type.substr(0, 3),
               std::string(man.role()),
               man.bowler_type,
               number_text(int{team.team_flag})};
  row.insert(row.end(), man.reserved.begin(), man.reserved.end());
  return row;
}

dumped_table players_table(const std::filesystem::path& path) {
  const slot_file file = slot_file::read_existing(path, team_slot);
  const auto teams = file.counted_records<team_rec>("team_count", team_limit);
  dumped_table table{
      "players.csv",
      {{"team", "name", "bat_skill", "bowl_sr", "econ", "keeper", "hand", "role", "bowler_type", "team_flag",
        "reserved_1", "reserved_2", "reserved_3", "reserved_4", "reserved_5", "reserved_6"}}};
  for (std::size_t t = 0; t < teams.size(); ++t) {
    const long record = static_cast<long>(t) + 2;
    for (std::size_t other = 0; other < t; ++other) {
      if (teams[other].team_name != teams[t].team_name) continue;
      raise_lost(file.name(), record, "team_name", "two teams of one name", teams[t].team_name);
    }
    const int last = used_places(teams[t]);
    for (int place = 1; place <= last; ++place) {
      table.rows.push_back(player_row(teams[t], place, file.name(), record));
    }
  }
  drop_idle_column(table, "team_flag", "0");
  for (int i = 1; i <= 6; ++i) drop_idle_column(table, fmt::format("reserved_{}", i), "");
  return table;
}

dumped_table grounds_table(const std::filesystem::path& path) {
  const slot_file file = slot_file::read_existing(path, team_slot);
  const auto grounds = file.counted_records<ground_rec>("ground_count", std::numeric_limits<std::int16_t>::max());
  dumped_table table{"grounds.csv",
                     {{"country", "ground", "pitch_bounce", "pitch_surface", "start_time", "ground_reserved_1",
                       "ground_reserved_2", "ground_reserved_3"}}};
  for (const ground_rec& ground : grounds) {
    text_row row{ground.country, ground.ground_name, number_text(int{ground.pitch_bounce}),
                 number_text(int{ground.pitch_surface}), number_text(long{ground.start_time})};
    for (const integer& reserved : ground.reserved) row.push_back(number_text(int{reserved}));
    table.rows.push_back(std::move(row));
  }
  for (int i = 1; i <= 3; ++i) drop_idle_column(table, fmt::format("ground_reserved_{}", i), "0");
  return table;
}

dumped_table careers_table(const std::filesystem::path& path) {
  const career_table careers = read_career_table(path);
  dumped_table table{"careers.csv", {header_of<career_rec>("team")}};
  for (int t = 1; t <= careers.career_team_count; ++t) {
    const career_team_rec& team = careers.teams[t];
    for (int p = 1; p <= team.player_count; ++p) table.rows.push_back(row_of(team.team_name, team.players[p]));
  }
  return table;
}

void add_record_tables(const std::filesystem::path& path, std::vector<dumped_table>& tables) {
  const record_lists lists = read_record_lists(path);
  const auto no_player = [](const auto& line) { return line.player.empty(); };
  const auto no_team = [](const top_total_rec& line) { return line.team.empty(); };
  tables.push_back(list_table("top_scores.csv", "line", lists.top_scores, no_player));
  tables.push_back(list_table("top_bowling.csv", "line", lists.top_bowling, no_player));
  tables.push_back(list_table("highest_totals.csv", "line", lists.highest_totals, no_team));
  tables.push_back(list_table("lowest_totals.csv", "line", lists.lowest_totals, no_team));
  tables.push_back(list_table("partnerships.csv", "wicket", lists.partnerships,
                              [](const top_partnership_rec& line) { return line.batsman_a.empty(); }));
  dumped_table teams{"team_table.csv", {header_of<team_table>("")}};
  for (int t = 1; t <= lists.table_team_count; ++t) teams.rows.push_back(row_of("", lists.teams[t]));
  tables.push_back(std::move(teams));
}

/// Refuses a table whose name is a link to one of the names of the game's files.
void require_no_game_file(const std::filesystem::path& table) {
  const std::string_view use = game_use_of_name(real_file(table).filename().native());
  if (use.empty()) return;
  throw run_time_error(failure::file, fmt::format("The link leads to the file of {}", use),
                       {.file = file_name_text(table), .record = 0, .field = {}, .player = {}});
}

/// All tables, with no replacement in between.
std::vector<dumped_table> tables_of(const database_files& database) {
  const folder_lock turn(database.team_file, database.watcher);
  std::vector<dumped_table> tables;
  tables.push_back(players_table(database.team_file));
  tables.push_back(grounds_table(database.ground_file));
  tables.push_back(careers_table(database.career_file));
  add_record_tables(database.record_file, tables);
  return tables;
}

}  // namespace

void dump_database(const database_files& database, const std::filesystem::path& folder) {
  const std::vector<dumped_table> tables = tables_of(database);
  made_folders made(folder);
  const folder_lock turn(folder / "players.csv", database.watcher);
  std::vector<std::filesystem::path> targets;
  for (const dumped_table& table : tables) {
    targets.push_back(folder / table.file);
    require_no_game_file(targets.back());
  }
  staged_files staged(targets);
  for (const dumped_table& table : tables) {
    std::string content;
    for (const text_row& row : table.rows) content += csv_line(row);
    staged.write(content);
  }
  staged.put_in_place();
  made.keep();
}

}  // namespace velorin
