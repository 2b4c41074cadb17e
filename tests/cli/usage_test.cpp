// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/stat.h>

#include <fstream>

#include "cli/cli_fixture.h"
#include "cli/command_line.h"
#include "database/file_buffer.h"
#include "database/file_calls.h"

namespace velorin::testing {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Usage = CliTest;

TEST_F(Usage, TheProgramTellsItsVersion) { EXPECT_EQ(text({"--version"}), "velorin-cli " VELORIN_VERSION "\n"); }

TEST_F(Usage, HelpNamesTheOptionsAndTheCommands) {
  const std::string help = text({"--help"});
  for (const char* word : {"--teams-dir DIR", "--database BASE", "--seed N", "--draws FILE", "--version", "match",
                           "series", "tri", "worldcup", "report", "db"}) {
    EXPECT_THAT(help, HasSubstr(word));
  }
}

TEST_F(Usage, EveryCommandHasItsHelp) {
  const std::map<std::vector<std::string>, std::vector<std::string>> wanted = {
      {{"match"},
       {"--team1", "--team2", "--ground", "--captain1", "--captain2", "--conditions", "--matches", "--update",
        "--json FILE", "--html FILE", "--text FILE", "--ball-by-ball FILE", "--export-innings", "--quiet"}},
      {{"series"}, {"--home NAME", "--away NAME", "--matches", "--update", "--json"}},
      {{"tri"}, {"--team1 NAME", "--team2 NAME", "--team3 NAME", "--rounds", "--update", "--json"}},
      {{"worldcup"}, {"--group-a", "--group-b", "--hosts", "--update", "--json"}},
      {{"forecast"},
       {"--match", "--worldcup", "--team1 NAME", "--conditions", "--group-a", "--hosts", "--runs N", "--jobs J",
        "--json"}},
      {{"db"}, {"build", "dump", "check"}},
      {{"db", "build"}, {"SRC_DIR", "BASE"}},
      {{"db", "dump"}, {"BASE", "DIR"}},
      {{"db", "check"}, {"BASE"}}};
  for (const auto& [command, words] : wanted) {
    std::vector<std::string> arguments = command;
    arguments.push_back("--help");
    const std::string help = text(arguments);
    for (const std::string& word : words) EXPECT_THAT(help, HasSubstr(word)) << command.back();
  }
}

TEST_F(Usage, WrongUsageIsStatusTwoAndOneLine) {
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"bogus"},
      {"match", "--bogus"},
      {"match", "extra"},
      {"match", "--team1"},
      {"match", "--matches", "0"},
      {"match", "--matches", "many"},
      {"match", "--captain1", "nobody"},
      {"match", "--captain2", "CPU"},
      {"match", "--export-innings", "3"},
      {"match", "--export-innings", "0"},
      {"series"},
      {"series", "--home", "Northland"},
      {"series", "--home", "Northland", "--away", "Vestria", "--matches", "11"},
      {"series", "--home", "Northland", "--away", "Vestria", "--matches", "0"},
      {"tri", "--team1", "Northland", "--team2", "Vestria"},
      {"tri", "--team1", "Northland", "--team2", "Vestria", "--team3", "Orland", "--rounds", "6"},
      {"worldcup", "--group-a", "Northland,Vestria"},
      {"worldcup", "--group-b", "A,B,C,D,E,F"},
      {"worldcup", "--hosts", "Northland,Vestria,Orland,Marenne"},
      {"--seed", "-1", "match"},
      {"--seed", "1.5", "match"},
      {"--seed", "one", "match"},
      {"--seed", "18446744073709551616", "match"},
      {"--seed", "1", "--draws", "file", "match"},
      {"db"},
      {"db", "bogus"},
      {"db", "build", "here"},
      {"db", "dump", "small"},
      {"db", "dump", "small", ""},
      {"db", "build", "", "new"},
      {"db", "check"},
      {"db", "check", ""},
      {"db", "check", "."},
      {"db", "check", ".."},
      {"db", "check", "small/"},
      {"db", "dump", "", "x"},
      {"db", "dump", "./.", "x"},
      {"db", "build", "here", ""},
      {"db", "build", "here", "."},
      {"db", "build", "here", "new/"}};
  for (const auto& arguments : wrong) {
    std::string line;
    for (const std::string& argument : arguments) line += argument + " ";
    EXPECT_THAT(error(2, arguments), AllOf(StartsWith("velorin-cli: "), EndsWith("(try --help)"))) << line;
  }
}

TEST_F(Usage, AWrongWordIsNamed) {
  EXPECT_THAT(error(2, {"bogus"}), HasSubstr("bogus"));
  EXPECT_THAT(error(2, {"match", "--bogus"}), HasSubstr("--bogus"));
  EXPECT_THAT(error(2, {"db", "mend"}), HasSubstr("mend"));
  EXPECT_THAT(error(2, {"--seed", "-1", "match"}), HasSubstr("-1"));
  EXPECT_THAT(error(2, {"match", "--captain1", "nobody"}), HasSubstr("nobody"));
  EXPECT_THAT(error(2, {"series", "--home", "Northland"}), HasSubstr("--away"));
}

TEST_F(Usage, ConditionsAreFourValuesOfOneToFour) {
  for (const char* values : {"1,2,3", "1,2,3,5", "0,1,1,1", "1,2,3,4,1", "1 2 3 4", "a,b,c,d", "1,2,3,", "11,2,3,4"}) {
    EXPECT_THAT(error(2, {"match", "--conditions", values}), HasSubstr(values));
  }
  EXPECT_EQ(run({"match", "--conditions", "4,3,2,1"}).status, 0);
}

TEST_F(Usage, AnUnknownTeamComesWithNearNames) {
  EXPECT_EQ(error(1, {"match", "--team1", "Nortland"}),
            "velorin-cli: Unknown team \"Nortland\"; near: Northland, Orland");
  EXPECT_EQ(error(1, {"match", "--team2", "Vetsria"}), "velorin-cli: Unknown team \"Vetsria\"; near: Vestria");
  EXPECT_THAT(error(1, {"series", "--home", "Marrenne", "--away", "Vestria"}), HasSubstr("near: Marenne"));
  EXPECT_THAT(error(1, {"series", "--home", "Vestria", "--away", "orland"}), HasSubstr("near: Orland"));
  EXPECT_THAT(error(1, {"tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Cape"}),
              HasSubstr("near: Cape Tavor"));
  EXPECT_THAT(error(1, {"worldcup", "--hosts", "Northland,Lindmark"}), HasSubstr("\"Lindmark\"; near: Lindemark"));
  EXPECT_THAT(error(1, {"worldcup", "--group-b", "Northland,Vestria,Orland,Marenne,Sorel Bay"}),
              HasSubstr("near: Sorrel Bay"));
}

TEST_F(Usage, WithNothingNearTheTeamsAreListed) {
  EXPECT_EQ(error(1, {"match", "--team1", "Xyzzy"}),
            "velorin-cli: Unknown team \"Xyzzy\"; known: Northland, South Isles, Harrowmark, Vestria, New Zealand, "
            "Orland, Cape Tavor, Lindemark, Sorrel Bay, Marenne");
}

TEST_F(Usage, AnUnknownGroundComesWithNearNames) {
  EXPECT_THAT(error(1, {"match", "--team1", "Northland", "--ground", "Hogby Vale"}),
              HasSubstr("Unknown ground \"Hogby Vale\"; near: Högby Vale"));
  EXPECT_THAT(error(1, {"match", "--team1", "Northland", "--ground", "Fjord"}), HasSubstr("near: Fjordside"));
  EXPECT_THAT(error(1, {"match", "--ground", "Fjordsied"}), HasSubstr("near: Fjordside")) << "also one of neither team";
}

TEST_F(Usage, AGroundOfNeitherTeamIsNotOnOffer) {
  EXPECT_THAT(error(1, {"match", "--team1", "Orland", "--team2", "Marenne", "--ground", "Fjordside"}),
              AllOf(HasSubstr("Fjordside"), HasSubstr("not on offer for Orland and Marenne")));
}

TEST_F(Usage, NumbersMayBeginWithZeros) {
  EXPECT_EQ(text({"--seed", "010", "match", "--matches", "03", "--json", "-"}),
            text({"--seed", "10", "match", "--matches", "3", "--json", "-"}));
}

TEST_F(Usage, EmptyTextsAreRefused) {
  for (const char* option : {"--team1", "--team2", "--ground", "--json", "--html", "--text", "--ball-by-ball"}) {
    EXPECT_THAT(error(2, {"match", option, ""}), HasSubstr(option));
  }
  for (const char* option : {"--draws", "--database", "--teams-dir"}) {
    EXPECT_THAT(error(2, {option, "", "match"}), HasSubstr(option));
  }
}

TEST_F(Usage, OneCommandARun) {
  error(2, {"match", "series"});
  error(2, {"db", "check", "small", "dump", "small", file("dump")});
}

TEST_F(Usage, ANameThatNoFileCouldHoldIsPrintedAsItWasGiven) {
  EXPECT_THAT(error(1, {"match", "--team1", "漢字"}), HasSubstr("漢字"));
  EXPECT_THAT(error(1, {"match", "--team1", "Ünbekannt"}), HasSubstr("\"Ünbekannt\""));
}

TEST_F(Usage, ErrorLinesHaveNoControlCharacters) {
  std::filesystem::create_directory(teams() / "a\xC2\x9Dq.team");
  const std::vector<std::pair<int, std::vector<std::string>>> lines = {
      {1,
       {"match", "--team1",
        "\xC2\x9D"
        "0;x"}},
      {1, {"match", "--team1", "\xC2\x80\x1B[2J"}},
      {1, {"match", "--team1", "\x9D\x81"}},
      {1, {"db", "dump", "a\xC2\x9Dq", file("x")}},
      {1, {"db", "build", small_tables().string(), "a\xC2\x9Dq"}},
      {2, {"match", "--\xC2\x9D"}}};
  for (const auto& [status, arguments] : lines) {
    const std::string line = error(status, arguments);
    EXPECT_THAT(line, HasSubstr("?"));
    for (std::size_t at = 0; at < line.size(); ++at) {
      EXPECT_GE(static_cast<unsigned char>(line[at]), 0x20) << line;
      EXPECT_FALSE(line[at] == '\xC2' && static_cast<unsigned char>(line[at + 1]) < 0xA0) << at << " of " << line;
    }
  }
  EXPECT_THAT(error(1, {"match", "--team1",
                        "\xC2\x9D"
                        "0;x"}),
              HasSubstr("Unknown team \"?0;x\""));
}

TEST_F(Usage, ADatabaseThatCannotBeReadIsToldWithItsCause) {
  const auto cause = [this](const std::vector<std::string>& arguments) {
    std::vector<std::string> all = {"--database", "small"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return error(1, all);
  };
  for (const std::string name : {"small.team", "small.grd"}) {
    const std::filesystem::path path = teams() / name;
    const std::string whole = file_bytes(path);
    for (const std::vector<std::string>& command : {std::vector<std::string>{"match"}, {"report", "rankings"}}) {
      std::filesystem::remove(path);
      ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
      EXPECT_EQ(cause(command),
                "velorin-cli: The file cannot be read: it is a pipe, a device or the like (file " + name + ")");
      std::filesystem::remove(path);
      std::filesystem::create_directory(path);
      EXPECT_EQ(cause(command), "velorin-cli: The file cannot be read: Is a directory (file " + name + ")");
      std::filesystem::remove(path);
      std::filesystem::create_symlink(name, path);
      EXPECT_EQ(cause(command),
                "velorin-cli: The file cannot be opened: Too many levels of symbolic links (file " + name + ")");
      std::filesystem::remove(path);
      EXPECT_THAT(cause(command), StartsWith("velorin-cli: Unknown database \"small\""));
    }
    write_bytes(path, whole);
  }
}

TEST_F(Usage, AnUnknownDatabaseIsAnError) {
  EXPECT_EQ(error(1, {"--database", "smal", "match"}), "velorin-cli: Unknown database \"smal\"; near: small");
  write_bytes(teams() / "options.mc", "\r\nlarge\r\n000000\r\nFFFFFF\r\nSans\r\n");
  EXPECT_THAT(error(1, {"match"}), HasSubstr("Unknown database \"large\""));
  EXPECT_EQ(run({"--database", "small", "match"}).status, 0) << "the argument comes before the settings";
}

TEST_F(Usage, TheOnlyDatabaseOnOfferIsTaken) {
  EXPECT_EQ(run({"match", "--quiet"}).status, 0);
  for (const char* ending : {".team", ".grd"}) {
    std::filesystem::copy_file(teams() / (std::string("small") + ending), teams() / (std::string("other") + ending));
  }
  EXPECT_THAT(error(1, {"match"}), AllOf(HasSubstr("other, small"), HasSubstr("--database")));
  EXPECT_EQ(run({"match", "--quiet", "--database", "other"}).status, 0) << "also behind the command";
  write_bytes(teams() / "options.mc", "\r\nsmall\r\n000000\r\nFFFFFF\r\nSans\r\n");
  EXPECT_EQ(run({"match", "--quiet"}).status, 0) << "the settings name one";
}

TEST_F(Usage, AFolderWithoutADatabaseIsAnError) {
  const scratch_folder empty;
  const run_result result = run_on(empty.path(), {"match"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("No database is on offer"));
  EXPECT_EQ(run_on(empty.path() / "missing", {"match"}).status, 1);
}

TEST_F(Usage, WithoutAFolderTheOneBesideTheProgramIsTaken) {
  const scratch_folder program;
  std::filesystem::copy(teams(), program.path() / "teams");
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(cli::run({"--seed", "1", "match"}, program.path(), {out, err}), 0) << err.str();
  EXPECT_EQ(out.str(), text({"--seed", "1", "match"}));
}

TEST_F(Usage, AWorldCupOfFewTeamsIsRefused) {
  const scratch_folder few;
  const std::string players = file_bytes(small_tables() / "players.csv");
  const std::string grounds = file_bytes(small_tables() / "grounds.csv");
  write_bytes(few.path() / "players.csv", players.substr(0, players.find("Marenne")));
  write_bytes(few.path() / "grounds.csv", grounds.substr(0, grounds.find("Marenne")));
  ASSERT_EQ(run({"db", "build", few.path().string(), "few"}).status, 0);
  EXPECT_EQ(error(1, {"--database", "few", "worldcup"}),
            "velorin-cli: Not enough teams in current database to play the World cup");
  EXPECT_EQ(error(1, {"--database", "few", "worldcup", "--json"}),
            "velorin-cli: Not enough teams in current database to play the World cup");
}

TEST_F(Usage, ADamagedFileIsNamed) {
  std::string bytes = file_bytes(teams() / "small.team");
  bytes[0] = '\x15';  // 21 teams
  write_bytes(teams() / "small.team", bytes);
  EXPECT_THAT(error(1, {"match"}), HasSubstr("small.team"));
}

TEST_F(Usage, StandardOutputThatCannotBeWrittenIsAnError) {
  const descriptor device(open_file("/dev/full", O_WRONLY));
  if (!device.open()) GTEST_FAIL() << "this system has no /dev/full";
  const std::vector<std::vector<std::string>> lines = {{"match"},
                                                       {"match", "--json", "-", "--matches", "9"},
                                                       {"report", "rankings", "--json"},
                                                       {"series", "--home", "Northland", "--away", "South Isles"},
                                                       {"--help"},
                                                       {"match", "--help"},
                                                       {"--version"}};
  for (std::vector<std::string> line : lines) {
    SCOPED_TRACE(line.front());
    file_buffer buffer(device);
    std::ostream full(&buffer);
    std::ostringstream err;
    line.insert(line.begin(), {"--teams-dir", teams().string()});
    EXPECT_EQ(cli::run(line, teams(), {full, err}), 1);
    EXPECT_EQ(err.str(), "velorin-cli: Standard output cannot be written: No space left on device\n");
  }
}

TEST_F(Usage, AStreamGoneBadIsAnErrorWithoutACause) {
  std::ostringstream bad;
  bad.setstate(std::ios::badbit);
  std::ostringstream err;
  EXPECT_EQ(cli::run({"--help"}, teams(), {bad, err}), 1);
  EXPECT_EQ(err.str(), "velorin-cli: Standard output cannot be written\n");
}

}  // namespace
}  // namespace velorin::testing
