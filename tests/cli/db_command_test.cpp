// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include "cli/cli_fixture.h"

namespace velorin::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class DbCommand : public CliTest {
 protected:
  /// A folder with the small tables, one of them changed: the first `from` of a file becomes `to`.
  std::string changed(const std::string& name, const std::string& from, const std::string& to) {
    const std::filesystem::path folder = file("tables" + std::to_string(++folders_));
    std::filesystem::create_directory(folder);
    for (const char* table : {"players.csv", "grounds.csv"}) {
      std::string bytes = file_bytes(small_tables() / table);
      if (table == name) {
        const std::size_t at = bytes.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        bytes.replace(at, from.size(), to);
      }
      write_bytes(folder / table, bytes);
    }
    return folder.string();
  }

  /// The message of a build that is refused and writes nothing.
  std::string refusal(const std::string& tables) {
    const auto before = contents_of(teams());
    const std::string message = error(1, {"db", "build", tables, "new"});
    EXPECT_EQ(contents_of(teams()), before);
    return message;
  }

 private:
  int folders_ = 0;
};

TEST_F(DbCommand, ABuildMakesTwoFilesInTheTeamsFolder) {
  EXPECT_EQ(text({"db", "build", small_tables().string(), "new"}), "");
  EXPECT_EQ(file_bytes(teams() / "new.team"), file_bytes(teams() / "small.team"));
  EXPECT_EQ(file_bytes(teams() / "new.grd"), file_bytes(teams() / "small.grd"));
  EXPECT_EQ(run({"--database", "new", "match", "--quiet"}).status, 0);
}

TEST_F(DbCommand, ABaseMayBeAPath) {
  EXPECT_EQ(text({"db", "build", small_tables().string(), file("deep/down/base")}), "");
  EXPECT_EQ(file_bytes(file("deep/down/base.team")), file_bytes(teams() / "small.team"));
  const run_result checked = run({"db", "check", file("deep/down/base")});
  EXPECT_EQ(checked.status, 0);
  EXPECT_EQ(checked.out, "");
}

TEST_F(DbCommand, ADumpGoesBackIntoTheSameBytes) {
  EXPECT_EQ(text({"db", "dump", "small", file("dump")}), "");
  EXPECT_EQ(text({"db", "build", file("dump"), "again"}), "");
  EXPECT_EQ(file_bytes(teams() / "again.team"), file_bytes(teams() / "small.team"));
  EXPECT_EQ(file_bytes(teams() / "again.grd"), file_bytes(teams() / "small.grd"));
  EXPECT_THAT(file_bytes(file("dump/players.csv")),
              HasSubstr("South Isles,E.H.Åkesson,43,98,7.6,no,RH ,Opener,spinner"));
  EXPECT_THAT(file_bytes(file("dump/grounds.csv")), HasSubstr("Vestria,\"King's Acre, Vest\",1,2,1030"));
}

TEST_F(DbCommand, ADumpHoldsCareersAndRecords) {
  run({"--seed", "1", "match", "--update", "--quiet"});
  EXPECT_EQ(text({"db", "dump", "small", file("dump")}), "");
  const auto tables = contents_of(file("dump"));
  for (const char* name : {"players.csv", "grounds.csv", "careers.csv", "top_scores.csv", "top_bowling.csv",
                           "highest_totals.csv", "lowest_totals.csv", "partnerships.csv", "team_table.csv"}) {
    ASSERT_TRUE(tables.contains(name)) << name;
  }
  EXPECT_EQ(std::count(tables.at("careers.csv").begin(), tables.at("careers.csv").end(), '\n'), 23)
      << "a header and 22 men";
}

TEST_F(DbCommand, ASoundDatabaseHasNoFault) {
  const run_result result = run({"db", "check", "small"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "small: no fault found\n");
}

TEST_F(DbCommand, EveryFaultIsALineWithItsPlace) {
  std::string bytes = file_bytes(teams() / "small.grd");
  // The count in record 1 says how many grounds follow: one more than there are.
  bytes[0] = static_cast<char>(bytes[0] + 1);
  write_bytes(teams() / "small.grd", bytes);
  const run_result result = run({"db", "check", "small"});
  EXPECT_EQ(result.status, 1);
  const std::vector<std::string> lines = lines_of(result.out);
  ASSERT_FALSE(lines.empty());
  for (const std::string& line : lines) EXPECT_THAT(line, StartsWith("small.grd: "));
  EXPECT_THAT(result.out, HasSubstr("record"));
  EXPECT_THAT(result.err, HasSubstr(std::to_string(lines.size()) + " fault"));
}

TEST_F(DbCommand, AFaultIsALineWhateverTheNamesHold) {
  std::string bytes = file_bytes(teams() / "small.grd");
  const std::size_t name = bytes.find("Fjordside");
  ASSERT_NE(name, std::string::npos);
  bytes.replace(name, 4, "\n\x1B\x81\x7F");
  write_bytes(teams() / "small.grd", bytes);
  const run_result result = run({"db", "check", "small"});
  EXPECT_THAT(result.out, HasSubstr(": ground_name: \"\?\?\?\?dside\" has a control character\n"));
  EXPECT_EQ(lines_of(result.out).size(), 1U);
}

TEST_F(DbCommand, WhatMightNeverEndIsRefusedAtOnce) {
  const std::string pipe = file("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
  for (const std::string& draws : {pipe, std::string("/dev/zero")}) {
    EXPECT_THAT(error(1, {"--draws", draws, "match"}), HasSubstr("it is a pipe, a device or the like"));
  }
  std::filesystem::create_directory(file("tables"));
  std::filesystem::create_symlink(pipe, file("tables/players.csv"));
  EXPECT_THAT(error(1, {"db", "build", file("tables"), "new"}), HasSubstr("players.csv"));
  for (const char* name : {"small.rec", "options.mc"}) {
    std::filesystem::create_symlink(pipe, teams() / name);
    EXPECT_THAT(error(1, {"match", "--update"}), HasSubstr(name));
    std::filesystem::remove(teams() / name);
  }
  std::filesystem::resize_file(teams() / "small.team", 1L << 40);
  EXPECT_THAT(error(1, {"match"}), HasSubstr("it has more than 64 MiB (file small.team)"));
}

TEST_F(DbCommand, AMissingDatabaseIsAFault) {
  const run_result result = run({"db", "check", "nowhere"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.out, AllOf(HasSubstr("nowhere.team"), HasSubstr("nowhere.grd")));
  EXPECT_THAT(error(1, {"db", "dump", "nowhere", file("dump")}), HasSubstr("nowhere.team"));
}

TEST_F(DbCommand, ABuildRefusesWhatACheckWouldFind) {
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere,38", "N.B.Zanmere,0")),
              AllOf(HasSubstr("players.csv"), HasSubstr("2"), HasSubstr("bat_skill"), HasSubstr("N.B.Zanmere")));
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere,38,90", "N.B.Zanmere,38,0")), HasSubstr("bowl_sr"));
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere,38,90,7.6", "N.B.Zanmere,38,90,-1")), HasSubstr("econ"));
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere,38", "N.B.Zanmere,x")), HasSubstr("bat_skill"));
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere,38", "N.B.Zanmere,40000")), HasSubstr("bat_skill"));
  EXPECT_THAT(refusal(changed("players.csv", "LH ,Opener", "LH ,Nightwatch")), HasSubstr("Nightwatch"));
  EXPECT_THAT(refusal(changed("players.csv", "LH ,Opener", "LH,Opener")), HasSubstr("hand"));
  EXPECT_THAT(refusal(changed("players.csv", ",yes,", ",maybe,")), HasSubstr("maybe"));
  EXPECT_THAT(refusal(changed("players.csv", "team,name", "side,name")), HasSubstr("players.csv"));
  EXPECT_THAT(refusal(changed("players.csv", "N.B.Zanmere", std::string(120, 'x'))), HasSubstr("125"));
  EXPECT_THAT(refusal(changed("grounds.csv", "Fjordside,4", "Fjordside,5")), HasSubstr("pitch_bounce"));
  EXPECT_THAT(refusal(changed("grounds.csv", "Fjordside,4,4", "Fjordside,4,0")), HasSubstr("pitch_surface"));
  EXPECT_THAT(refusal(changed("grounds.csv", "4,4,1400", "4,4,930")), HasSubstr("start_time"));
  EXPECT_THAT(refusal(changed("grounds.csv", "Northland,Fjordside", "Southland,Fjordside")), HasSubstr("Southland"));
}

TEST_F(DbCommand, ABuildRefusesWhatTheCodePageLacks) {
  const std::string message = refusal(changed("players.csv", "N.B.Zanmere", "N.B.Žižka漢"));
  EXPECT_THAT(message, AllOf(HasSubstr("players.csv"), HasSubstr("Line 2, column 20:")));
  EXPECT_EQ(run({"db", "build", changed("players.csv", "N.B.Zanmere", "N.B.Žižka"), "new"}).status, 0);
}

TEST_F(DbCommand, ABuildRefusesTooManyTeamsAndPlayers) {
  std::string players;
  for (int i = 0; i < 8; ++i) players += "Northland,P" + std::to_string(i) + ",20,30,5,no,RH ,Opener,spinner\n";
  EXPECT_THAT(refusal(changed("players.csv", "South Isles,", players + "South Isles,")), HasSubstr("20 players"));
  std::string teams_text;
  for (int i = 0; i < 11; ++i) teams_text += "T" + std::to_string(i) + ",P,20,30,5,no,RH ,Opener,spinner\n";
  EXPECT_THAT(refusal(changed("players.csv", "South Isles,", teams_text + "South Isles,")), HasSubstr("20 teams"));
}

TEST_F(DbCommand, ARefusedBuildLeavesNoFolder) {
  EXPECT_EQ(run({"db", "build", file("nothing"), file("deep/down/base")}).status, 1);
  EXPECT_FALSE(std::filesystem::exists(file("deep")));
}

TEST_F(DbCommand, ABaseNameHasNoControlCharacters) {
  const auto before = contents_of(teams());
  for (const char* base : {"a\nb", "a\x1B[2J", "a\xC2\x81", "\x7F"}) {
    EXPECT_THAT(error(1, {"db", "build", small_tables().string(), base}), HasSubstr("has a control character"));
  }
  EXPECT_EQ(contents_of(teams()), before);
}

TEST_F(DbCommand, ARefusedBuildLeavesAnOldDatabaseAlone) {
  const auto before = contents_of(teams());
  error(1, {"db", "build", changed("players.csv", "N.B.Zanmere,38", "N.B.Zanmere,0"), "small"});
  EXPECT_EQ(contents_of(teams()), before);
}

}  // namespace
}  // namespace velorin::testing
