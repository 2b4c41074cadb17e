// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/teams_file.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <chrono>

#include "database/database_fixture.h"
#include "database/slots.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::error_of;
using ::testing::HasSubstr;
using testing::write_bytes;

/// A file that counts `count` records and holds those given.
template <typename Record>
void write_counted(const std::filesystem::path& path, int count, const std::vector<Record>& records) {
  slot_file file({}, team_slot, "x");
  file.put(1, encoded_field(integer(count)), {});
  for (std::size_t i = 0; i < records.size(); ++i) file.put(static_cast<long>(i) + 2, encoded(records[i]), {});
  write_bytes(path, file.bytes());
}

team_rec team_called(const std::string& name) {
  team_rec team;
  team.team_name = name;
  team.squad[1].name = name + ".Man";
  return team;
}

class TeamsFile : public testing::database_fixture {
 protected:
  void write_teams(const std::vector<team_rec>& teams) {
    write_counted(data.files.team_file, static_cast<int>(teams.size()), teams);
  }
  /// Makes the file older than the time in which it may change without a trace.
  static void age(const std::filesystem::path& file) {
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  }
};

TEST_F(TeamsFile, ReadsAllTeamsInFileOrder) {
  write_teams({team_called("Tamar"), team_called("Alba")});
  const auto& teams = read_team_list(data);
  ASSERT_EQ(teams.size(), 2U);
  EXPECT_EQ(teams[0].team_name, "Tamar");
  EXPECT_EQ(teams[1].team_name, "Alba");
  EXPECT_EQ(teams[1].squad[1].name, "Alba.Man");
  EXPECT_EQ(teams[1].squad[2].name, "");
}

TEST_F(TeamsFile, AMissingFileIsAnError) {
  const auto error = error_of([] { read_team_list(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_STREQ(error.what(), "The file is missing (file base.team)");
  EXPECT_STREQ(error_of([] { read_grounds(data); }).what(), "The file is missing (file base.grd)");
  EXPECT_STREQ(error_of([] { read_team(data, 2); }).what(), "The file is missing (file base.team)");
  EXPECT_TRUE(testing::names_in(folder).empty()) << "nothing is made";
}

TEST_F(TeamsFile, AFolderInItsPlaceIsAnError) {
  std::filesystem::create_directory(data.files.team_file);
  const auto error = error_of([] { read_team_list(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_THAT(error.what(), HasSubstr("Is a directory (file base.team)"));
}

TEST_F(TeamsFile, TwentyTeamsAreRead) {
  std::vector<team_rec> teams;
  for (int i = 1; i <= 20; ++i) teams.push_back(team_called(fmt::format("T{}", i)));
  write_teams(teams);
  EXPECT_EQ(read_team_list(data).size(), 20U);
  EXPECT_EQ(read_team(data, 21).team_name, "T20");
}

TEST_F(TeamsFile, ATwentyFirstTeamIsASubscriptError) {
  std::vector<team_rec> teams;
  for (int i = 1; i <= 21; ++i) teams.push_back(team_called(fmt::format("T{}", i)));
  write_teams(teams);
  const auto error = error_of([] { read_team_list(data); });
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_THAT(error.what(), HasSubstr("a count of 21, at most 20 (file base.team, record 22"));
}

TEST_F(TeamsFile, ACountBelowZeroIsATypeMismatch) {
  write_counted<team_rec>(data.files.team_file, -1, {});
  EXPECT_EQ(error_of([] { read_team_list(data); }).kind(), failure::type);
  write_counted<ground_rec>(data.files.ground_file, -7, {});
  const auto error = error_of([] { read_grounds(data); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_STREQ(error.what(), "Type mismatch: a count of -7 (file base.grd, record 1, field ground_count)");
}

TEST_F(TeamsFile, AnEmptyFileHasNoTeams) {
  write_bytes(data.files.team_file, "");
  EXPECT_TRUE(read_team_list(data).empty());
}

TEST_F(TeamsFile, ARecordBeyondTheFileIsEmpty) {
  write_counted(data.files.team_file, 2, std::vector{team_called("Tamar")});
  const auto& teams = read_team_list(data);
  ASSERT_EQ(teams.size(), 2U);
  EXPECT_EQ(teams[1].team_name, "");
  EXPECT_EQ(read_team(data, 3).team_name, "");
  EXPECT_EQ(read_team(data, 30).team_name, "");
}

TEST_F(TeamsFile, AFileThatEndsBeforeItsLastRecordIsNotWhole) {
  write_teams({team_called("Tamar"), team_called("Alba")});
  write_counted(data.files.ground_file, 0, std::vector<ground_rec>());
  require_whole_database(data);
  write_counted(data.files.team_file, 3, std::vector{team_called("Tamar"), team_called("Alba")});
  const run_time_error error = error_of([] { require_whole_database(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_EQ(error.place().file, "base.team");
  EXPECT_EQ(error.place().record, 4);
}

TEST_F(TeamsFile, AFileThatEndsWithinItsLastRecordIsNotWhole) {
  write_teams({team_called("Tamar"), team_called("Alba")});
  write_counted(data.files.ground_file, 0, std::vector<ground_rec>());
  std::filesystem::resize_file(data.files.team_file, 2 * 1500 + 6);
  EXPECT_EQ(error_of([] { require_whole_database(data); }).place().field, "team_flag") << "an end between two fields";
  std::filesystem::resize_file(data.files.team_file, 2 * 1500 + 5);
  const run_time_error error = error_of([] { require_whole_database(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_EQ(error.place().record, 3);
  EXPECT_EQ(error.place().field, "team_name");
}

TEST_F(TeamsFile, ATeamBeyondTheCountCanBeRead) {
  write_counted(data.files.team_file, 1, std::vector{team_called("Tamar"), team_called("Alba")});
  EXPECT_EQ(read_team_list(data).size(), 1U);
  EXPECT_EQ(read_team(data, 3).team_name, "Alba");
}

TEST_F(TeamsFile, TheCountIsNoTeam) {
  write_teams({team_called("Tamar")});
  EXPECT_EQ(error_of([] { read_team(data, 1); }).kind(), failure::subscript);
}

TEST_F(TeamsFile, GroundsKnowNoLimitOfTwenty) {
  std::vector<ground_rec> grounds(300);
  for (std::size_t i = 0; i < grounds.size(); ++i) grounds[i].ground_name = fmt::format("Ground {}", i);
  grounds[299].start_time = 1445;
  grounds[299].reserved = {1, 2, 3};
  write_counted(data.files.ground_file, 300, grounds);
  const auto& read = read_grounds(data);
  ASSERT_EQ(read.size(), 300U);
  EXPECT_EQ(read[299].ground_name, "Ground 299");
  EXPECT_EQ(read[299].start_time, 1445);
  EXPECT_EQ(read[299].reserved[2], 3);
}

TEST_F(TeamsFile, AnUnchangedFileIsNotReadAgain) {
  write_teams({team_called("Tamar")});
  age(data.files.team_file);
  read_team_list(data);  // the change of the times is too fresh to be trusted
  const auto start = std::chrono::steady_clock::now();
  while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(150)) {
  }
  const team_rec* const first = read_team_list(data).data();
  EXPECT_EQ(read_team_list(data).data(), first);
  EXPECT_EQ(&read_team(data, 2), first);
}

TEST_F(TeamsFile, AChangedFileIsReadAgainAtOnce) {
  for (int i = 0; i < 50; ++i) {
    const std::string name = fmt::format("Team {:02}", i);  // the size stays
    write_teams({team_called(name)});
    ASSERT_EQ(read_team_list(data)[0].team_name, name);
  }
}

TEST_F(TeamsFile, AReplacedFileWithTheSameTimesIsReadAgain) {
  write_teams({team_called("Tamar")});
  age(data.files.team_file);
  const auto time = std::filesystem::last_write_time(data.files.team_file);
  EXPECT_EQ(read_team_list(data)[0].team_name, "Tamar");
  write_counted(folder / "other", 1, std::vector{team_called("Atlas")});
  std::filesystem::rename(folder / "other", data.files.team_file);
  std::filesystem::last_write_time(data.files.team_file, time);
  EXPECT_EQ(read_team_list(data)[0].team_name, "Atlas");
}

TEST_F(TeamsFile, WithReadOnceAFileIsKeptUntilItIsForgotten) {
  write_teams({team_called("Tamar")});
  forget_teams_and_grounds(data);
  data.files.read_once = true;
  EXPECT_EQ(read_team_list(data)[0].team_name, "Tamar");
  write_teams({team_called("Alba"), team_called("Zoll")});
  EXPECT_EQ(read_team_list(data).size(), 1U);
  EXPECT_EQ(read_team(data, 2).team_name, "Tamar");
  forget_teams_and_grounds(data);
  EXPECT_EQ(read_team_list(data).size(), 2U);
  EXPECT_EQ(read_team(data, 2).team_name, "Alba");
}

TEST_F(TeamsFile, WithReadOnceAnErrorIsRaisedEveryTime) {
  forget_teams_and_grounds(data);
  data.files.read_once = true;
  EXPECT_EQ(error_of([] { read_team_list(data); }).kind(), failure::file);
  EXPECT_EQ(error_of([] { read_team_list(data); }).kind(), failure::file);
  write_teams({team_called("Tamar")});
  EXPECT_EQ(read_team_list(data).size(), 1U);
}

TEST_F(TeamsFile, AnotherDatabaseHasItsOwnTeams) {
  write_teams({team_called("Tamar")});
  age(data.files.team_file);
  EXPECT_EQ(read_team_list(data)[0].team_name, "Tamar");
  use_database(data, "other");
  write_teams({team_called("Atlas")});
  EXPECT_EQ(read_team_list(data)[0].team_name, "Atlas");
  use_database(data, "base");
  EXPECT_EQ(read_team_list(data)[0].team_name, "Tamar");
}

TEST_F(TeamsFile, AnErrorIsRaisedEveryTime) {
  write_teams({team_called("Tamar")});
  std::string bytes = bytes_of(data.files.team_file);
  bytes[1501] = '\x7F';
  write_bytes(data.files.team_file, bytes);
  for (int i = 0; i < 2; ++i) {
    const auto error = error_of([] { read_team_list(data); });
    EXPECT_EQ(error.kind(), failure::type);
    EXPECT_THAT(error.what(), HasSubstr("(file base.team, record 2, field team_name)"));
  }
}

}  // namespace
}  // namespace velorin
