// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <limits>
#include <memory>
#include <utility>

#include "database/checked_file.h"
#include "database/file_calls.h"
#include "database/whole_file.h"
#include "database/world.h"
#include "database/world_rules.h"

namespace velorin {

namespace {

/// Where a file ends before the last of its counted records, or within it.
template <typename Record>
std::optional<database_fault> incomplete_counted(const slot_file& file, int count) {
  for (long record = 2; record <= count + 1; ++record) {
    slot_reader fields = file.reader(record);
    Record read;
    visit_fields(read, fields);
    if (!fields.missing()) continue;
    if (file.slot(record).empty()) return database_fault{file.name(), record, "", "the file ends before this record"};
    return database_fault{file.name(), record, fields.missing()->field, fields.missing()->what};
  }
  return std::nullopt;
}

bool is_missing(const std::filesystem::path& path) {
  std::error_code failed;
  return std::filesystem::status(path, failed).type() == std::filesystem::file_type::not_found;
}

/// The teams file, whose folder is that behind links; a name in its own folder where they lead nowhere, which is a
/// fault like others.
std::filesystem::path file_to_lock(const database_files& database) {
  try {
    real_file(database.team_file);
    return database.team_file;
  } catch (const run_time_error&) {
    return folder_of(database.team_file) / ".";
  }
}

std::string field_of(const rule_fault& fault) {
  return fault.place == 0 ? fault.field : fmt::format("squad[{}].{}", fault.place, fault.field);
}

std::string what_of(const rule_fault& fault, const team_rec& team) {
  return fault.place == 0 || team.squad[fault.place].name.empty()
             ? fault.what
             : fmt::format("{} ({})", fault.what, team.squad[fault.place].name);
}

std::vector<team_rec> check_teams(checked_file& file) {
  std::vector<team_rec> teams;
  integer counted;
  file.get_field(1, "team_count", counted);
  const int count = file.accept_count(1, "team_count", int{counted}, team_limit);
  if (counted >= 0) {
    if (auto what = teams_missing(static_cast<std::size_t>(int{counted}))) file.add(1, "team_count", std::move(*what));
  }
  file.add(incomplete_counted<team_rec>(file.file(), count));
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

/// `teams` are nullptr if they are not known.
void check_grounds(checked_file& file, const std::vector<team_rec>* teams) {
  integer counted;
  file.get_field(1, "ground_count", counted);
  const int count = file.accept_count(1, "ground_count", int{counted}, std::numeric_limits<std::int16_t>::max());
  file.add(incomplete_counted<ground_rec>(file.file(), count));
  std::vector<ground_rec> grounds;
  for (int g = 1; g <= count; ++g) {
    ground_rec ground;
    if (!file.get(g + 1, ground)) continue;
    for (const rule_fault& fault : ground_faults(ground, teams)) file.add(g + 1, fault.field, fault.what);
    grounds.push_back(std::move(ground));
  }
  if (teams == nullptr || counted < 0) return;
  for (std::string& what : grounds_missing(*teams, grounds)) file.add(0, "country", std::move(what));
}

/// Compares careers and record lists as far as they can be read; `read_without_fault` if neither has been found at
/// fault by itself.
void check_agreement(const slot_file& career_file, const slot_file& record_file, bool read_without_fault,
                     std::vector<database_fault>& faults) {
  if (incomplete_careers(career_file) || incomplete_records(record_file)) return;
  try {
    const auto careers = std::make_unique<career_table>(careers_in(career_file));
    const auto lists = std::make_unique<record_lists>(records_in(record_file));
    for (database_fault& fault : contradictions({*careers, *lists, career_file.name(), record_file.name()})) {
      faults.push_back(std::move(fault));
    }
  } catch (const run_time_error&) {
    // What cannot be read has been told by the check of its file.
    if (read_without_fault) throw;
  }
}

}  // namespace

std::vector<database_fault> check_database(const database_files& database) {
  std::error_code none;
  std::optional<folder_lock> turn;
  if (std::filesystem::is_directory(folder_of(database.team_file), none))
    turn.emplace(file_to_lock(database), database.watcher);
  std::vector<database_fault> faults;
  /// Runs the check of one file; one that cannot be read is a fault by itself.
  const auto check = [&faults](const std::filesystem::path& path, auto read, auto run) -> std::optional<slot_file> {
    try {
      checked_file file(read(path), faults);
      run(file);
      return file.file();
    } catch (const run_time_error& error) {
      if (error.kind() != failure::file) throw;
      faults.push_back({file_name_text(path), 0, "", error.what()});
      return std::nullopt;
    }
  };
  const auto check_required = [&](const std::filesystem::path& path, auto run) {
    if (!is_missing(path)) {
      check(
          path, [](const auto& file) { return slot_file::read(file, team_slot); }, run);
    } else {
      faults.push_back({file_name_text(path), 0, "", "the file is missing"});
    }
  };
  std::optional<std::vector<team_rec>> teams;
  check_required(database.team_file, [&](checked_file& file) { teams = check_teams(file); });
  check_required(database.ground_file, [&](checked_file& file) { check_grounds(file, teams ? &*teams : nullptr); });
  const std::size_t before = faults.size();
  const auto career_file = check(
      database.career_file, [](const auto& file) { return slot_file::read(file, career_slot); }, check_careers);
  const auto record_file = check(
      database.record_file, [&](const auto&) { return current_record_file(database); }, check_records);
  if (career_file && record_file) check_agreement(*career_file, *record_file, faults.size() == before, faults);
  return faults;
}

}  // namespace velorin
