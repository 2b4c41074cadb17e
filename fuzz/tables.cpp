// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of a database. The input: players.csv, a line "====", grounds.csv; without that line the grounds are one
// neutral ground.
#include "database/configuration.h"
#include "database/world.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::string_view divider = "====\n";
constexpr std::string_view one_ground =
    "country,ground,pitch_bounce,pitch_surface,start_time\r\nNeutral,Harbour Park,3,2,1030\r\n";

/// True if the database was built. A refusal names one of the two tables.
bool build(const std::filesystem::path& source) {
  try {
    build_database(source, data.files.team_file, data.files.ground_file);
    return true;
  } catch (const run_time_error& error) {
    const std::string& named = error.place().file;
    require(named == "players.csv" || named == "grounds.csv", "the error is of a table", error.what());
    require_named(error, named);
    return false;
  }
}

}  // namespace

void prepare() { std::filesystem::create_directory(scratch() / "source"); }

void take(std::string_view input) {
  fresh_state();
  std::filesystem::remove(data.files.team_file);
  std::filesystem::remove(data.files.ground_file);
  const std::filesystem::path source = scratch() / "source";
  const std::size_t end = input.find(divider);
  const unchanged players(source / "players.csv", input.substr(0, end));
  const unchanged grounds(source / "grounds.csv",
                          end == std::string_view::npos ? one_ground : input.substr(end + divider.size()));
  if (!build(source)) {
    require(!std::filesystem::exists(data.files.team_file) && !std::filesystem::exists(data.files.ground_file),
            "a refusal leaves no file");
    return;
  }
  const std::vector<database_fault> faults = check_database(data.files);
  require(faults.empty(), "what is built has no fault", faults.empty() ? std::string() : faults.front().what);
  const std::string team = bytes_of(data.files.team_file);
  const std::string grd = bytes_of(data.files.ground_file);
  dump_database(data.files, scratch() / "dump");
  require(build(scratch() / "dump"), "what is dumped can be built");
  require(bytes_of(data.files.team_file) == team && bytes_of(data.files.ground_file) == grd,
          "the same bytes are built again");
}

}  // namespace velorin::fuzz
