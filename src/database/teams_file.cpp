// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/teams_file.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <limits>
#include <optional>

#include "database/configuration.h"
#include "database/slots.h"

namespace velorin {

namespace {

constexpr std::int64_t settling_time = 100'000'000;  ///< nanoseconds in which a file may change without a trace

std::int64_t nanoseconds(const timespec& time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

/// What tells one state of a file from another.
struct file_state {
  dev_t device = 0;
  ino_t number = 0;
  off_t size = 0;
  std::int64_t modified = 0;
  std::int64_t changed = 0;

  bool operator==(const file_state&) const = default;
};

file_state state_of(const std::filesystem::path& file) {
  struct stat facts {};
  if (::stat(file.c_str(), &facts) != 0) {
    if (errno == ENOENT) {
      throw run_time_error(failure::file, "The file is missing", {file_name_text(file), 0, {}, {}});
    }
    raise_file_error("The file cannot be read", errno, file);
  }
  return {facts.st_dev, facts.st_ino, facts.st_size, nanoseconds(facts.st_mtim), nanoseconds(facts.st_ctim)};
}

/// The records of a file as last read, with the state of the file that they belong to.
template <typename Record>
class kept_file {
 public:
  /// Forgets the records unless they still are those of the file.
  void renew(const std::filesystem::path& path) {
    if (files.read_once && file_ && path.native() == path_.native()) return;
    const file_state now = state_of(path);
    if (settled_ && now == state_ && path.native() == path_.native()) return;
    forget();
    file_.emplace(slot_file::read_existing(path, team_slot));
    timespec read_at{};
    ::clock_gettime(CLOCK_REALTIME, &read_at);
    path_ = path;
    state_ = now;
    const std::int64_t age = nanoseconds(read_at) - std::max(now.modified, now.changed);
    settled_ = age >= settling_time && state_of(path) == now;
  }

  void forget() {
    settled_ = false;
    records_.reset();
    file_.reset();
  }

  const slot_file& file() const { return *file_; }
  std::optional<std::vector<Record>>& records() { return records_; }

 private:
  std::filesystem::path path_;
  file_state state_;
  bool settled_ = false;
  std::optional<slot_file> file_;
  std::optional<std::vector<Record>> records_;
};

kept_file<team_rec> kept_teams;
kept_file<ground_rec> kept_grounds;
team_rec single_team;

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

const std::vector<team_rec>& read_team_list() {
  kept_teams.renew(files.team_file);
  return all_records(kept_teams, "team_count", team_limit);
}

const team_rec& read_team(int record) {
  if (record < 2) {
    throw run_time_error(failure::subscript, fmt::format("Subscript out of range: no team in record {}", record),
                         {file_name_text(files.team_file), record, {}, {}});
  }
  const std::vector<team_rec>& teams = read_team_list();
  const auto place = static_cast<std::size_t>(record - 2);
  if (place < teams.size()) return teams[place];
  single_team = team_rec();
  kept_teams.file().get(record, single_team);
  return single_team;
}

const std::vector<ground_rec>& read_grounds() {
  kept_grounds.renew(files.ground_file);
  return all_records(kept_grounds, "ground_count", std::numeric_limits<std::int16_t>::max());
}

void require_whole_database() {
  kept_teams.renew(files.team_file);
  require_whole<team_rec>(kept_teams.file(), "team_count");
  kept_grounds.renew(files.ground_file);
  require_whole<ground_rec>(kept_grounds.file(), "ground_count");
}

void forget_teams_and_grounds() {
  kept_teams.forget();
  kept_grounds.forget();
}

void scan_grounds(const std::function<void(const ground_rec&)>& visit) {
  for (const ground_rec& ground : read_grounds()) visit(ground);
}

}  // namespace velorin
