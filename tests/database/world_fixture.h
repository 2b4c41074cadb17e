// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include <map>

#include "database/database_fixture.h"
#include "database/world.h"
#include "support/game_in_play.h"

namespace velorin::testing {

inline const std::string player_header = "team,name,bat_skill,bowl_sr,econ,keeper,hand,role,bowler_type";
inline const std::string ground_header = "country,ground,pitch_bounce,pitch_surface,start_time";
inline const std::string halden = "Alba,R.M.Halden,42,31.5,4.7,no,RH ,Opener,Medium Pacer";
inline const std::string orr = "Alba,K.Orr,28,99,9.25,yes,LH ,Lower Order,spinner";
inline const std::string field = "Neutral,Old Field,1,4,1000";
inline const std::string park = "Alba,Harbour Park,3,2,1030";

/// The first field of a row.
inline std::string team_of(const std::string& row) {
  if (!row.starts_with('"')) return row.substr(0, row.find(','));
  std::size_t end = 1;
  while (row[end] != '"' || row[end + 1] == '"') end += row[end] == '"' ? 2 : 1;
  return row.substr(0, end + 1);
}

/// Adds what is missing until two teams can play: behind the rows as many men as each team lacks, and a second team.
inline std::vector<std::string> completed(std::vector<std::string> rows, const std::string& more_columns = {}) {
  constexpr int men = 11;
  std::map<std::string, int> lacking;
  for (const std::string& row : rows) ++lacking[team_of(row)];
  if (lacking.size() < 2) lacking["Zoll"] = 0;
  if (lacking.size() < 2) lacking["Yser"] = 0;
  for (const auto& [team, players] : lacking) {
    for (int man = players + 1; man <= men; ++man) {
      rows.push_back(team + ",Man" + std::to_string(man) + ",20,30,4,no,RH ,Opener,typed" + more_columns);
    }
  }
  return rows;
}

/// Databases built from tables in the folder "source".
class world_fixture : public database_fixture {
 protected:
  /// Builds from the given rows below the usual headers, and what they lack for play.
  void build(const std::vector<std::string>& players, std::vector<std::string> grounds) {
    if (grounds.empty()) grounds = {field};
    build_tables(player_header, completed(players), ground_header, grounds);
  }
  void build_tables(const std::string& players_line, const std::vector<std::string>& players,
                    const std::string& grounds_line, const std::vector<std::string>& grounds) {
    std::filesystem::create_directory(folder / "source");
    write_bytes(folder / "source" / "players.csv", table(players_line, players));
    write_bytes(folder / "source" / "grounds.csv", table(grounds_line, grounds));
    build_database(folder / "source", data.files.team_file, data.files.ground_file);
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
    const std::string team = bytes_of(data.files.team_file);
    const std::string ground_file = bytes_of(data.files.ground_file);
    dump_database(data.files, folder / "dump");
    build_database(folder / "dump", folder / "again.team", folder / "again.grd");
    EXPECT_EQ(bytes_of(folder / "again.team"), team);
    EXPECT_EQ(bytes_of(folder / "again.grd"), ground_file);
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
