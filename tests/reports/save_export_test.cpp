// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "database/configuration.h"
#include "model/run_time_error.h"
#include "reports/export.h"
#include "reports/match_scenes.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "support/redirected_output.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;
using testing::other_user;
using testing::redirected_output;

class SaveExport : public reports_test {
 protected:
  void SetUp() override {
    reports_test::SetUp();
    std::string name = (fs::temp_directory_path() / "velorin-export-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
    set_second_innings_in_play();
    card.open();
  }
  void TearDown() override { fs::remove_all(folder); }

  static std::string content(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
  }
  /// What writing the page raises; "" for nothing.
  std::string error_of(const fs::path& path) const {
    try {
      write_export(match, data, card, export_kind::html, path);
      return "";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::file);
      return error.what();
    }
  }
  /// What /dev/stdout is.
  fs::path make_link_to_standard_output() const {
    fs::create_symlink("/proc/self/fd/1", folder / "stdout");
    return folder / "stdout";
  }
  int files() const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder;
  scorecard_form card{match};
};

TEST_F(SaveExport, WritesTheKindAskedFor) {
  write_export(match, data, card, export_kind::html, folder / "a.html");
  write_export(match, data, card, export_kind::text, folder / "b.txt");
  write_export(match, data, card, export_kind::ball_by_ball, folder / "c.txt");
  EXPECT_EQ(content(folder / "a.html"), html_scorecard(match, data, card));
  EXPECT_EQ(content(folder / "b.txt"), text_scorecard(match, card));
  EXPECT_EQ(content(folder / "c.txt"), ball_by_ball(match, card));
  EXPECT_EQ(files(), 3);
}

TEST_F(SaveExport, ReplacesWhatWasThere) {
  std::ofstream(folder / "a.txt") << std::string(100000, 'x');
  write_export(match, data, card, export_kind::text, folder / "a.txt");
  EXPECT_EQ(content(folder / "a.txt"), text_scorecard(match, card));
  EXPECT_EQ(files(), 1);
}

TEST_F(SaveExport, OpensACardOfItsOwn) {
  write_export(match, data, export_kind::text, folder / "a.txt");
  EXPECT_EQ(content(folder / "a.txt"), text_scorecard(match, card));
}

TEST_F(SaveExport, FollowsASymbolicLink) {
  std::ofstream(folder / "real.txt") << "old";
  fs::create_symlink(folder / "real.txt", folder / "link.txt");
  write_export(match, data, card, export_kind::text, folder / "link.txt");
  EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
  EXPECT_EQ(content(folder / "real.txt"), text_scorecard(match, card));
}

TEST_F(SaveExport, RefusesAFolderThatIsNotThere) {
  const fs::path path = folder / "missing" / "a.html";
  EXPECT_EQ(error_of(path), "The file cannot be written: No such file or directory (file " + path.string() + ")");
  EXPECT_EQ(files(), 0);
}

TEST_F(SaveExport, RefusesAFolderInPlaceOfTheFile) {
  fs::create_directory(folder / "a.html");
  const fs::path path = folder / "a.html";
  EXPECT_EQ(error_of(path), "The file cannot be written: Is a directory (file " + path.string() + ")");
  EXPECT_TRUE(fs::is_directory(folder / "a.html"));
}

TEST_F(SaveExport, RefusesTheNamesOfTheGameBesideItsFiles) {
  const database_files before = velorin::data.files;
  velorin::data.files.folder = folder;
  const std::string told = error_of(folder / "team1r.txt");
  const std::string of_any = error_of(folder / "any.ptr");
  velorin::data.files = before;
  EXPECT_EQ(told, "The name is that of a file of the game, for the elevens (file team1r.txt)");
  EXPECT_EQ(of_any, "The name is that of a file of the game, for the records (file any.ptr)");
  EXPECT_EQ(files(), 0);
}

TEST_F(SaveExport, WritesStraightToADeviceAndLeavesItOne) {
  write_export(match, data, card, export_kind::html, "/dev/null");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(SaveExport, GoesOnInTheFileOfStandardOutput) {
  const fs::path standard_output = make_link_to_standard_output();
  const fs::path path = folder / "out.txt";
  std::ofstream(path) << "before\n";
  {
    const redirected_output redirected(path);
    write_export(match, data, card, export_kind::text, standard_output);
    write_export(match, data, card, export_kind::text, path);
  }
  EXPECT_EQ(content(path), "before\n" + text_scorecard(match, card) + text_scorecard(match, card));
  EXPECT_EQ(files(), 2);
}

TEST_F(SaveExport, LeavesTheLinkOfStandardOutputAlone) {
  const fs::path standard_output = make_link_to_standard_output();
  const fs::path path = folder / "out.txt";
  std::string moved;
  {
    const redirected_output redirected(path);
    fs::rename(path, folder / "moved.txt");
    write_export(match, data, card, export_kind::html, standard_output);
    moved = content(folder / "moved.txt");
    fs::remove(folder / "moved.txt");
    write_export(match, data, card, export_kind::html, standard_output);
  }
  EXPECT_EQ(moved, html_scorecard(match, data, card));
  EXPECT_EQ(files(), 1);
  EXPECT_TRUE(fs::is_symlink(standard_output));
}

TEST_F(SaveExport, GoesStraightToAPipeByTheNameOfItsDescriptor) {
  int pipe[2];
  ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
  ASSERT_EQ(::fcntl(pipe[1], F_SETPIPE_SZ, 1 << 20), 1 << 20);
  write_export(match, data, card, export_kind::text, "/proc/self/fd/" + std::to_string(pipe[1]));
  ::close(pipe[1]);
  std::string got(100'000, ' ');
  const ssize_t size = ::read(pipe[0], got.data(), got.size());
  ::close(pipe[0]);
  ASSERT_GE(size, 0);
  got.resize(static_cast<std::size_t>(size));
  EXPECT_EQ(got, text_scorecard(match, card));
}

TEST_F(SaveExport, LeavesAProtectedFileAlone) {
  const fs::path path = folder / "a.txt";
  std::ofstream(path) << "old";
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  fs::permissions(folder, fs::perms::all);
  {
    const other_user somebody;
    if (!somebody.holds()) GTEST_SKIP() << "the superuser keeps his rights";
    EXPECT_EQ(error_of(path), "The file cannot be written: Permission denied (file " + path.string() + ")");
  }
  EXPECT_EQ(content(path), "old");
  EXPECT_EQ(files(), 1);
}

TEST_F(SaveExport, RefusesAFullDevice) {
  if (!fs::exists("/dev/full")) FAIL() << "the test needs /dev/full";
  EXPECT_EQ(error_of("/dev/full"), "The file cannot be written: No space left on device (file /dev/full)");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

}  // namespace
}  // namespace velorin
