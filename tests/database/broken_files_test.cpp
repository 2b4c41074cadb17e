// SPDX-License-Identifier: GPL-3.0-or-later
// Every file of tests/data/broken, named for its defect, goes through its reader: the error tells file and place, and
// the file stays as it was.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

#include "database/elevens.h"
#include "database/lasting_records.h"
#include "database/teams_file.h"
#include "database/world_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::error_of;
using testing::write_bytes;

const std::filesystem::path broken = std::filesystem::path(VELORIN_TEST_DATA) / "data" / "broken";

/// The error of each file that the database's readers refuse.
const std::map<std::string, std::string> errors = {
    {"BrokenCountBelowZero.team", "Type mismatch: a count of -1 (file base.team, record 1, field team_count)"},
    {"BrokenCountBeyondTwenty.team",
     "Subscript out of range: a count of 21, at most 20 (file base.team, record 22, field team_count)"},
    {"BrokenEndBeforeLastTeam.team",
     "The file is cut short: it has not all of its 2 records (file base.team, record 3)"},
    {"BrokenEndWithinTeam.team",
     "The file is cut short: it has not all of its 2 records (file base.team, record 3, field squad[1].reserved_4)"},
    {"BrokenSlotFullBeforeLastMan.team",
     "Type mismatch: 70 bytes from byte 1462 on run beyond the slot of 1500 (file base.team, record 2, field "
     "squad[13].name)"},
    {"BrokenTextBeyondSlot.team",
     "Type mismatch: 65535 bytes from byte 66 on run beyond the slot of 1500 (file base.team, record 2, field "
     "squad[2].name)"},
    {"BrokenCountBelowZero.grd", "Type mismatch: a count of -32768 (file base.grd, record 1, field ground_count)"},
    {"BrokenEndBeforeLastGround.grd",
     "The file is cut short: it has not all of its 3 records (file base.grd, record 4)"},
    {"BrokenTextBeyondSlot.grd",
     "Type mismatch: 1495 bytes from byte 8 on run beyond the slot of 1500 (file base.grd, record 2, field "
     "ground_name)"},
    {"BrokenCountInfinite.rec",
     "Type mismatch: a Double that is no number (file base.rec, record 1, field career_team_count)"},
    {"BrokenCountIsAWord.rec",
     "Type mismatch: \"many\" is no number (file base.rec, record 1, field career_team_count)"},
    {"BrokenCountWithFraction.rec", "Type mismatch: a count of 1.5 (file base.rec, record 1, field career_team_count)"},
    {"BrokenPlayerCountBelowZero.rec",
     "Type mismatch: a count of -1 (file base.rec, record 2, field player_count, at \"Alba\")"},
    {"BrokenTextBeyondSlot.rec",
     "Type mismatch: 60000 bytes from byte 122 on run beyond the slot of 5500 (file base.rec, record 2, field "
     "players[2].name)"},
    {"BrokenTwentyOnePlayers.rec",
     "Subscript out of range: a count of 21, at most 20 (file base.rec, record 2, field player_count, at \"Alba\")"},
    {"BrokenTwentyOneTeams.rec",
     "Subscript out of range: a count of 21, at most 20 (file base.rec, record 1, field career_team_count)"},
    {"BrokenUnknownTag.rec", "Type mismatch: unknown tag 77 (file base.rec, record 1, field career_team_count)"},
    {"BrokenTextBeyondSlot.ptr",
     "Type mismatch: 2489 bytes from byte 14 on run beyond the slot of 2500 (file base.ptr, record 1, field team)"},
    {"BrokenTableFieldIsNoNumber.ptr",
     "Type mismatch: a Double that is no number (file base.ptr, record 73, field away_tied)"},
    {"BrokenTwentySixTeams.ptr",
     "Subscript out of range: a count of 26, at most 25 (file base.ptr, record 71, field table_team_count)"},
    {"BrokenTextBeyondSlot.eleven",
     "Type mismatch: 200 bytes from byte 47 on run beyond the slot of 125 (file team2r.txt, record 2, field "
     "reserved_1)"},
    {"BrokenCharacter.players.csv",
     "Line 2, column 11: a character that has no place in Windows-1252 (file players.csv)"},
    {"BrokenOpenQuote.players.csv", "Line 3, column 1: the closing quote is missing (file players.csv)"},
    {"BrokenRateBeyondSingle.players.csv",
     "Line 2: \"1e39\" is no decimal number in range (file players.csv, field bowl_sr)"},
    {"BrokenUtf8.players.csv", "Line 2, column 8: a character that has no place in Windows-1252 (file players.csv)"},
    {"BrokenZeroByte.players.csv",
     "Line 2: \"2?8\" is no whole number from -32768 to 32767 (file players.csv, field bat_skill)"},
    {"BrokenShortRow.grounds.csv", "Line 2: 4 columns instead of 5 (file grounds.csv)"},
};

/// Puts a broken file where its reader looks for it, and reads it.
class BrokenFiles : public testing::database_fixture, public ::testing::WithParamInterface<std::string> {
 protected:
  std::filesystem::path placed() const {
    const std::string& name = GetParam();
    if (name.ends_with(".players.csv")) return folder / "players.csv";
    if (name.ends_with(".grounds.csv")) return folder / "grounds.csv";
    if (name.ends_with(".eleven")) return folder / "team2r.txt";
    return folder / ("base" + std::filesystem::path(name).extension().string());
  }

  void read() const {
    const std::string ending = std::filesystem::path(GetParam()).extension();
    if (ending == ".team") {
      write_bytes(data.files.ground_file, {});
      read_team_list(data);
      require_whole_database(data);
    } else if (ending == ".grd") {
      write_bytes(data.files.team_file, {});
      read_grounds(data);
      require_whole_database(data);
    } else if (ending == ".rec") {
      read_career_table(data);
    } else if (ending == ".ptr") {
      read_record_lists(data);
    } else if (ending == ".eleven") {
      read_elevens(match, data);
    } else {
      build_database(folder, data.files.team_file, data.files.ground_file);
    }
  }

  void place(const std::string& bytes) const {
    write_bytes(folder / "players.csv", "team,name,bat_skill,bowl_sr,econ,keeper,hand,role,bowler_type\n");
    write_bytes(folder / "grounds.csv", "country,ground,pitch_bounce,pitch_surface,start_time\n");
    write_bytes(placed(), bytes);
  }
};

TEST_P(BrokenFiles, AreRefusedWithThePlaceAndStayAsTheyAre) {
  const std::string bytes = bytes_of(broken / GetParam());
  place(bytes);
  EXPECT_EQ(error_of([this] { read(); }).what(), errors.at(GetParam()));
  EXPECT_EQ(bytes_of(placed()), bytes);
}

class BrokenDatabaseFiles : public testing::world_fixture, public ::testing::WithParamInterface<std::string> {};

TEST_P(BrokenDatabaseFiles, AreFaultyForTheCheck) {
  build({}, {});
  ASSERT_TRUE(check_database(data.files).empty());
  const std::string name = "base" + std::filesystem::path(GetParam()).extension().string();
  write_bytes(folder / name, bytes_of(broken / GetParam()));
  const auto faults = check_database(data.files);
  ASSERT_FALSE(faults.empty());
  EXPECT_EQ(faults.front().file, name);
}

/// The files whose names have one of these endings.
std::vector<std::string> files_with(const std::vector<std::string>& endings) {
  std::vector<std::string> names;
  for (const auto& [name, error] : errors) {
    const std::string ending = std::filesystem::path(name).extension();
    if (std::find(endings.begin(), endings.end(), ending) != endings.end()) names.push_back(name);
  }
  return names;
}

/// A file's name as a test may be called.
std::string test_name(const ::testing::TestParamInfo<std::string>& of) {
  std::string name = of.param;
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

const std::vector<std::string> of_database = {".team", ".grd", ".rec", ".ptr"};
INSTANTIATE_TEST_SUITE_P(OfDatabase, BrokenFiles, ::testing::ValuesIn(files_with(of_database)), test_name);
INSTANTIATE_TEST_SUITE_P(Others, BrokenFiles, ::testing::ValuesIn(files_with({".eleven", ".csv"})), test_name);
INSTANTIATE_TEST_SUITE_P(All, BrokenDatabaseFiles, ::testing::ValuesIn(files_with(of_database)), test_name);

using BrokenFolder = testing::database_fixture;

TEST_F(BrokenFolder, HasNoFileThatNoTestReads) {
  // Those of the companion's and the browsers' tests, and of the next one.
  const std::set<std::string> read_elsewhere = {"BrokenFourLines.mc", "BrokenNumberNotBelowOne.draws",
                                                "BrokenResultsBeyondDouble.ptr", "BrokenZeroByte.draws"};
  for (const std::string& name : testing::names_in(broken)) {
    EXPECT_NE(errors.contains(name), read_elsewhere.contains(name)) << name;
  }
  for (const std::string& name : read_elsewhere) EXPECT_TRUE(std::filesystem::exists(broken / name)) << name;
}

TEST_F(BrokenFolder, SettingsOfFourLinesAreLeftAlone) {
  data.settings.font_name = "Old";
  write_bytes(folder / "options.mc", bytes_of(broken / "BrokenFourLines.mc"));
  EXPECT_FALSE(read_options(data));
  EXPECT_EQ(data.settings.font_name, "Old");
  EXPECT_EQ(data.settings.database_name, "");
}

}  // namespace
}  // namespace velorin
