// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "database/configuration.h"
#include "model/match_records.h"

namespace velorin::testing {

/// A squad of thirteen: the sample eleven of that prefix, then two more men of the lower order, so that Auto Select
/// takes the first eleven and the selection screen lists them as they are.
squad sample_squad(const std::string& prefix);

/// A database of a few teams in a folder of its own, in use while it lives, and gone afterwards. Updates are off, and
/// the elevens travel through files, unless a test changes `files`.
class small_database {
 public:
  small_database();
  ~small_database();
  small_database(const small_database&) = delete;
  small_database& operator=(const small_database&) = delete;

  void add_team(const std::string& name, const squad& men);
  /// A team with the sample squad, its men named after the team.
  void add_team(const std::string& name) { add_team(name, sample_squad(name)); }
  void add_ground(const std::string& country, const std::string& name, int bounce = 3, int surface = 3,
                  int start_time = 1030);
  /// Writes both files as they stand. A test calls it before the first read.
  void write() const;

  const std::filesystem::path& folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
  database_files before_;
  std::vector<team_rec> teams_;
  std::vector<ground_rec> grounds_;
};

}  // namespace velorin::testing
