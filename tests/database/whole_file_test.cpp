// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/whole_file.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "database/career_update.h"
#include "database/database_fixture.h"
#include "database/elevens.h"
#include "database/lasting_records.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::error_of;
using ::testing::HasSubstr;
using testing::names_in;
using testing::small_disk;
using testing::write_bytes;

using saver = void (*)();
constexpr saver add_to_careers = [] { update_career(match, data); };
constexpr saver add_to_records = [] { update_records(match, data); };
constexpr saver save_options = [] { write_options(data); };

class WholeFile : public testing::database_fixture {
 protected:
  /// Gives a file the time of writing of another.
  void age_as(const std::filesystem::path& file, const std::filesystem::path& other) const {
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(other));
  }
  /// Gives a file another time of writing, some hours off.
  void age(const std::filesystem::path& file, int hours) const {
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) + std::chrono::hours(hours));
  }
};

TEST_F(WholeFile, ReplacesTheContent) {
  replace_file(folder / "f", "one");
  EXPECT_EQ(bytes_of(folder / "f"), "one");
  replace_file(folder / "f", std::string(1'000'000, 'x'));
  EXPECT_EQ(bytes_of(folder / "f"), std::string(1'000'000, 'x'));
  replace_file(folder / "f", "");
  EXPECT_EQ(bytes_of(folder / "f"), "");
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
}

TEST_F(WholeFile, KeepsTheRightsOfTheOldFile) {
  write_bytes(folder / "f", "one");
  ASSERT_EQ(::chmod((folder / "f").c_str(), 0640), 0);
  replace_file(folder / "f", "two");
  struct stat facts {};
  ASSERT_EQ(::stat((folder / "f").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777, 0640U);
}

TEST_F(WholeFile, FollowsALinkToTheFile) {
  std::filesystem::create_directory(folder / "real");
  write_bytes(folder / "real" / "f", "one");
  std::filesystem::create_symlink("real/f", folder / "f");
  replace_file(folder / "f", "two");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "f"));
  EXPECT_EQ(bytes_of(folder / "real" / "f"), "two");
}

TEST_F(WholeFile, MakesTheFileThatALinkLeadsTo) {
  std::filesystem::create_directory(folder / "real");
  std::filesystem::create_symlink("real/g", folder / "link");
  std::filesystem::create_symlink("link", folder / "f");
  replace_file(folder / "f", "one");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "f"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  EXPECT_EQ(bytes_of(folder / "real" / "g"), "one");
}

TEST_F(WholeFile, LeavesALinkAloneWhoseFolderIsMissing) {
  std::filesystem::create_symlink("away/f", folder / "f");
  EXPECT_THAT(error_of([&] { replace_file(folder / "f", "one"); }).what(), HasSubstr("No such file or directory"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "f"));
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
}

TEST_F(WholeFile, AFolderAmongTheFilesIsMetBeforeAnyIsReplaced) {
  write_bytes(folder / "f", "one");
  std::filesystem::create_directory(folder / "g");
  {
    staged_files staged({folder / "f", folder / "g"});
    staged.write("two");
    const auto error = error_of([&] { staged.write("two"); });
    EXPECT_THAT(error.what(), HasSubstr("The file cannot be written: Is a directory (file g)"));
  }
  EXPECT_EQ(bytes_of(folder / "f"), "one");
  EXPECT_THAT(names_in(folder), ElementsAre("f", "g"));
}

TEST_F(WholeFile, AProtectedFileIsNotReplaced) {
  write_bytes(folder / "f", "one");
  write_bytes(folder / "g", "one");
  ASSERT_EQ(::chmod((folder / "g").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
  {
    const testing::other_user somebody;
    if (!somebody.holds()) GTEST_SKIP() << "the superuser keeps his rights";
    staged_files staged({folder / "h", folder / "g"});
    staged.write("two");
    const auto error = error_of([&] { staged.write("two"); });
    EXPECT_THAT(error.what(), HasSubstr("The file cannot be written: Permission denied (file g)"));
  }
  EXPECT_EQ(bytes_of(folder / "g"), "one");
  EXPECT_THAT(names_in(folder), ElementsAre("f", "g"));
}

TEST_F(WholeFile, TakesWhatAKilledProgramLeftAway) {
  write_bytes(folder / "f", "one");
  write_bytes(folder / "f.new", "half of tw");
  ASSERT_EQ(::chmod((folder / "f.new").c_str(), 0), 0);
  replace_file(folder / "f", "two");
  EXPECT_EQ(bytes_of(folder / "f"), "two");
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
}

TEST_F(WholeFile, AStagedFileThatIsNotPutInPlaceLeavesNothing) {
  write_bytes(folder / "f", "one");
  {
    staged_files staged({folder / "f"});
    staged.write("two");
    EXPECT_THAT(names_in(folder), ElementsAre("f", "f.new"));
  }
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
  EXPECT_EQ(bytes_of(folder / "f"), "one");
}

TEST_F(WholeFile, FilesThatBelongTogetherAreDroppedTogether) {
  write_bytes(folder / "f", "one");
  {
    staged_files staged({folder / "f", folder / "g"});
    staged.write("two");
    staged.write("three");
    EXPECT_THAT(names_in(folder), ElementsAre("f", "f.new", "g.next"));
  }
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
  EXPECT_EQ(bytes_of(folder / "f"), "one");
}

// The first file's new content is still beside it: perhaps not all was written.
TEST_F(WholeFile, FilesWhoseRenamingHadNotBegunStayOld) {
  write_bytes(folder / "f", "one");
  write_bytes(folder / "f.new", "two");
  write_bytes(folder / "g.next", "thr");
  const staged_files staged({folder / "f", folder / "g", folder / "h"});
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
  EXPECT_EQ(bytes_of(folder / "f"), "one");
}

TEST_F(WholeFile, FilesThatBelongTogetherAreOfOneTime) {
  staged_files staged({folder / "f", folder / "g", folder / "h"});
  staged.write("one");
  const auto first = std::filesystem::last_write_time(folder / "f.new");
  for (const char* name : {"g", "h"}) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // longer than the system's clock takes for a step
    staged.write("one");
    EXPECT_EQ(std::filesystem::last_write_time(folder / (std::string(name) + ".next")), first);
  }
}

TEST_F(WholeFile, ARenamingThatWasCutOffIsFinished) {
  for (const char* name : {"f", "g.next", "h.next"}) {
    write_bytes(folder / name, "two");
    age_as(folder / name, folder / "f");
  }
  write_bytes(folder / "g", "one");
  age(folder / "g", 1);  // by whatever clock
  ASSERT_EQ(::chmod((folder / "g").c_str(), 0640), 0);
  const staged_files staged({folder / "f", folder / "g", folder / "h"});
  EXPECT_THAT(names_in(folder), ElementsAre("f", "g", "h"));
  EXPECT_EQ(bytes_of(folder / "g"), "two");
  EXPECT_EQ(bytes_of(folder / "h"), "two");
}

// Put there by whatever means: as old as it was, or as of now.
TEST_F(WholeFile, ABackupPutInPlaceBehindACutOffRenamingStays) {
  for (const int hours : {-1, 1}) {
    for (const char* name : {"f", "g"}) write_bytes(folder / name, "backup");
    for (const char* name : {"g.next", "h.next"}) {
      write_bytes(folder / name, "two");
      age_as(folder / name, folder / "f");
    }
    age(folder / "f", hours);
    const staged_files staged({folder / "f", folder / "g", folder / "h"});
    EXPECT_THAT(names_in(folder), ElementsAre("f", "g"));
    EXPECT_EQ(bytes_of(folder / "f"), "backup");
    EXPECT_EQ(bytes_of(folder / "g"), "backup");
  }
}

TEST_F(WholeFile, ALinkInTheWayIsNoNewContent) {
  write_bytes(folder / "f", "one");
  std::filesystem::create_symlink("f", folder / "f.new");
  write_bytes(folder / "g.next", "two");
  age_as(folder / "g.next", folder / "f");
  { const staged_files staged({folder / "f", folder / "g"}); }
  EXPECT_EQ(bytes_of(folder / "f"), "one");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "f"));
}

TEST_F(WholeFile, ACutOffRenamingIsNotFinishedWithoutTheFirstFile) {
  write_bytes(folder / "g.next", "two");
  const staged_files staged({folder / "f", folder / "g"});
  EXPECT_TRUE(names_in(folder).empty());
}

// Else the rest of it would look like a whole content whose renaming was cut off.
TEST_F(WholeFile, AFolderInTheWayOfANewContentLeavesTheOldFiles) {
  write_bytes(folder / "f", "one");
  write_bytes(folder / "f.new", "two");
  std::filesystem::create_directory(folder / "g.next");
  for (int i = 0; i < 2; ++i) {
    const auto error = error_of([&] {
      staged_files staged({folder / "f", folder / "g"});
      staged.write("two");
      staged.write("two");
    });
    EXPECT_STREQ(error.what(), "The file cannot be written: File exists (file g.next)");
    EXPECT_EQ(read_file(folder / "f"), "one");
    EXPECT_THAT(names_in(folder), ElementsAre("f", "g.next"));
  }
}

TEST_F(WholeFile, AMissingFileIsNothing) {
  EXPECT_FALSE(read_file(folder / "f").has_value());
  create_if_missing(folder / "f");
  EXPECT_EQ(read_file(folder / "f"), "");
  write_bytes(folder / "f", "one");
  create_if_missing(folder / "f");
  EXPECT_EQ(read_file(folder / "f"), "one");
}

TEST_F(WholeFile, ReadsFilesThatDoNotTellTheirSize) {
  EXPECT_THAT(read_file("/proc/self/status").value_or(""), HasSubstr("VmRSS"));
}

TEST_F(WholeFile, WhatMightNeverEndIsRefusedAtOnce) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
  for (const std::filesystem::path& file : {folder / "pipe", std::filesystem::path("/dev/zero")}) {
    const auto error = error_of([&] { read_file(file); });
    EXPECT_EQ(error.kind(), failure::file);
    EXPECT_STREQ(error.what(),
                 ("The file cannot be read: it is a pipe, a device or the like (file " + file.filename().string() + ")")
                     .c_str());
  }
  EXPECT_EQ(error_of([&] { replace_file(folder / "pipe", "one"); }).kind(), failure::file);
  create_if_missing(folder / "pipe");
}

TEST_F(WholeFile, AFileHasABound) {
  constexpr std::size_t most = 64 << 20;
  write_bytes(folder / "f", "one");
  std::filesystem::resize_file(folder / "f", most);
  EXPECT_EQ(read_file(folder / "f").value_or("").size(), most);
  std::filesystem::resize_file(folder / "f", most + 1);
  EXPECT_STREQ(error_of([&] { read_file(folder / "f"); }).what(),
               "The file cannot be read: it has more than 64 MiB (file f)");
}

TEST_F(WholeFile, AFullDiskLeavesTheOldFile) {
  write_bytes(folder / "f", "one");
  const auto error = error_of([&] {
    const small_disk disk(1000);
    replace_file(folder / "f", std::string(5000, 'x'));
  });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_STREQ(error.what(), "The file cannot be written: File too large (file f)");
  EXPECT_EQ(bytes_of(folder / "f"), "one");
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
}

TEST_F(WholeFile, AFullDiskLeavesTheOldDatabase) {
  testing::set_up_finished_match();
  update_career(match, data);
  update_records(match, data);
  const std::string career_file = bytes_of(data.files.career_file);
  const std::string record_file = bytes_of(data.files.record_file);
  match.result_winner = "Tamar";
  for (const auto update : {add_to_careers, add_to_records}) {
    const auto error = error_of([&] {
      const small_disk disk(10'000);
      update();
    });
    EXPECT_EQ(error.kind(), failure::file);
    EXPECT_THAT(error.what(), HasSubstr("File too large"));
  }
  EXPECT_EQ(bytes_of(data.files.career_file), career_file);
  EXPECT_EQ(bytes_of(data.files.record_file), record_file);
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec"));
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).teams[1].players[1].matches, 2) << "and play goes on";
}

TEST_F(WholeFile, AFullDiskLeavesTheOldElevenAndTheOldSettings) {
  eleven men;
  men[1].name = "A.Man1";
  write_eleven(data, side::first, men);
  data.settings.database_name = "base";
  write_options(data);
  const std::string options = bytes_of(folder / "options.mc");
  men[1].name = "A.Man2";
  data.settings.database_name = "other";
  EXPECT_EQ(error_of([&] {
              const small_disk disk(100);
              write_eleven(data, side::first, men);
            }).kind(),
            failure::file);
  EXPECT_EQ(error_of([&] {
              const small_disk disk(5);
              write_options(data);
            }).kind(),
            failure::file);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "A.Man1");
  EXPECT_EQ(bytes_of(folder / "options.mc"), options);
  EXPECT_THAT(names_in(folder), ElementsAre("options.mc", "team1r.txt"));
}

TEST_F(WholeFile, AFolderThatIsNoneIsAnError) {
  write_bytes(folder / "file", "x");
  data.files = database_paths(folder / "file", "base");
  testing::set_up_finished_match();
  for (const auto update : {add_to_careers, add_to_records, save_options}) {
    const auto error = error_of(update);
    EXPECT_EQ(error.kind(), failure::file);
    EXPECT_THAT(error.what(), HasSubstr("Not a directory"));
  }
  EXPECT_EQ(error_of([] { write_eleven(data, side::first, eleven()); }).kind(), failure::file);
  EXPECT_EQ(error_of([] { swap_elevens(data); }).kind(), failure::file);
}

// No account, not even that of the system's owner, makes files there.
TEST_F(WholeFile, AFolderThatTakesNoFilesIsAnError) {
  data.files = database_paths("/proc/self", "base");
  testing::set_up_finished_match();
  for (const auto update : {add_to_careers, add_to_records, save_options}) {
    const auto error = error_of(update);
    EXPECT_EQ(error.kind(), failure::file);
    EXPECT_THAT(error.what(), HasSubstr("The file cannot be written: "));
  }
  EXPECT_EQ(error_of([] { read_career_table(data); }).kind(), failure::file) << "it cannot be made";
}

TEST_F(WholeFile, ABlockedNameLeavesTheOldDatabase) {
  testing::set_up_finished_match();
  update_career(match, data);
  const std::string career_file = bytes_of(data.files.career_file);
  std::filesystem::create_directory(folder / "base.rec.new");
  const auto error = error_of([] { update_career(match, data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_THAT(error.what(), HasSubstr("The file cannot be written: File exists (file base.rec.new)"));
  EXPECT_EQ(bytes_of(data.files.career_file), career_file);
}

// The renaming of an update of both files was cut off behind the first.
TEST_F(WholeFile, AnUpdateOfOneFileBeginsWithTheEndOfOneOfBoth) {
  testing::set_up_finished_match();
  std::vector<std::string> records;
  for (int matches = 1; matches <= 3; ++matches) {
    update_career_and_records(match, data);
    records.push_back(bytes_of(data.files.record_file));
  }
  const auto cut_off = [&] {
    write_bytes(data.files.record_file, records[0]);
    write_bytes(folder / "base.ptr.next", records[1]);
    age_as(folder / "base.ptr.next", data.files.career_file);
  };
  cut_off();
  update_career(match, data);
  EXPECT_EQ(bytes_of(data.files.record_file), records[1]);
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec"));
  cut_off();
  update_records(match, data);
  EXPECT_EQ(bytes_of(data.files.record_file), records[2]);
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec"));
}

TEST_F(WholeFile, AFailedReplacementTakesTheNewContentAway) {
  {
    staged_files staged({folder / "f"});
    staged.write("x");
    std::filesystem::create_directory(folder / "f");
    const auto error = error_of([&] { staged.put_in_place(); });
    EXPECT_THAT(error.what(), HasSubstr("The file cannot be replaced: Is a directory (file f)"));
  }
  EXPECT_THAT(names_in(folder), ElementsAre("f"));
}

TEST_F(WholeFile, TwoProgramsAtOnceLoseNothing) {
  constexpr int updates = 60;
  testing::set_up_finished_match();
  pid_t children[2] = {};
  for (pid_t& child : children) {
    child = ::fork();
    if (child != 0) continue;
    int status = 0;
    try {
      for (int i = 0; i < updates; ++i) {
        update_career(match, data);
        update_records(match, data);
      }
    } catch (const run_time_error&) {
      status = 1;
    }
    ::_exit(status);
  }
  for (const pid_t child : children) {
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const career_table careers = read_career_table(data);
  EXPECT_EQ(careers.teams[1].players[1].matches, 2 * updates);
  EXPECT_EQ(careers.teams[2].players[9].wickets, 5 * 2 * updates);
  const record_lists lists = read_record_lists(data);
  EXPECT_EQ(lists.teams[2].home_won, tagged{2.0 * updates});
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec"));
}

}  // namespace
}  // namespace velorin
