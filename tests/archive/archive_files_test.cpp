// SPDX-License-Identifier: GPL-3.0-or-later
// How matches come into the file, and who may read it.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "archive/archive_fixture.h"
#include "archive/waiting_matches.h"
#include "database/begin_anew.h"
#include "database/career_update.h"
#include "database/counted_matches.h"
#include "database/file_calls.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// Takes nothing in, as a program that is ended at once.
class short_lived_keeper : public archive_keeper {
 public:
  void take_in(const database_files&) override {}
};

class ArchiveFiles : public ArchiveTest {
 protected:
  /// Adds a match under a name, as its keeper has it.
  void add(match_keeper& keeper, const std::string& name, const std::string& recording = {}) {
    const match_state played = ended_match(seed_++);
    data.files = files();
    data.files.keeper = &keeper;
    bool added = false;
    match_update(played, data, added, name, recording).run();
  }
  std::vector<std::int64_t> ids() const {
    std::vector<std::int64_t> all;
    for (const listed_match& one : archive().list()) all.push_back(one.id);
    return all;
  }
  /// Leaves the archive as a program does that is killed in the midst of a long transaction: half of it written.
  void cut_off() const {
    const std::filesystem::path kept = archive_path(files());
    const std::filesystem::path torn = teams() / "torn";
    const auto journal_of = [](std::filesystem::path file) { return file += "-journal"; };
    SQLite::Database writer(kept.string(), SQLite::OPEN_READWRITE);
    writer.exec("PRAGMA cache_size = 1");
    writer.exec("BEGIN IMMEDIATE");
    writer.exec("DELETE FROM over_row");
    writer.exec("DELETE FROM batting_row");
    std::filesystem::copy_file(kept, torn);
    std::filesystem::copy_file(journal_of(kept), journal_of(torn));
    writer.exec("ROLLBACK");
    ASSERT_NE(*read_file(torn), *read_file(kept)) << "nothing was written by then";
    std::filesystem::rename(torn, kept);
    std::filesystem::rename(journal_of(torn), journal_of(kept));
  }
  bool is_waiting() const { return std::filesystem::exists(waiting_file(files())); }

 private:
  std::uint64_t seed_ = 1;
};

TEST_F(ArchiveFiles, NothingWaitsBehindARun) {
  play("1", 20);
  EXPECT_FALSE(is_waiting());
  EXPECT_EQ(ids().size(), 20U);
}

TEST_F(ArchiveFiles, WhatWaitsIsTakenInByWhoComesNext) {
  short_lived_keeper ended;
  add(ended, "one");
  add(ended, "two");
  EXPECT_TRUE(is_waiting());
  EXPECT_FALSE(std::filesystem::exists(archive_path(files())));
  EXPECT_THAT(ids(), ElementsAre(1, 2));
  EXPECT_FALSE(is_waiting());
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, WhatWasTakenInAndStillWaitsIsNotTakenInAgain) {
  short_lived_keeper ended;
  add(ended, "");
  const std::string waiting = *read_file(waiting_file(files()));
  EXPECT_THAT(ids(), ElementsAre(1));
  write_bytes(waiting_file(files()), waiting);
  EXPECT_THAT(ids(), ElementsAre(1));
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, AnUpdateCutOffBetweenItsRenamesIsFinished) {
  short_lived_keeper ended;
  add(ended, "one");
  EXPECT_THAT(ids(), ElementsAre(1));
  add(ended, "two");
  // As if the kill had fallen behind the first rename.
  for (const std::filesystem::path& file : {files().record_file, counted_file(files()), waiting_file(files())}) {
    std::filesystem::path next = file;
    next += ".next";
    std::filesystem::rename(file, next);
    std::filesystem::last_write_time(next, std::filesystem::last_write_time(files().career_file));
  }
  EXPECT_THAT(ids(), ElementsAre(1, 2));
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, AMatchOfTheSameNameIsAddedOnce) {
  archive_keeper keeper;
  add(keeper, "recording 1");
  add(keeper, "recording 1");
  add(keeper, "recording 2");
  EXPECT_THAT(ids(), ElementsAre(1, 2));
  EXPECT_TRUE(archive().has("recording 2"));
  EXPECT_FALSE(archive().has("recording 3"));
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, ARecordingIsKeptToTheByte) {
  archive_keeper keeper;
  const std::string bytes("velo\0\xff\n", 7);
  add(keeper, "one", bytes);
  add(keeper, "two");
  EXPECT_EQ(archive().recording(1), bytes);
  EXPECT_EQ(archive().recording(2), "");
  EXPECT_FALSE(archive().recording(3));
  text({"archive", "record", "1", file("match")});
  EXPECT_EQ(read_file(file("match")), bytes);
  EXPECT_THAT(error(1, {"archive", "record", "2", file("other")}), HasSubstr("Match 2 has no recording"));
  EXPECT_THAT(error(1, {"archive", "record", "3", file("other")}), HasSubstr("No match 3"));
  EXPECT_FALSE(std::filesystem::exists(file("other")));
}

TEST_F(ArchiveFiles, AReaderInTheMidstDelaysAndLosesNothing) {
  archive_keeper keeper;
  add(keeper, "one");
  {
    SQLite::Database other(archive_path(files()).string(), SQLite::OPEN_READONLY);
    SQLite::Statement reading(other, "SELECT * FROM batting");
    ASSERT_TRUE(reading.executeStep());
    add(keeper, "two");
    EXPECT_TRUE(is_waiting());
  }
  EXPECT_THAT(ids(), ElementsAre(1, 2));
}

TEST_F(ArchiveFiles, AnArchiveThatCannotBeWrittenLeavesTheMatchWaiting) {
  archive_keeper keeper;
  add(keeper, "one");
  {
    SQLite::Database other(archive_path(files()).string(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    add(keeper, "two");
    EXPECT_TRUE(is_waiting());
    EXPECT_THROW(settle_archive(files()), run_time_error);
    EXPECT_THAT(settled_archive(files()).count(), 1) << "what is there can be read all the same";
  }
  EXPECT_THAT(ids(), ElementsAre(1, 2));
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, ANewerVersionIsRefusedAndNothingUpdated) {
  play("1", 1);
  change("PRAGMA user_version = 3");
  const auto before = contents_of(teams());
  const std::string sentence =
      "The archive is of version 3, and this program knows versions up to 2: a newer Velorin has"
      " written it (file small.matches)";
  EXPECT_EQ(error(1, {"archive", "list"}), "velorin-cli: " + sentence);
  EXPECT_EQ(error(1, {"--seed", "2", "match", "--update", "--quiet"}), "velorin-cli: " + sentence);
  EXPECT_EQ(contents_of(teams()), before);
}

TEST_F(ArchiveFiles, AWriteThatWasCutOffIsRolledBackByWhoReads) {
  play("1", 20);
  const auto before = contents_of(teams());
  const std::vector<std::string> reading[] = {{"archive", "list"}, {"archive", "show", "1"}, {"query", "batting"}};
  for (const std::vector<std::string>& reads : reading) {
    const std::string told = text(reads);
    cut_off();
    EXPECT_EQ(text(reads), told) << reads[1];
    EXPECT_EQ(contents_of(teams()), before) << reads[1];
  }
  cut_off();
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, WhereItMayNotBeWrittenTheErrorSaysWhatToDo) {
  play("1", 20);
  cut_off();
  const std::filesystem::path archived = archive_path(files());
  std::filesystem::permissions(archived, std::filesystem::perms(0444));
  {
    const closed_folder closed(teams());
    if (!closed.holds()) GTEST_SKIP() << "nothing is forbidden to the superuser here";
    EXPECT_THAT(error(1, {"archive", "list"}), HasSubstr("start the game there, or copy it with its journal"));
  }
  std::filesystem::permissions(archived, std::filesystem::perms(0644));
  EXPECT_EQ(ids().size(), 20U);
}

TEST_F(ArchiveFiles, AnotherFileInItsPlaceIsRefused) {
  write_bytes(archive_path(files()), "no database, but long enough to be looked at for what it is");
  EXPECT_THAT(error(1, {"--seed", "2", "match", "--update", "--quiet"}), HasSubstr("small.matches"));
  EXPECT_FALSE(std::filesystem::exists(files().career_file));
}

TEST_F(ArchiveFiles, DamagedWaitingMatchesAreRefused) {
  short_lived_keeper ended;
  add(ended, "one");
  const std::string whole = *read_file(waiting_file(files()));
  for (std::size_t length = 1; length < whole.size(); length += 97) {
    EXPECT_THROW(waiting_in(whole.substr(0, length), "small.waiting"), run_time_error) << length;
  }
  EXPECT_EQ(waiting_in(whole, "small.waiting").matches.size(), 1U);
  EXPECT_EQ(bytes_of(waiting_in(whole, "small.waiting")), whole);
}

TEST_F(ArchiveFiles, ReadingChangesNothingInTheFolder) {
  play("1", 2);
  const auto before = contents_of(teams());
  text({"archive", "list"});
  text({"archive", "show", "1"});
  text({"query", "batting"});
  EXPECT_EQ(contents_of(teams()), before);
}

TEST_F(ArchiveFiles, BeginningAnewEmptiesTheArchive) {
  play("1", 3);
  archive_keeper keeper;
  database_files in_use = files();
  in_use.keeper = &keeper;
  begin_careers_anew(in_use);
  EXPECT_THAT(ids(), IsEmpty());
  EXPECT_THAT(differences(), IsEmpty());
  play("2", 2);
  EXPECT_EQ(ids().size(), 2U);
  EXPECT_GT(ids().front(), 3);
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveFiles, WritersTakeTurns) {
  text({"--seed", "1", "match", "--update", "--matches", "24", "--jobs", "4", "--quiet"});
  std::vector<std::thread> writers;
  writers.reserve(3);
  for (int i = 0; i < 3; ++i) {
    writers.emplace_back([this] { run({"match", "--update", "--matches", "12", "--quiet"}); });
  }
  for (std::thread& each : writers) each.join();
  const archive_findings found = check_archive(files());
  EXPECT_EQ(found.matches, 60);
  EXPECT_THAT(found.differences, IsEmpty());
}

TEST_F(ArchiveFiles, OneOfTheFirstVersionIsReadAsItIsAndGetsWhatItLacksWhenItIsWritten) {
  play("3", 12);
  const std::string men = text({"query", "batting", "--by", "player,team", "--csv"});
  change("DROP VIEW meetings; DROP TABLE meeting_row; DROP TABLE man_sums; PRAGMA user_version = 1");
  EXPECT_EQ(lines_of(text({"query", "batting", "--by", "player,team", "--csv"})).size(), lines_of(men).size());
  EXPECT_THAT(error(2, {"query", "meetings"}), HasSubstr("The archive is of an earlier version"));
  EXPECT_THAT(differences(), IsEmpty());
  EXPECT_TRUE(archived_matches().front().innings[0].meetings.empty());
  play("4", 1);
  EXPECT_THAT(differences(), IsEmpty());
  const std::vector<archived_match> kept = archived_matches();
  EXPECT_TRUE(kept.front().innings[0].meetings.empty());
  EXPECT_FALSE(kept.back().innings[0].meetings.empty());
}

}  // namespace
}  // namespace velorin::testing
