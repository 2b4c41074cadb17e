// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "archive/archive_check.h"
#include "archive/archive_keeper.h"
#include "cli/cli_fixture.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "model/match_state.h"

namespace velorin::testing {

/// Runs of the companion with updates, and the archive that they leave.
class ArchiveTest : public CliTest {
 protected:
  database_files files() const { return database_paths(teams(), "small"); }
  archive_file archive() const { return settled_archive(files()); }
  std::vector<archived_match> archived_matches() const;
  std::vector<std::string> differences() const { return check_archive(files()).differences; }

  /// Plays single matches with updates, and gives their objects.
  std::vector<json> play(const std::string& seed, int number) const {
    return matches(seed, {"--update", "--matches", std::to_string(number)});
  }
  /// Matches of every competition with updates: 10 by themselves, a series, a tri series, a World Cup.
  void play_everything() const;
  /// A match of the first two teams, played by itself, as it stands at its end.
  match_state ended_match(std::uint64_t seed) const;
  /// Runs SQL on the archive.
  void change(const std::string& sql) const;
};

}  // namespace velorin::testing
