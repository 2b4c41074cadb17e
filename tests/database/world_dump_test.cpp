// SPDX-License-Identifier: GPL-3.0-or-later
#include <limits>

#include "database/career_update.h"
#include "database/csv.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/world_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::error_of;
using testing::halden;
using ::testing::HasSubstr;
using testing::names_in;
using ::testing::Not;
using testing::orr;
using testing::park;
using ::testing::StartsWith;
using testing::write_bytes;

class WorldDump : public testing::world_fixture {};

TEST_F(WorldDump, WritesCareersAndRecordsToRead) {
  build({halden}, {park});
  testing::set_up_finished_match();
  update_career(match, data);
  update_records(match, data);
  dump_database(data.files, folder / "dump");
  EXPECT_THAT(names_in(folder / "dump"),
              ElementsAre("careers.csv", "grounds.csv", "highest_totals.csv", "lowest_totals.csv", "partnerships.csv",
                          "players.csv", "team_table.csv", "top_bowling.csv", "top_scores.csv"));
  const csv_table careers(folder / "dump" / "careers.csv",
                          {"team",
                           "name",
                           "matches",
                           "innings",
                           "runs",
                           "balls_faced",
                           "fours",
                           "sixes",
                           "twos",
                           "threes",
                           "singles",
                           "dots",
                           "wickets",
                           "catches",
                           "stumpings",
                           "balls_bowled",
                           "maidens",
                           "runs_given",
                           "career_reserved_1",
                           "hundreds",
                           "fifties",
                           "five_wickets",
                           "not_outs",
                           "best_wickets",
                           "best_runs",
                           "high_score",
                           "high_not_out",
                           "high_against",
                           "best_against",
                           "career_reserved_2",
                           "career_reserved_3",
                           "career_reserved_4"},
                          {});
  ASSERT_EQ(careers.rows(), 22);
  EXPECT_EQ(careers.text(12, "team"), "Alba");
  EXPECT_EQ(careers.text(12, "name"), "A.Man2");
  EXPECT_EQ(careers.text(12, "high_score"), "120");
  EXPECT_EQ(careers.text(12, "career_reserved_2"), "0000000000000000");
  EXPECT_EQ(bytes_of(folder / "dump" / "highest_totals.csv"),
            "line,total,balls,wickets,team,against,venue\r\n1,231,300,3,Alba,Tamar,Harbour Park\r\n"
            "2,174,262,10,Tamar,Alba,Harbour Park\r\n");
  EXPECT_THAT(bytes_of(folder / "dump" / "top_scores.csv"),
              StartsWith("line,player,runs,balls,team,against,venue,not_out\r\n"
                         "1,A.Man2,120,110,Alba,Tamar,Harbour Park,0\r\n"));
  EXPECT_THAT(bytes_of(folder / "dump" / "top_bowling.csv"),
              HasSubstr("\r\n1,A.Man9,31,60,5,Alba,Tamar,Harbour Park\r\n"));
  EXPECT_THAT(bytes_of(folder / "dump" / "partnerships.csv"),
              HasSubstr("\r\n1,150,30.1,150,181,181,A.Man1,A.Man2,00000000,Alba,Tamar,Harbour Park\r\n"));
  EXPECT_THAT(
      bytes_of(folder / "dump" / "team_table.csv"),
      HasSubstr("\r\n,,,1,,,231,Tamar,Harbour Park,174,Tamar,Harbour Park,1000,,,174,Tamar,Harbour Park,Alba\r\n"));
}

TEST_F(WorldDump, ADatabaseThatHasNotPlayedHasEmptyTables) {
  build({halden}, {park});
  dump_database(data.files, folder / "dump");
  EXPECT_EQ(bytes_of(folder / "dump" / "lowest_totals.csv"), "line,total,balls,wickets,team,against,venue\r\n");
  EXPECT_THAT(names_in(folder), Not(Contains("base.rec"))) << "the database is only read";
}

TEST_F(WorldDump, WhatATableCannotKeepIsRefused) {
  build({halden, orr}, {park});
  const std::string good = bytes_of(data.files.team_file);
  const auto refused = [&](team_rec team, int teams) {
    slot_file file({}, team_slot, "x");
    file.put(1, encoded_field(integer(teams)), {});
    for (int t = 1; t <= teams; ++t) file.put(t + 1, encoded(team), {});
    write_bytes(data.files.team_file, file.bytes());
    const auto error = error_of([&] { dump_database(data.files, folder / "dump"); });
    EXPECT_FALSE(std::filesystem::exists(folder / "dump"));
    return std::string(error.what());
  };
  team_rec team = read_team_list(data)[0];
  team.squad[2].is_keeper = 1;
  EXPECT_EQ(refused(team, 1),
            "A table cannot keep a flag that is not -1 or 0 (file base.team, record 2, "
            "field squad[2].is_keeper, at \"K.Orr\")");
  team.squad[2].is_keeper = 0;
  team.squad[2].econ = std::numeric_limits<float>::quiet_NaN();
  EXPECT_THAT(refused(team, 1), HasSubstr("field squad[2].econ"));
  team.squad[2].econ = 4;
  EXPECT_THAT(refused(team, 2), HasSubstr("two teams of one name (file base.team, record 3"));
  write_bytes(data.files.team_file, good);
  dump_database(data.files, folder / "dump");
}

TEST_F(WorldDump, AMissingTeamFileIsAnError) {
  EXPECT_STREQ(error_of([&] { dump_database(data.files, folder / "dump"); }).what(),
               "The file is missing (file base.team)");
}

TEST_F(WorldDump, ATableThatIsALinkToAFileOfTheGameIsRefused) {
  build({halden}, {park});
  testing::set_up_finished_match();
  update_career(match, data);
  update_records(match, data);
  const std::string careers = bytes_of(data.files.career_file);
  std::filesystem::create_directory(folder / "dump");
  std::filesystem::create_symlink(data.files.career_file, folder / "dump" / "top_scores.csv");
  const auto error = error_of([&] { dump_database(data.files, folder / "dump"); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_THAT(error.what(), StartsWith("The link leads to the file of the careers"));
  EXPECT_EQ(error.place().file, "top_scores.csv");
  EXPECT_EQ(bytes_of(data.files.career_file), careers);
  EXPECT_THAT(names_in(folder / "dump"), ElementsAre("top_scores.csv"));
}

TEST_F(WorldDump, AFolderThatCannotBeMadeIsAnError) {
  build({halden}, {park});
  write_bytes(folder / "dump", "a file");
  EXPECT_EQ(error_of([&] { dump_database(data.files, folder / "dump"); }).kind(), failure::file);
}

}  // namespace
}  // namespace velorin
