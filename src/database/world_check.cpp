// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "database/slots.h"
#include "database/world.h"
#include "database/world_rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// One file with the list to which its faults go.
class checked_file {
 public:
  checked_file(const std::filesystem::path& path, std::size_t slot_length, std::vector<database_fault>& faults)
      : file_(slot_file::read(path, slot_length)), faults_(faults) {}

  void add(long record, std::string field, std::string what) {
    faults_.push_back({file_.name(), record, std::move(field), std::move(what)});
  }

  /// Reads a record; false if its bytes cannot be read. What the end of the file cuts in two is a fault, too.
  template <typename Record>
  bool get(long record, Record& rec) {
    slot_reader fields = file_.reader(record);
    visit_fields(rec, fields);
    return accept(record, fields);
  }
  /// The same for a record of one field.
  template <typename Field>
  bool get_field(long record, const char* name, Field& field) {
    slot_reader fields = file_.reader(record);
    fields(name, field);
    return accept(record, fields);
  }

  /// A count as far as records can be read for it: 0 to `limit`.
  int accept_count(long record, const char* field, double count, int limit) {
    if (count < 0 || count != std::floor(count)) {
      add(record, field, fmt::format("{} is no count", number_text(count)));
      return 0;
    }
    if (count > limit) add(record, field, fmt::format("a count of {}, at most {}", number_text(count), limit));
    return static_cast<int>(std::min<double>(count, limit));
  }

  /// Reads a tagged count.
  int tagged_count(long record, const char* field, int limit) {
    tagged counted;
    if (!get_field(record, field, counted)) return 0;
    const auto count = number_of(record, field, counted);
    return count ? accept_count(record, field, *count, limit) : 0;
  }

  /// The value as a number, or nothing and a fault.
  std::optional<double> number_of(long record, const char* field, const tagged& value) {
    try {
      return value.number();
    } catch (const run_time_error&) {
      add(record, field, "a value that is no number");
      return std::nullopt;
    }
  }

  const slot_file& file() const { return file_; }

 private:
  bool accept(long record, const slot_reader& fields) {
    if (fields.fault()) {
      add(record, fields.fault()->field, fields.fault()->what);
    } else if (fields.cut()) {
      add(record, fields.cut()->field, fields.cut()->what);
    }
    return !fields.fault() && !fields.cut();
  }

  slot_file file_;
  std::vector<database_fault>& faults_;
};

/// Finds figures out of their ranges among the fields of a record.
class figure_check {
 public:
  figure_check(checked_file& file, long record, std::string prefix)
      : file_(file), record_(record), prefix_(std::move(prefix)) {}

  void operator()(const char* name, const integer& number) { check(name, number); }
  void operator()(const char* name, std::int32_t number) { check(name, number); }
  template <typename Other>
  void operator()(const char*, const Other&) {}

 private:
  void check(std::string_view name, long number) {
    if (name == "not_out" || name == "high_not_out") {
      if (number != 0 && number != flag_true) add(name, fmt::format("{} is no flag (-1 or 0)", number));
    } else if (number < 0) {
      add(name, fmt::format("{} is below 0", number));
    } else if (prefix_.empty() && name == "wickets" && number > 10) {
      add(name, fmt::format("{} wickets in an innings", number));
    }
  }
  void add(std::string_view name, std::string what) {
    file_.add(record_, prefix_ + std::string(name), std::move(what));
  }

  checked_file& file_;
  long record_;
  std::string prefix_;
};

bool is_missing(const std::filesystem::path& path) {
  std::error_code failed;
  return std::filesystem::status(path, failed).type() == std::filesystem::file_type::not_found;
}

std::string field_of(const rule_fault& fault) {
  return fault.place == 0 ? fault.field : fmt::format("squad[{}].{}", fault.place, fault.field);
}

std::string what_of(const rule_fault& fault, const team_rec& team) {
  return fault.place == 0 ? fault.what : fmt::format("{} ({})", fault.what, team.squad[fault.place].name);
}

std::vector<team_rec> check_teams(checked_file& file) {
  std::vector<team_rec> teams;
  integer counted;
  file.get_field(1, "team_count", counted);
  const int count = file.accept_count(1, "team_count", int{counted}, team_limit);
  for (int t = 1; t <= count; ++t) {
    team_rec team;
    if (file.get(t + 1, team)) {
      for (const rule_fault& fault : team_faults(team, teams)) {
        file.add(t + 1, field_of(fault), what_of(fault, team));
      }
    }
    teams.push_back(std::move(team));
  }
  return teams;
}

void check_grounds(checked_file& file, const std::vector<team_rec>* teams) {
  integer counted;
  file.get_field(1, "ground_count", counted);
  const int count = file.accept_count(1, "ground_count", int{counted}, std::numeric_limits<std::int16_t>::max());
  for (int g = 1; g <= count; ++g) {
    ground_rec ground;
    if (!file.get(g + 1, ground)) continue;
    for (const rule_fault& fault : ground_faults(ground, teams)) file.add(g + 1, fault.field, fault.what);
  }
}

/// Faults of a career: a name that cannot be, and figures that no match can leave behind.
void check_career(checked_file& file, long record, const career_team_rec& team, int place) {
  const career_rec& career = team.players[place];
  const std::string prefix = fmt::format("players[{}].", place);
  if (career.name.empty()) file.add(record, prefix + "name", "a career without a name");
  for (int other = 1; other < place; ++other) {
    if (career.name.empty() || team.players[other].name != career.name) continue;
    file.add(record, prefix + "name", fmt::format("a second career of \"{}\"", career.name));
    break;
  }
  visit_fields(career, figure_check(file, record, prefix));
  const auto at_most = [&](const char* field, std::int64_t number, const char* of, std::int64_t most) {
    if (number > most) file.add(record, prefix + field, fmt::format("{} in {} {}", number, most, of));
  };
  at_most("innings", career.innings, "matches", career.matches);
  at_most("not_outs", career.not_outs, "innings", career.innings);
  at_most("fifties", std::int64_t{career.fifties} + career.hundreds, "innings", career.innings);
  at_most("five_wickets", career.five_wickets, "matches", career.matches);
}

void check_careers(checked_file& file) {
  const int count = file.tagged_count(1, "career_team_count", career_team_limit);
  std::vector<std::string> names;
  for (int t = 1; t <= count; ++t) {
    const long record = t + 1;
    const auto team = std::make_unique<career_team_rec>();
    if (!file.get(record, *team)) continue;
    if (team->team_name.empty()) file.add(record, "team_name", "a team without a name");
    if (std::find(names.begin(), names.end(), team->team_name) != names.end()) {
      file.add(record, "team_name", fmt::format("a second team called \"{}\"", team->team_name));
    }
    names.push_back(team->team_name);
    const int players = file.accept_count(record, "player_count", int{team->player_count}, player_limit);
    for (int p = 1; p <= players; ++p) check_career(file, record, *team, p);
  }
}

template <typename Line>
void check_list(checked_file& file, long first_record, int lines) {
  for (long record = first_record; record < first_record + lines; ++record) {
    Line line;
    if (file.get(record, line)) visit_fields(std::as_const(line), figure_check(file, record, {}));
  }
}

/// One row of the team table; its fields stand in records of their own.
void check_table_team(checked_file& file, int place, std::vector<std::string>& names) {
  long record = table_record(place);
  team_table team;
  visit_fields(team, [&](table_value needed, const char* field, tagged& value) {
    if (file.get_field(record, field, value) && needed == table_value::number) {
      const auto number = file.number_of(record, field, value);
      if (number && *number < 0) file.add(record, field, fmt::format("{} is below 0", number_text(*number)));
    }
    ++record;
  });
  const auto* name = std::get_if<std::string>(&team.team_name.value);
  if (name == nullptr || name->empty()) {
    file.add(record - 1, "team_name", "a team without a name");
    return;
  }
  if (std::find(names.begin(), names.end(), *name) != names.end()) {
    file.add(record - 1, "team_name", fmt::format("a second team called \"{}\"", *name));
  }
  names.push_back(*name);
}

void check_records(checked_file& file) {
  check_list<top_score_rec>(file, top_scores_record, 15);
  check_list<top_bowling_rec>(file, top_bowling_record, 15);
  check_list<top_total_rec>(file, highest_totals_record, 15);
  check_list<top_total_rec>(file, lowest_totals_record, 15);
  check_list<top_partnership_rec>(file, partnerships_record, 10);
  const int count = file.tagged_count(table_count_record, "table_team_count", table_team_limit);
  std::vector<std::string> names;
  for (int t = 1; t <= count; ++t) check_table_team(file, t, names);
}

}  // namespace

std::vector<database_fault> check_database(const database_files& database) {
  std::vector<database_fault> faults;
  /// Runs the check of one file; one that cannot be read is a fault by itself.
  const auto check = [&faults](const std::filesystem::path& path, std::size_t slot_length, bool required, auto run) {
    if (required && is_missing(path)) {
      faults.push_back({file_name_text(path), 0, "", "the file is missing"});
      return;
    }
    try {
      checked_file file(path, slot_length, faults);
      run(file);
    } catch (const run_time_error& error) {
      if (error.kind() != failure::file) throw;
      faults.push_back({file_name_text(path), 0, "", error.what()});
    }
  };
  std::optional<std::vector<team_rec>> teams;
  check(database.team, team_slot, true, [&](checked_file& file) { teams = check_teams(file); });
  check(database.grd, team_slot, true, [&](checked_file& file) { check_grounds(file, teams ? &*teams : nullptr); });
  check(database.rec, career_slot, false, check_careers);
  check(database.ptr, records_slot, false, check_records);
  return faults;
}

}  // namespace velorin
