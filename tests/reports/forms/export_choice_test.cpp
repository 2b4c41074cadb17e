// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/export_choice.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QTemporaryDir>

#include "desktop/preferences.h"
#include "reports/forms/played_match.h"
#include "reports/forms/scorecard_window.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ExportChoice : public ReportWindowTest {
 protected:
  void SetUp() override {
    ReportWindowTest::SetUp();
    card.open();
    preferences::set_last_folder({});
  }

  /// A window whose user always names this file.
  FileChooser naming(const QString& path) {
    return [this, path](const FileWish& wish, QWidget*) {
      wishes.push_back(wish);
      return path;
    };
  }
  static std::string content(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
  }
  QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  void write_old(const char* name, QFile::Permissions rights) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
    file.setPermissions(rights);
  }
  /// Saves the card as text there, by its button; the failure must be told by these words in the window, without a
  /// message box.
  void expect_failure(const QString& path, const QString& told) {
    const Robot nothing_opens;
    ScorecardWindow window(in_play(), card);
    const auto* note = control<QLabel>(window, "not_saved");
    window.show();
    EXPECT_FALSE(note->isVisible());
    window.choose_files_with(naming(path));
    press(window, "save_text");
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), told);
    EXPECT_EQ(note->accessibleName(), told);
    EXPECT_TRUE(window.isVisible());
  }

  QTemporaryDir folder;
  scorecard_form card{match};
  std::vector<FileWish> wishes;
};

TEST_F(ExportChoice, EachButtonWritesItsFile) {
  const std::tuple<const char*, const char*, std::string> kinds[] = {
      {"save_html", "a.html", html_scorecard(match, data, card)},
      {"save_text", "b.txt", text_scorecard(match, card)},
      {"save_ball_by_ball", "c.txt", ball_by_ball(match, card)},
  };
  for (const auto& [button, name, bytes] : kinds) {
    ScorecardWindow window(in_play(), card);
    window.choose_files_with(naming(folder.filePath(name)));
    window.show();
    press(window, button);
    EXPECT_EQ(content(folder.filePath(name)), bytes) << button;
    EXPECT_TRUE(window.isVisible());
  }
  EXPECT_EQ(files(), QStringList({"a.html", "b.txt", "c.txt"}));
}

TEST_F(ExportChoice, WhatIsAskedFor) {
  const FileWish page = export_wish(match, card, export_kind::html);
  EXPECT_EQ(page.title, "As HTML");
  EXPECT_EQ(page.name, "South Isles v Northland.html") << "the side that batted first in front";
  EXPECT_TRUE(page.filter.startsWith("HTML pages (*.html"));
  EXPECT_EQ(page.ending, "html");
  EXPECT_EQ(export_wish(match, card, export_kind::text).name, "South Isles v Northland.txt");
  EXPECT_EQ(export_wish(match, card, export_kind::ball_by_ball).name, "South Isles v Northland, ball by ball.txt");
  match = played_match().first_innings;
  card.open();
  EXPECT_EQ(export_wish(match, card, export_kind::text).name, "South Isles v Northland.txt");
}

TEST_F(ExportChoice, ANameThatNoFileMayHaveIsMended) {
  match = played_match().first_innings;
  match.team1_name = "A/B \\ C: D?";
  card.open();
  EXPECT_EQ(export_wish(match, card, export_kind::text).name, "A-B - C- D- v Northland.txt");
}

TEST_F(ExportChoice, TheFolderIsRemembered) {
  export_match(match, data, card, export_kind::text, naming(folder.filePath("a.txt")), nullptr);
  EXPECT_EQ(QDir(preferences::last_folder()).canonicalPath(), QDir(folder.path()).canonicalPath());
  export_match(match, data, card, export_kind::html, naming({}), nullptr);
  ASSERT_EQ(wishes.size(), 2U);
  EXPECT_EQ(wishes[0].folder, "");
  EXPECT_EQ(wishes[1].folder, preferences::last_folder());
}

TEST_F(ExportChoice, CancellingWritesNothing) {
  export_match(match, data, card, export_kind::text, naming({}), nullptr);
  EXPECT_EQ(files(), QStringList());
  EXPECT_EQ(preferences::last_folder(), "");
}

TEST_F(ExportChoice, AFileThatCannotBeWrittenIsTold) {
  const QString path = folder.filePath("missing/a.txt");
  expect_failure(path, "The file cannot be written: No such file or directory (file " + path + ")");
  EXPECT_EQ(files(), QStringList());
}

TEST_F(ExportChoice, AFileThatIsWrittenEndsTheNoteOfAFailure) {
  ScorecardWindow window(in_play(), card);
  const auto* note = control<QLabel>(window, "not_saved");
  window.show();
  for (const char* name : {"missing/a.txt", "a.txt"}) {
    window.choose_files_with(naming(folder.filePath(name)));
    press(window, "save_text");
    EXPECT_EQ(note->isVisible(), std::string_view(name) == "missing/a.txt") << name;
    if (note->isVisible()) take_picture(window, "scorecard_not_saved");
  }
}

TEST_F(ExportChoice, AFolderThatTakesNoFilesIsTheCauseTold) {
  write_old("a.txt", QFile::ReadOwner);
  const QString old = folder.filePath("a.txt");
  {
    const closed_folder closed(folder.path().toStdString());
    if (!closed.holds()) GTEST_SKIP() << "the system lets files be made in a closed folder";
    const QString fresh = folder.filePath("b.txt");
    expect_failure(fresh, "The file cannot be written: Permission denied (file " + fresh + ")");
    expect_failure(old, "The file cannot be written: Permission denied (file " + old + ")");
  }
  EXPECT_EQ(content(old), "old");
  EXPECT_EQ(files(), QStringList({"a.txt"}));
}

TEST_F(ExportChoice, AFullDiskLeavesTheOldFile) {
  write_old("a.txt", QFile::ReadOwner | QFile::WriteOwner);
  const QString path = folder.filePath("a.txt");
  {
    const small_disk disk(100);
    expect_failure(path, "The file cannot be written: File too large (file " + path + ")");
  }
  EXPECT_EQ(content(path), "old");
  EXPECT_EQ(files(), QStringList({"a.txt"}));
}

// A name beyond the core's bytes is told all the same.
TEST_F(ExportChoice, AFailureTellsANameOfForeignLetters) {
  const QString path = folder.filePath(QStringLiteral("\u4e2d/\u00e9.txt"));
  expect_failure(path, "The file cannot be written: No such file or directory (file " + path + ")");
}

TEST_F(ExportChoice, TheCommonDialogProposesAName) {
  FileWish wish = export_wish(match, card, export_kind::html);
  wish.folder = folder.path();
  Robot robot;
  robot.next("save_file", [&](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.selectedFiles(), QStringList(folder.filePath("South Isles v Northland.html")));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    dialog.reject();
  });
  EXPECT_EQ(ask_for_file(wish, nullptr), "");
}

TEST_F(ExportChoice, TheCommonDialogGivesANameItsEnding) {
  FileWish wish = export_wish(match, card, export_kind::html);
  wish.folder = folder.path();
  Robot robot;
  robot.next("save_file", [](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    dialog.selectFile("final");
    static_cast<QDialog&>(dialog).done(QDialog::Accepted);
  });
  EXPECT_EQ(ask_for_file(wish, nullptr), folder.filePath("final.html"));
}

}  // namespace
}  // namespace velorin::testing
