// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include "database/database_fixture.h"
#include "database/world.h"

namespace velorin::testing {

inline const std::string player_header = "team,name,bat_skill,bowl_sr,econ,keeper,hand,role,bowler_type";
inline const std::string ground_header = "country,ground,pitch_bounce,pitch_surface,start_time";
inline const std::string halden = "Alba,R.M.Halden,42,31.5,4.7,no,RH ,Opener,Medium Pacer";
inline const std::string orr = "Alba,K.Orr,28,99,9.25,yes,LH ,Lower Order,spinner";
inline const std::string park = "Alba,Harbour Park,3,2,1030";

/// Databases built from tables in the folder "source".
class world_fixture : public database_fixture {
 protected:
  /// Builds from the given rows below the usual headers.
  void build(const std::vector<std::string>& players, const std::vector<std::string>& grounds) {
    build_tables(player_header, players, ground_header, grounds);
  }
  void build_tables(const std::string& players_line, const std::vector<std::string>& players,
                    const std::string& grounds_line, const std::vector<std::string>& grounds) {
    std::filesystem::create_directory(folder / "source");
    write_bytes(folder / "source" / "players.csv", table(players_line, players));
    write_bytes(folder / "source" / "grounds.csv", table(grounds_line, grounds));
    build_database(folder / "source", files.team, files.grd);
  }
  /// The refusal of a source; nothing must be written.
  run_time_error refusal(const std::vector<std::string>& players, const std::vector<std::string>& grounds) {
    const auto error = error_of([&] { build(players, grounds); });
    EXPECT_THAT(names_in(folder), ::testing::ElementsAre("source"));
    return error;
  }
  std::string refused_player(const std::string& row) { return refusal({halden, row}, {park}).what(); }
  std::string refused_ground(const std::string& row) { return refusal({halden}, {park, row}).what(); }

  /// Builds, dumps, builds again, and expects the same bytes.
  void expect_round_trip() {
    const std::string team = bytes_of(files.team);
    const std::string grd = bytes_of(files.grd);
    dump_database(files, folder / "dump");
    build_database(folder / "dump", folder / "again.team", folder / "again.grd");
    EXPECT_EQ(bytes_of(folder / "again.team"), team);
    EXPECT_EQ(bytes_of(folder / "again.grd"), grd);
    std::filesystem::remove(folder / "again.team");
    std::filesystem::remove(folder / "again.grd");
  }

  static std::string table(const std::string& header, const std::vector<std::string>& rows) {
    std::string text = header + "\r\n";
    for (const std::string& row : rows) text += row + "\r\n";
    return text;
  }
};

}  // namespace velorin::testing
