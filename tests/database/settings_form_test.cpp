// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/settings_form.h"

#include <gmock/gmock.h>

#include "database/database_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::write_bytes;

class SettingsForm : public testing::database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    for (const char* name : {"alpha.team", "alpha.grd", "beta.team", "beta.grd", "gamma.team"}) {
      write_bytes(folder / name, "");
    }
  }

  settings_form form{data};
};

TEST_F(SettingsForm, OpensOnTheSettings) {
  data.settings = {folder.string(), "beta", "FF0000", "0000FF", "Serif"};
  form.open();
  EXPECT_THAT(form.databases, ElementsAre("alpha", "beta"));
  EXPECT_EQ(form.database, "beta");
  EXPECT_EQ(form.sample_text_color, 255);
  EXPECT_EQ(form.sample_back_color, 16711680);
  EXPECT_EQ(form.font_dialog_color, 255);
  EXPECT_EQ(form.back_dialog_color, 16711680);
  EXPECT_EQ(form.photo_folder, folder.string());
  EXPECT_EQ(form.current_drive, "/");
  EXPECT_FALSE(form.closed);
}

TEST_F(SettingsForm, OpensWithoutSettings) {
  form.open();
  EXPECT_EQ(form.database, "");
  EXPECT_EQ(form.sample_text_color, 0);
  EXPECT_EQ(form.sample_back_color, 0xFFFFFF);
  EXPECT_EQ(form.photo_folder, folder.parent_path().string()) << "the program's folder";
}

TEST_F(SettingsForm, PassesOverSettingsThatCannotBeShown) {
  data.settings = {(folder / "gone").string(), "gone", "no colour", "00FF00", ""};
  form.open();
  EXPECT_EQ(form.database, "");
  EXPECT_EQ(form.sample_text_color, 0);
  EXPECT_EQ(form.sample_back_color, 0x00FF00) << "the next step runs";
  EXPECT_EQ(form.photo_folder, folder.parent_path().string());
}

TEST_F(SettingsForm, ASlashBehindTheFolderChangesNothing) {
  data.files = database_paths(folder / "", "base");
  form.open();
  EXPECT_THAT(form.databases, ElementsAre("alpha", "beta"));
  EXPECT_EQ(form.photo_folder, folder.parent_path().string());
  data.files = database_paths(folder / ".", "base");
  form.open();
  EXPECT_EQ(form.photo_folder, folder.parent_path().string());
}

TEST_F(SettingsForm, AFolderWithoutAPlaceInTheCodePageLeavesNone) {
  const std::filesystem::path teams = folder / "\xE5\xB1\xB1" / "teams";
  std::filesystem::create_directories(teams);
  write_bytes(teams / "delta.team", "");
  write_bytes(teams / "delta.grd", "");
  data.files = database_paths(teams, "base");
  form.open();
  EXPECT_THAT(form.databases, ElementsAre("delta"));
  EXPECT_EQ(form.photo_folder, "");
  form.database = "delta";
  EXPECT_FALSE(form.accept().has_value());
  EXPECT_EQ(bytes_of(teams / "options.mc"), "\r\ndelta\r\n000000\r\nFFFFFF\r\nSans Serif\r\n");
}

TEST_F(SettingsForm, AFolderInTheCodePageIsShownInIt) {
  const std::filesystem::path teams = folder / "caf\xC3\xA9" / "teams";
  std::filesystem::create_directories(teams);
  data.files = database_paths(teams, "base");
  form.open();
  EXPECT_EQ(form.photo_folder, folder.string() + "/caf\xE9");
  EXPECT_EQ(form.current_drive, "/");
}

TEST_F(SettingsForm, OkWithoutADatabaseShowsAMessageAndStays) {
  form.open();
  const auto message = form.accept();
  ASSERT_TRUE(message.has_value());
  EXPECT_EQ(message->title, "Error");
  EXPECT_EQ(message->text, "Please select a database before continuing");
  EXPECT_FALSE(form.closed);
  EXPECT_FALSE(std::filesystem::exists(folder / "options.mc"));
  EXPECT_EQ(data.files.base, "base");
}

TEST_F(SettingsForm, OkSetsThePathsWritesTheFileAndCloses) {
  form.open();
  form.database = "alpha";
  form.photo_folder = "/photos";
  form.sample_font = "Some Sans";
  form.change_font_color(255);
  form.change_back_color(657930);
  EXPECT_EQ(form.sample_text_color, 255);
  EXPECT_EQ(form.sample_back_color, 657930);
  EXPECT_FALSE(form.accept().has_value());
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(data.files.team_file, folder / "alpha.team");
  EXPECT_EQ(data.settings.database_name, "alpha");
  EXPECT_EQ(bytes_of(folder / "options.mc"), "/photos\r\nalpha\r\nFF0000\r\n0A0A0A\r\nSome Sans\r\n");
}

TEST_F(SettingsForm, ACancelledColourDialogKeepsItsColour) {
  form.open();
  form.change_back_color(std::nullopt);
  form.change_font_color(std::nullopt);
  EXPECT_EQ(form.sample_text_color, 0);
  EXPECT_EQ(form.sample_back_color, 0xFFFFFF);
}

TEST_F(SettingsForm, AnInvalidDriveIsIgnored) {
  data.settings.photo_path = folder.string();
  form.open();
  form.change_drive((folder / "gone").string());
  EXPECT_EQ(form.current_drive, "/");
  EXPECT_EQ(form.photo_folder, folder.string());
  form.change_drive("/");
  EXPECT_EQ(form.photo_folder, "/");
}

TEST_F(SettingsForm, SettingsThatCannotBeWrittenHoldForThisRun) {
  std::filesystem::create_directory(folder / "options.mc");
  form.open();
  form.database = "alpha";
  form.change_font_color(255);
  const auto message = form.accept();
  ASSERT_TRUE(message.has_value());
  EXPECT_EQ(message->title, "Error");
  EXPECT_EQ(message->text,
            "The settings hold until the program ends. The file cannot be written: Is a directory (file options.mc)");
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(data.files.team_file, folder / "alpha.team");
  EXPECT_EQ(data.settings.text_color, "FF0000");
}

TEST_F(SettingsForm, NamesThatCannotBeKeptHaveANote) {
  for (const char* name : {"one, two.team", "one, two.grd", "new\nline.team", "new\nline.grd"}) {
    write_bytes(folder / name, "");
  }
  form.open();
  EXPECT_EQ(form.database_note(), "");
  EXPECT_EQ(form.folder_note(), "");
  form.photo_folder = "/one, two";
  EXPECT_NE(form.folder_note(), "");
  for (const char* name : {"one, two", "new\nline"}) {
    form.database = name;
    EXPECT_NE(form.database_note(), "") << name;
    EXPECT_FALSE(form.accept().has_value());
    EXPECT_EQ(data.files.team_file, folder / (std::string(name) + ".team")) << "it is in use all the same";
    data.settings = configuration();
    EXPECT_EQ(take_first_settings(data), first_settings::not_on_offer);
    EXPECT_EQ(data.settings.text_color, "000000") << "the lines below are not shifted";
    EXPECT_EQ(data.files.base, "");
  }
}

}  // namespace
}  // namespace velorin
