// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/forms/settings_window.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "database/database_fixture.h"
#include "database/settings_form.h"
#include "desktop/preferences.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class SettingsWindowTest : public database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    for (const char* name : {"alpha.team", "alpha.grd", "beta.v2.team", "beta.v2.grd", "gamma.team"}) {
      write_bytes(folder / name, "");
    }
  }

  /// Choosers that answer from the fields below and keep what they started from.
  SettingsWindow::Choosers choosers() {
    return {[this](QWidget*, const QColor& present) {
              started_color_ = present;
              return color_;
            },
            [this](QWidget*, const QString& present) {
              started_folder_ = present;
              return folder_chosen_;
            }};
  }
  static QColor pixel(const QWidget& window) {
    return control<QLabel>(window, "sample")->grab().toImage().pixelColor(20, 8);
  }

  settings_form form_{data};
  std::optional<QColor> color_;
  QString folder_chosen_;
  QColor started_color_;
  QString started_folder_;
};

TEST_F(SettingsWindowTest, PassesTheChecks) {
  data.settings = {folder.string(), "alpha", "1F4D3A", "F4F1E6", ""};
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  take_picture(window, "optfrm");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Configurations");
}

TEST_F(SettingsWindowTest, MomentsAreTurnedOffWithTheOkAlone) {
  data.settings = {folder.string(), "alpha", "1F4D3A", "F4F1E6", ""};
  form_.open();
  {
    SettingsWindow window(data, form_);
    EXPECT_TRUE(control<QCheckBox>(window, "moments")->isChecked());
    control<QCheckBox>(window, "moments")->click();
    window.reject();
  }
  EXPECT_TRUE(preferences::moments());
  SettingsWindow window(data, form_);
  window.show();
  control<QCheckBox>(window, "moments")->click();
  press(window, "accept");
  EXPECT_FALSE(preferences::moments());
  preferences::set_moments(true);
}

TEST_F(SettingsWindowTest, ShowsTheSettings) {
  data.settings = {folder.string(), "beta.v2", "FF0000", "00FF00", ""};
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  const auto* databases = control<QComboBox>(window, "databases");
  ASSERT_EQ(databases->count(), 2);
  EXPECT_EQ(databases->itemText(0), "alpha");
  EXPECT_EQ(databases->currentText(), "beta.v2");
  EXPECT_EQ(control<QLineEdit>(window, "photo_folder")->text(), QString::fromStdString(folder.string()));
  EXPECT_EQ(control<QLabel>(window, "sample")->text(), "This is a sample line of text.");
  EXPECT_EQ(pixel(window), QColor(0, 255, 0));
  EXPECT_FALSE(form_.sample_font.empty());
  EXPECT_EQ(QString::fromStdString(form_.sample_font), control<QLabel>(window, "sample")->font().family());
}

TEST_F(SettingsWindowTest, ColoursComeFromTheirDialogs) {
  data.settings = {"", "alpha", "0000FF", "FFFF00", ""};
  form_.open();
  SettingsWindow window(data, form_, nullptr, choosers());
  window.show();
  press(window, "change_back_color");
  EXPECT_EQ(started_color_, QColor(255, 255, 0));
  EXPECT_EQ(pixel(window), QColor(255, 255, 0)) << "cancelled";
  color_ = QColor(10, 20, 30);
  press(window, "change_back_color");
  EXPECT_EQ(pixel(window), QColor(10, 20, 30));
  EXPECT_EQ(form_.sample_back_color, 10 + 256 * 20 + 65536 * 30);
  EXPECT_EQ(form_.sample_text_color, 0xFF0000);
  color_ = QColor(200, 100, 50);
  press(window, "change_font_color");
  EXPECT_EQ(started_color_, QColor(0, 0, 255));
  EXPECT_EQ(form_.sample_text_color, 200 + 256 * 100 + 65536 * 50);
  EXPECT_TRUE(control<QLabel>(window, "sample")->styleSheet().contains("#c86432"));
  press(window, "accept");
  EXPECT_EQ(data.settings.text_color, "C86432");
  EXPECT_EQ(data.settings.back_color, "0A141E");
}

TEST_F(SettingsWindowTest, BrowseChoosesTheFolder) {
  form_.open();
  SettingsWindow window(data, form_, nullptr, choosers());
  window.show();
  const QString before = control<QLineEdit>(window, "photo_folder")->text();
  press(window, "browse");
  EXPECT_EQ(started_folder_, before);
  EXPECT_EQ(control<QLineEdit>(window, "photo_folder")->text(), before) << "cancelled";
  folder_chosen_ = QString::fromUtf8("/photos/\xC3\xA9t\xC3\xA9");
  press(window, "browse");
  EXPECT_EQ(form_.photo_folder, "/photos/\xE9t\xE9");
  EXPECT_EQ(control<QLineEdit>(window, "photo_folder")->text(), folder_chosen_);
  EXPECT_FALSE(control<QLabel>(window, "folder_note")->isVisible());
}

TEST_F(SettingsWindowTest, AFolderThatCannotBeKeptIsExplained) {
  form_.open();
  SettingsWindow window(data, form_, nullptr, choosers());
  window.show();
  const std::string before = form_.photo_folder;
  folder_chosen_ = QString::fromUtf8("/\xE5\xB1\xB1");
  press(window, "browse");
  EXPECT_EQ(form_.photo_folder, before);
  EXPECT_TRUE(control<QLabel>(window, "folder_note")->isVisible());
  check_window_at_sizes(window);
  folder_chosen_ = "/one, two";
  press(window, "browse");
  EXPECT_EQ(form_.photo_folder, "/one, two");
  EXPECT_TRUE(control<QLabel>(window, "folder_note")->text().contains("comma"));
}

TEST_F(SettingsWindowTest, ADatabaseThatCannotBeKeptIsExplained) {
  for (const char* name : {"one, two.team", "one, two.grd"}) write_bytes(folder / name, "");
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  auto* databases = control<QComboBox>(window, "databases");
  EXPECT_FALSE(control<QLabel>(window, "database_note")->isVisible());
  databases->setCurrentIndex(databases->findText("one, two"));
  EXPECT_TRUE(control<QLabel>(window, "database_note")->isVisible());
  EXPECT_TRUE(control<QLabel>(window, "database_note")->text().contains("cannot be kept"));
  check_window_at_sizes(window);
  databases->setCurrentIndex(databases->findText("alpha"));
  EXPECT_FALSE(control<QLabel>(window, "database_note")->isVisible());
}

TEST_F(SettingsWindowTest, SettingsThatCannotBeWrittenCloseTheFormWithAMessage) {
  std::filesystem::create_directory(folder / "options.mc");
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  control<QComboBox>(window, "databases")->setCurrentIndex(0);
  Robot robot;
  robot.next("message", [](QWidget& message) {
    EXPECT_TRUE(control<QLabel>(message, "text")->text().contains("options.mc"));
    press(message, "accept");
  });
  press(window, "accept");
  EXPECT_EQ(robot.left(), 0);
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(data.files.base, "alpha");
}

TEST_F(SettingsWindowTest, OkNeedsADatabase) {
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  EXPECT_EQ(control<QComboBox>(window, "databases")->currentText(), "");
  Robot robot;
  robot.next("message", [](QWidget& message) {
    EXPECT_EQ(message.windowTitle(), "Error");
    EXPECT_EQ(control<QLabel>(message, "text")->text(), "Please select a database before continuing");
    press(message, "accept");
  });
  press(window, "accept");
  EXPECT_EQ(robot.left(), 0);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(std::filesystem::exists(folder / "options.mc"));
}

TEST_F(SettingsWindowTest, OkKeepsTheChoices) {
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  control<QComboBox>(window, "databases")->setCurrentIndex(1);
  press(window, "accept");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(data.settings.database_name, "beta.v2");
  EXPECT_EQ(data.files.team_file, folder / "beta.v2.team");
  EXPECT_THAT(bytes_of(folder / "options.mc"), ::testing::HasSubstr("\r\nbeta.v2\r\n000000\r\nFFFFFF\r\n"));
}

TEST_F(SettingsWindowTest, ClosingKeepsTheFormerSettings) {
  data.settings = {folder.string(), "alpha", "FF0000", "00FF00", "Serif"};
  form_.open();
  color_ = QColor(1, 2, 3);
  SettingsWindow window(data, form_, nullptr, choosers());
  window.show();
  control<QComboBox>(window, "databases")->setCurrentIndex(1);
  press(window, "change_back_color");
  window.reject();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(data.settings.database_name, "alpha");
  EXPECT_EQ(data.settings.back_color, "00FF00");
  EXPECT_FALSE(std::filesystem::exists(folder / "options.mc"));
}

TEST_F(SettingsWindowTest, AFolderWithoutADatabaseSaysWhatToDo) {
  const std::filesystem::path empty = folder / "empty";
  std::filesystem::create_directory(empty);
  data.files = database_paths(empty, "");
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  take_picture(window, "optfrm_empty");
  check_window_at_sizes(window);
  EXPECT_EQ(control<QComboBox>(window, "databases")->count(), 0);
  const QString note = control<QLabel>(window, "no_database")->text();
  EXPECT_TRUE(note.contains(".team"));
  EXPECT_TRUE(note.contains(QString::fromStdString(empty.string())));
}

TEST_F(SettingsWindowTest, CareersBeginAnewAfterAQuestion) {
  for (const char* name : {"alpha.rec", "alpha.ptr"}) write_bytes(folder / name, "what matches have left");
  data.settings = {folder.string(), "beta.v2", "", "", ""};
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "begin_anew")->isEnabled()) << "nothing to begin anew";
  control<QComboBox>(window, "databases")->setCurrentIndex(0);
  ASSERT_TRUE(control<QPushButton>(window, "begin_anew")->isEnabled());
  take_picture(window, "optfrm_careers");
  check_window_at_sizes(window);
  Robot robot;
  robot.next("anew_question", [](QWidget& question) {
    EXPECT_EQ(question.focusWidget(), control<QPushButton>(question, "no"));
    EXPECT_TRUE(control<QLabel>(question, "text")->text().contains("\"alpha\""));
    take_picture(question, "anew_question");
    check_window_at_sizes(question);
    press(question, "no");
  });
  press(window, "begin_anew");
  EXPECT_EQ(bytes_of(folder / "alpha.rec"), "what matches have left");
  robot.next("anew_question", pressing("yes"));
  press(window, "begin_anew");
  EXPECT_EQ(bytes_of(folder / "alpha.rec") + bytes_of(folder / "alpha.ptr"), "");
  EXPECT_FALSE(control<QPushButton>(window, "begin_anew")->isEnabled());
  EXPECT_TRUE(control<QLabel>(window, "careers_note")->text().contains("first match"));
  EXPECT_EQ(window.focusWidget(), control<QPushButton>(window, "accept"));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(robot.left(), 0);
}

TEST_F(SettingsWindowTest, ACareerFileThatCannotBeEmptiedIsTold) {
  write_bytes(folder / "alpha.ptr", "what matches have left");
  std::filesystem::create_directory(folder / "alpha.rec");
  data.settings = {folder.string(), "alpha", "", "", ""};
  form_.open();
  SettingsWindow window(data, form_);
  window.show();
  Robot robot;
  robot.next("anew_question", pressing("yes"));
  std::string told;
  robot.next("message", [&](QWidget& message) {
    told = control<QLabel>(message, "text")->text().toStdString();
    press(message, "accept");
  });
  press(window, "begin_anew");
  EXPECT_THAT(told, ::testing::HasSubstr("alpha.rec"));
  EXPECT_EQ(bytes_of(folder / "alpha.ptr"), "what matches have left");
  EXPECT_TRUE(control<QPushButton>(window, "begin_anew")->isEnabled()) << "may be tried again";
}

}  // namespace
}  // namespace velorin::testing
