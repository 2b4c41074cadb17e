// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "database/career_update.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "database/world_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::completed;
using ::testing::ElementsAre;
using testing::error_of;
using testing::ground_header;
using testing::halden;
using ::testing::HasSubstr;
using testing::names_in;
using testing::orr;
using testing::park;
using testing::player_header;
using ::testing::StartsWith;
using testing::write_bytes;

class WorldBuild : public testing::world_fixture {};

TEST_F(WorldBuild, TeamsStandInTheOrderOfTheirFirstRow) {
  build({"Tamar,T.One,1,0.5,0.1,no,RH ,Opener,Fast Bowler", halden, "Tamar,T.Two,1000,99,9,yes,RHB,Opener,x", orr},
        {park, "Neutral,Old Field,1,4,2359", "Tamar,Ford,4,1,1000"});
  const auto& teams = read_team_list(data);
  ASSERT_EQ(teams.size(), 2U);
  EXPECT_EQ(teams[0].team_name, "Tamar");
  EXPECT_EQ(teams[0].squad[2].name, "T.Two");
  EXPECT_EQ(teams[0].squad[2].bat_skill, 1000);
  EXPECT_EQ(teams[0].squad[2].is_keeper, flag_true);
  EXPECT_EQ(teams[0].squad[12].name, "");
  EXPECT_EQ(teams[1].squad[1].bat_type, "RH Opener");
  EXPECT_EQ(teams[1].squad[1].role(), "Opener");
  EXPECT_EQ(teams[1].squad[1].econ, 4.7F);
  const auto& grounds = read_grounds(data);
  ASSERT_EQ(grounds.size(), 3U);
  EXPECT_EQ(grounds[1].country, "Neutral");
  EXPECT_EQ(grounds[1].pitch_bounce, 1);
  EXPECT_EQ(grounds[1].pitch_surface, 4);
  EXPECT_EQ(grounds[1].start_time, 2359);
}

TEST_F(WorldBuild, WhatIsBuiltHasNoFault) {
  build({halden, orr}, {park});
  EXPECT_TRUE(check_database(data.files).empty());
  EXPECT_THAT(names_in(folder), ElementsAre("base.grd", "base.team", "source"));
}

TEST_F(WorldBuild, TheOldFilesLeaveNoTrace) {
  build({halden, orr}, {park});
  const std::string team = bytes_of(data.files.team_file);
  write_bytes(data.files.team_file, std::string(10000, 'x'));
  write_bytes(data.files.ground_file, std::string(10000, 'x'));
  build({halden, orr}, {park});
  EXPECT_EQ(bytes_of(data.files.team_file), team);
}

TEST_F(WorldBuild, ADumpBuildsTheSameBytes) {
  const std::vector<std::string> players =
      completed({halden, orr,
                 "\"Tamar, \"\"Old\"\"\",Jos\xC3\xA9 \xE2\x80\x9CX\xE2\x80\x9D,7,33.333332,0.1,no,LHB,Middle Order,"});
  build(players, {park, "Neutral,\"Caf\xC3\xA9, the other\",4,4,1445"});
  expect_round_trip();
  dump_database(data.files, folder / "dump");
  const std::string dumped = bytes_of(folder / "dump" / "players.csv");
  EXPECT_EQ(dumped.size(), table(player_header, players).size()) << "optional columns without content are left out";
  for (const std::string& row : players) EXPECT_THAT(dumped, HasSubstr("\r\n" + row + "\r\n"));
  EXPECT_EQ(bytes_of(folder / "dump" / "grounds.csv"),
            table(ground_header, {park, "Neutral,\"Caf\xC3\xA9, the other\",4,4,1445"}));
}

TEST_F(WorldBuild, ADumpIntoTheFolderOfTheDatabaseIsOne) {
  build({halden, orr}, {park});
  dump_database(data.files, folder);
  EXPECT_TRUE(std::filesystem::exists(folder / "players.csv"));
  EXPECT_TRUE(check_database(data.files).empty());
}

TEST_F(WorldBuild, ADumpOfAMissingFolderTellsOfTheTeams) {
  const auto error = error_of([&] { dump_database(database_paths(folder / "away", "base"), folder / "dump"); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_THAT(error.what(), HasSubstr("No such file or directory (file base.team)"));
  EXPECT_TRUE(names_in(folder).empty());
}

TEST_F(WorldBuild, ADumpWaitsForItsTurn) {
  build({halden}, {park});
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const folder_lock turn(data.files.team_file, nullptr);
    if (::write(ready[1], "x", 1) != 1) ::_exit(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    write_bytes(folder / "done", "");  // the last act before the end gives the folder free
    ::_exit(0);
  }
  char signal = 0;
  ASSERT_EQ(::read(ready[0], &signal, 1), 1);
  dump_database(data.files, folder / "dump");
  EXPECT_TRUE(std::filesystem::exists(folder / "done"));
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(WorldBuild, OptionalColumnsAreKept) {
  build_tables(player_header + ",team_flag,reserved_1,reserved_6",
               completed({halden + ",-7,one,six", orr + ",-7,,"}, ",-7,,"), ground_header + ",ground_reserved_2",
               {park + ",-32768"});
  EXPECT_EQ(read_team_list(data)[0].team_flag, -7);
  EXPECT_EQ(read_team_list(data)[0].squad[1].reserved[0], "one");
  EXPECT_EQ(read_team_list(data)[0].squad[1].reserved[5], "six");
  EXPECT_EQ(read_grounds(data)[0].reserved[1], -32768);
  expect_round_trip();
  dump_database(data.files, folder / "dump");
  EXPECT_THAT(bytes_of(folder / "dump" / "players.csv"),
              StartsWith(player_header + ",team_flag,reserved_1,reserved_6\r\n"));
  EXPECT_THAT(bytes_of(folder / "dump" / "grounds.csv"), StartsWith(ground_header + ",ground_reserved_2\r\n"));
}

TEST_F(WorldBuild, FreePlacesKeepWhatTheyHold) {
  std::vector<std::string> rows = completed({halden});
  rows.push_back("Alba,,3,-0,0,yes,R,,x");
  build(rows, {});
  EXPECT_EQ(read_team_list(data)[0].squad[12].bowler_type, "x");
  EXPECT_EQ(read_team_list(data)[0].squad[12].bat_type, "R");
  expect_round_trip();
}

TEST_F(WorldBuild, WhatCannotBePlayedIsRefused) {
  const auto refused = [&](const std::vector<std::string>& players, const std::vector<std::string>& grounds) {
    const auto error = error_of([&] { build_tables(player_header, players, ground_header, grounds); });
    EXPECT_EQ(error.kind(), failure::type);
    EXPECT_THAT(names_in(folder), ElementsAre("source"));
    return std::string(error.what());
  };
  EXPECT_EQ(refused({}, {}), "0 teams, at least 2 (file players.csv, field team)");
  std::vector<std::string> rows = completed({halden});
  std::vector<std::string> one;
  for (const std::string& row : rows) {
    if (row.starts_with("Alba")) one.push_back(row);
  }
  EXPECT_EQ(refused(one, {park}), "1 team, at least 2 (file players.csv, field team)");
  EXPECT_EQ(refused({rows.begin(), rows.end() - 1}, {park}),
            "Line 13: 10 players, at least 11 (file players.csv, field name, at \"Zoll\")");
  rows = completed({halden, "Tamar,T.One,20,30,4,no,RH ,Opener,x", "Zoll,Z.One,20,30,4,no,RH ,Opener,x"});
  EXPECT_EQ(refused(rows, {park}), "no ground for \"Tamar\" against \"Zoll\" (file grounds.csv, field country)");
  build_tables(player_header, rows, ground_header, {park, "Zoll,Z,1,1,1000"});
}

TEST_F(WorldBuild, ControlCharactersAreRefused) {
  EXPECT_EQ(refused_player("Alba,\"A\x1B[2J\nB\",20,30,4,no,RH ,Opener,x"),
            "Line 3: \"A?[2J?B\" has a control character (file players.csv, field name, at \"A?[2J?B\")");
  EXPECT_THAT(refused_player("Alba,X,20,30,4,no,R\tH,Opener,x"),
              HasSubstr("control character (file players.csv, field role, at \"X\")"));
  EXPECT_THAT(refused_player("\"Al\nba\",X,20,30,4,no,RHB,Opener,x"), HasSubstr("field team"));
  EXPECT_EQ(refused_ground("Alba,\"Old\r\nField\",1,1,1030"),
            "Line 3: \"Old??Field\" has a control character (file grounds.csv, field ground, at \"Old??Field\")");
}

TEST_F(WorldBuild, CareersThatAreNotWholeAreLeftAlone) {
  testing::set_up_finished_match();
  update_career_and_records(match, data);
  build({halden}, {park});
  const std::string team = bytes_of(data.files.team_file);
  std::filesystem::resize_file(data.files.career_file, 6000);
  const auto error = error_of([&] { build({halden, orr}, {park}); });
  EXPECT_THAT(error.what(), StartsWith("The file is not whole: the file ends "));
  EXPECT_EQ(error.place().file, "base.rec");
  std::filesystem::remove(data.files.career_file);
  EXPECT_THAT(error_of([&] {
                build({halden, orr}, {park});
              }).what(),
              StartsWith("base.rec and base.ptr do not belong together: "));
  EXPECT_EQ(bytes_of(data.files.team_file), team);
}

TEST_F(WorldBuild, TwentyTeamsOfTwentyPlayersAreBuilt) {
  std::vector<std::string> rows;
  for (int t = 1; t <= 20; ++t) {
    for (int p = 1; p <= 20; ++p) rows.push_back(fmt::format("T{},P{}.{},20,30,4,no,RH ,Opener,spinner", t, t, p));
  }
  build(rows, {});
  EXPECT_EQ(read_team_list(data).size(), 20U);
  EXPECT_EQ(read_team_list(data)[19].squad[20].name, "P20.20");
  expect_round_trip();
}

TEST_F(WorldBuild, A21stTeamIsRefused) {
  std::vector<std::string> rows;
  for (int t = 1; t <= 21; ++t) rows.push_back(fmt::format("T{},P,20,30,4,no,RH ,Opener,spinner", t));
  const auto error = refusal(rows, {});
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_STREQ(error.what(), "Line 22: more than 20 teams (file players.csv, field team, at \"T21\")");
}

TEST_F(WorldBuild, A21stPlayerIsRefused) {
  std::vector<std::string> rows;
  for (int p = 1; p <= 21; ++p) rows.push_back(fmt::format("Alba,P{},20,30,4,no,RH ,Opener,spinner", p));
  const auto error = refusal(rows, {});
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_STREQ(error.what(), "Line 22: more than 20 players of Alba (file players.csv, field name, at \"P21\")");
}

TEST_F(WorldBuild, AsManyGroundsAsTheCountHoldsAreBuilt) {
  std::vector<std::string> rows(32'767, testing::field);
  build({halden}, rows);
  EXPECT_EQ(read_grounds(data).size(), 32'767U);
  std::filesystem::remove(data.files.team_file);
  std::filesystem::remove(data.files.ground_file);
  rows.push_back(park);
  const auto error = refusal({halden}, rows);
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_THAT(error.what(), StartsWith("Line 32769: more than 32767 grounds (file grounds.csv, field ground, at "));
}

TEST_F(WorldBuild, ATeamBeyondItsSlotIsRefused) {
  // 20 x 30 + 4 bytes are fixed; 20 names of 30, roles of 9 and types of 5 leave 16 of the 896 characters.
  std::vector<std::string> rows;
  for (int p = 1; p <= 20; ++p) {
    rows.push_back(fmt::format("{},{:030},20,30,4,no,RH ,Opener,typed", std::string(16, 't'), p));
  }
  build(rows, {});
  EXPECT_EQ(encoded(read_team_list(data)[0]).size(), 1500U);
  for (const char* name : {"base.team", "base.grd"}) std::filesystem::remove(folder / name);
  for (std::string& row : rows) row.insert(0, "t");
  const auto error = refusal(rows, {});
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_THAT(error.what(), HasSubstr("Line 2: a record of 1501 bytes, at most 1500 (file players.csv, field team"));
}

TEST_F(WorldBuild, AnElevensRecordBeyondItsSlotIsRefused) {
  const std::string name(95 - 9 - 7, 'n');
  build({fmt::format("Alba,{},20,30,4,no,RH ,Opener,spinner", name)}, {});
  for (const char* file : {"base.team", "base.grd"}) std::filesystem::remove(folder / file);
  const auto error = refusal({halden, fmt::format("Alba,{}n,20,30,4,no,RH ,Opener,spinner", name)}, {});
  EXPECT_THAT(error.what(), HasSubstr("Line 3: an eleven's record of 126 bytes, at most 125 (file players.csv, "
                                      "field name"));
}

TEST_F(WorldBuild, ReservedTextsDoNotCountInAnEleven) {
  build_tables(player_header + ",reserved_1", completed({halden + "," + std::string(200, 'r')}, ","), ground_header,
               {testing::field});
  EXPECT_TRUE(check_database(data.files).empty());
}

TEST_F(WorldBuild, RatingsThatTheModelCannotPlayWithAreRefused) {
  EXPECT_EQ(refused_player("Alba,X,0,31.5,4.7,no,RH ,Opener,x"),
            "Line 3: 0, must be from 1 to 1000 (file players.csv, field bat_skill, at \"X\")");
  EXPECT_EQ(refused_player("Alba,X,5,0,4.7,no,RH ,Opener,x"),
            "Line 3: 0, must be above 0 and at most 1000 (file players.csv, field bowl_sr, at \"X\")");
  EXPECT_EQ(refused_player("Alba,X,5,3,-1.5,no,RH ,Opener,x"),
            "Line 3: -1.5, must be above 0 and at most 36 (file players.csv, field econ, at \"X\")");
  EXPECT_THAT(refused_player("Alba,X,32768,31.5,4.7,no,RH ,Opener,x"), HasSubstr("field bat_skill"));
  EXPECT_THAT(refused_player("Alba,X,4.5,31.5,4.7,no,RH ,Opener,x"), HasSubstr("field bat_skill"));
  EXPECT_THAT(refused_player("Alba,X,5,nan,4.7,no,RH ,Opener,x"), HasSubstr("field bowl_sr"));
  EXPECT_THAT(refused_player("Alba,X,5,3,,no,RH ,Opener,x"), HasSubstr("field econ"));
}

TEST_F(WorldBuild, WordsOutsideTheKnownOnesAreRefused) {
  EXPECT_EQ(refused_player("Alba,X,5,3,4,no,RH ,opener,x"),
            "Line 3: \"opener\" is no known role (file players.csv, field role, at \"X\")");
  EXPECT_THAT(refused_player("Alba,X,5,3,4,no,RH ,,x"), HasSubstr("field role"));
  EXPECT_EQ(refused_player("Alba,X,5,3,4,No,RH ,Opener,x"),
            "Line 3: \"No\" is not yes or no (file players.csv, field keeper)");
  EXPECT_EQ(refused_player("Alba,X,5,3,4,no,RH,Opener,x"),
            "Line 3: \"RH\" has not three characters (file players.csv, field hand)");
  EXPECT_THAT(refused_player("Alba,X,5,3,4,no,RHBB,Opener,x"), HasSubstr("field hand"));
  EXPECT_THAT(refused_player(",X,5,3,4,no,RHB,Opener,x"), HasSubstr("the team has no name"));
}

TEST_F(WorldBuild, APlayerBehindAFreePlaceIsRefused) {
  EXPECT_THAT(refusal({halden, "Alba,,0,0,0,no,,,", orr}, {}).what(),
              HasSubstr("Line 4: a player behind a free place (file players.csv, field name, at \"K.Orr\")"));
}

TEST_F(WorldBuild, TwoFlagsOfOneTeamAreRefused) {
  const auto error = error_of([&] {
    build_tables(player_header + ",team_flag", {halden + ",1", orr + ",2"}, ground_header, {});
  });
  EXPECT_STREQ(error.what(), "Line 3: not the 1 of the team's first row (file players.csv, field team_flag)");
}

TEST_F(WorldBuild, GroundsOutsideTheRulesAreRefused) {
  EXPECT_EQ(refused_ground("Atlantis,G,1,1,1030"),
            "Line 3: \"Atlantis\" is neither a team nor \"Neutral\" (file grounds.csv, field country, at \"G\")");
  EXPECT_THAT(refused_ground("Alba,G,0,1,1030"), HasSubstr("field pitch_bounce, at \"G\""));
  EXPECT_THAT(refused_ground("Alba,G,1,5,1030"), HasSubstr("field pitch_surface, at \"G\""));
  EXPECT_EQ(refused_ground("Alba,G,1,1,0930"),
            "Line 3: 930 has not four digits (file grounds.csv, field start_time, at \"G\")");
  EXPECT_THAT(refused_ground("Alba,G,1,1,10300"), HasSubstr("10300 has not four digits"));
  EXPECT_THAT(refused_ground("Alba,G,1,1,2400"), HasSubstr("2400 is no time of day"));
  EXPECT_THAT(refused_ground("Alba,G,1,1,1060"), HasSubstr("1060 is no time of day"));
  EXPECT_THAT(refused_ground("Alba,,1,1,1030"), HasSubstr("the ground has no name"));
  EXPECT_THAT(refused_ground("Alba," + std::string(1479, 'g') + ",1,1,1030"),
              HasSubstr("Line 3: a record of 1501 bytes, at most 1500"));
}

TEST_F(WorldBuild, AMissingTableIsRefused) {
  std::filesystem::create_directory(folder / "source");
  write_bytes(folder / "source" / "players.csv", table(player_header, {halden}));
  const auto error = error_of([&] { build_database(folder / "source", data.files.team_file, data.files.ground_file); });
  EXPECT_STREQ(error.what(), "The file is missing (file grounds.csv)");
  EXPECT_THAT(names_in(folder), ElementsAre("source"));
}

TEST_F(WorldBuild, AFailedWriteLeavesTheOldDatabase) {
  build({halden}, {park});
  const std::string team = bytes_of(data.files.team_file);
  std::filesystem::remove(data.files.ground_file);
  std::filesystem::create_directory(folder / "base.grd.next");
  EXPECT_EQ(error_of([&] { build({halden, orr}, {park}); }).kind(), failure::file);
  EXPECT_EQ(bytes_of(data.files.team_file), team);
  EXPECT_THAT(names_in(folder), ElementsAre("base.grd.next", "base.team", "source"));
}

}  // namespace
}  // namespace velorin
