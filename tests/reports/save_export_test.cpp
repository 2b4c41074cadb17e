// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "model/run_time_error.h"
#include "reports/export.h"
#include "reports/match_scenes.h"

namespace velorin {
namespace {

namespace fs = std::filesystem;

class save_export_test : public reports_test {
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
      write_export(card, export_kind::html, path);
      return "";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::file);
      return error.what();
    }
  }
  int files() const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder;
  scorecard card;
};

TEST_F(save_export_test, writes_the_kind_asked_for) {
  write_export(card, export_kind::html, folder / "a.html");
  write_export(card, export_kind::text, folder / "b.txt");
  write_export(card, export_kind::ball_by_ball, folder / "c.txt");
  EXPECT_EQ(content(folder / "a.html"), html_scorecard(card));
  EXPECT_EQ(content(folder / "b.txt"), text_scorecard(card));
  EXPECT_EQ(content(folder / "c.txt"), ball_by_ball(card));
  EXPECT_EQ(files(), 3);
}

TEST_F(save_export_test, replaces_what_was_there) {
  std::ofstream(folder / "a.txt") << std::string(100000, 'x');
  write_export(card, export_kind::text, folder / "a.txt");
  EXPECT_EQ(content(folder / "a.txt"), text_scorecard(card));
  EXPECT_EQ(files(), 1);
}

TEST_F(save_export_test, opens_a_card_of_its_own) {
  write_export(export_kind::text, folder / "a.txt");
  EXPECT_EQ(content(folder / "a.txt"), text_scorecard(card));
}

TEST_F(save_export_test, follows_a_symbolic_link) {
  std::ofstream(folder / "real.txt") << "old";
  fs::create_symlink(folder / "real.txt", folder / "link.txt");
  write_export(card, export_kind::text, folder / "link.txt");
  EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
  EXPECT_EQ(content(folder / "real.txt"), text_scorecard(card));
}

TEST_F(save_export_test, refuses_a_folder_that_is_not_there) {
  const fs::path path = folder / "missing" / "a.html";
  EXPECT_EQ(error_of(path), "The file cannot be written: No such file or directory (file " + path.string() + ")");
  EXPECT_EQ(files(), 0);
}

TEST_F(save_export_test, refuses_a_folder_in_place_of_the_file) {
  fs::create_directory(folder / "a.html");
  const fs::path path = folder / "a.html";
  EXPECT_EQ(error_of(path), "The file cannot be written: Is a directory (file " + path.string() + ")");
  EXPECT_TRUE(fs::is_directory(folder / "a.html"));
}

TEST_F(save_export_test, writes_straight_to_a_device_and_leaves_it_one) {
  write_export(card, export_kind::html, "/dev/null");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(save_export_test, refuses_a_full_device) {
  if (!fs::exists("/dev/full")) FAIL() << "the test needs /dev/full";
  EXPECT_EQ(error_of("/dev/full"), "The file cannot be written: No space left on device (file /dev/full)");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

}  // namespace
}  // namespace velorin
