// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/small_database.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "database/slots.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {

namespace {

/// A file of counted records: the count in record 1, then the records.
template <typename Record>
void write_records(const std::filesystem::path& path, const std::vector<Record>& records) {
  slot_file file("", team_slot, path.filename().string());
  file.put(1, encoded_field(integer(records.size())), "");
  long record = 1;
  for (const Record& rec : records) file.put(++record, encoded(rec), "");
  std::ofstream out(path, std::ios::binary);
  out << file.bytes();
  if (!out.flush()) throw std::runtime_error("a test's file cannot be written");
}

}  // namespace

squad sample_squad(const std::string& prefix) {
  squad men;
  const eleven best = sample_eleven(prefix);
  for (int i = 1; i <= 11; ++i) men[i] = best[i];
  for (int i = 12; i <= 13; ++i) {
    men[i] = men[1];
    men[i].name = prefix + std::to_string(i);
    men[i].bat_skill = 20 - i;
    men[i].bat_type = "RH Lower Order";
  }
  return men;
}

small_database::small_database() : before_(data.files) {
  std::string pattern = (std::filesystem::temp_directory_path() / "velorin-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for a test");
  folder_ = pattern;
  data.files = database_paths(folder_, "world");
  data.files.updates = false;
}

small_database::~small_database() {
  data.files = before_;
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void small_database::add_team(const std::string& name, const squad& men) {
  team_rec team;
  team.team_name = name;
  team.squad = men;
  teams_.push_back(team);
}

void small_database::add_ground(const std::string& country, const std::string& name, int bounce, int surface,
                                int start_time) {
  ground_rec ground;
  ground.country = country;
  ground.ground_name = name;
  ground.pitch_bounce = bounce;
  ground.pitch_surface = surface;
  ground.start_time = start_time;
  grounds_.push_back(ground);
}

void small_database::write() const {
  write_records(data.files.team_file, teams_);
  write_records(data.files.ground_file, grounds_);
}

}  // namespace velorin::testing
