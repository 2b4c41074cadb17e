// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/teams_file.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <limits>
#include <optional>
#include <utility>

#include "database/configuration.h"
#include "database/open_database.h"
#include "database/slots.h"

namespace velorin {

namespace {

/// Refuses a file that ends before the last of the records that its count tells of, or within it.
template <typename Record>
void require_whole(const slot_file& file, const char* count_field) {
  const int count = file.count(count_field);
  const long last = count + 1;
  if (count == 0) return;
  slot_reader fields = file.reader(last);
  Record record;
  visit_fields(record, fields);
  if (!fields.missing()) return;
  throw run_time_error(failure::file, fmt::format("The file is cut short: it has not all of its {} records", count),
                       {file.name(), last, file.slot(last).empty() ? std::string() : fields.missing()->field, {}});
}

/// All records behind the count in record 1. `limit` is the size of the list that takes them.
template <typename Record>
const std::vector<Record>& all_records(kept_file<Record>& kept, const char* count_field, int limit) {
  if (!kept.records()) kept.records() = kept.file().template counted_records<Record>(count_field, limit);
  return *kept.records();
}

}  // namespace

const std::vector<team_rec>& read_team_list(open_database& data) {
  data.kept_teams.renew(data.files.team_file, data.files.read_once);
  return all_records(data.kept_teams, "team_count", team_limit);
}

const team_rec& read_team(open_database& data, int record) {
  if (record < 2) {
    throw run_time_error(failure::subscript, fmt::format("Subscript out of range: no team in record {}", record),
                         {file_name_text(data.files.team_file), record, {}, {}});
  }
  const std::vector<team_rec>& teams = read_team_list(data);
  const auto place = static_cast<std::size_t>(record - 2);
  if (place < teams.size()) return teams[place];
  data.single_team = team_rec();
  if (data.kept_teams.held()) return data.single_team;
  data.kept_teams.file().get(record, data.single_team);
  return data.single_team;
}

const std::vector<ground_rec>& read_grounds(open_database& data) {
  data.kept_grounds.renew(data.files.ground_file, data.files.read_once);
  return all_records(data.kept_grounds, "ground_count", std::numeric_limits<std::int16_t>::max());
}

void hold_teams_and_grounds(open_database& data, std::vector<team_rec> teams, std::vector<ground_rec> grounds) {
  data.kept_teams.hold(std::move(teams));
  data.kept_grounds.hold(std::move(grounds));
}

void require_whole_database(open_database& data) {
  if (data.kept_teams.held() && data.kept_grounds.held()) return;
  data.kept_teams.renew(data.files.team_file, data.files.read_once);
  require_whole<team_rec>(data.kept_teams.file(), "team_count");
  data.kept_grounds.renew(data.files.ground_file, data.files.read_once);
  require_whole<ground_rec>(data.kept_grounds.file(), "ground_count");
}

void forget_teams_and_grounds(open_database& data) {
  data.kept_teams.forget();
  data.kept_grounds.forget();
}

void scan_grounds(open_database& data, const std::function<void(const ground_rec&)>& visit) {
  for (const ground_rec& ground : read_grounds(data)) visit(ground);
}

}  // namespace velorin
